// print_parts.h - the real parts print tests start, for unit and end-to-end
// tests alike: loopback sockets, a TCP listener standing for a network
// embosser, and a CUPS scheduler of the test's own.
#ifndef TACTO_TESTS_SUPPORT_PRINT_PARTS_H
#define TACTO_TESTS_SUPPORT_PRINT_PARTS_H

#include <sys/types.h>

#include <string>
#include <thread>
#include <vector>

// A TCP socket on 127.0.0.1:`port` (0: an ephemeral one), bound or
// connected; -1 when that failed.
int loopback(int port, bool bound);

// A loopback port nobody listens on (bound, then let go).
int free_port();

// A listener on 127.0.0.1 that takes `copies` connections one after another
// and keeps what each sent until it closed; `hang_up` closes each at once.
// Not `accepting`, its backlog of 0 makes a host that stops answering.
class Listener {
 public:
  explicit Listener(int copies, bool hang_up = false, bool accepting = true);
  ~Listener();
  std::string url() const;  // socket://127.0.0.1:PORT
  int port() const;
  // Every connection's bytes, once all came (or 30 s passed).
  std::vector<std::string> received();

 private:
  void serve(int copies, bool hang_up);
  int fd_;
  std::thread thread_;
  std::vector<std::string> received_;
};

// A CUPS scheduler (cupsd -f) on a loopback port with every directory in a
// temporary tree and no authentication; CUPS_SERVER names it while it
// lives, so programs the test starts print there. Stopped by its process
// id at the end.
class CupsServer {
 public:
  static bool installed();  // /usr/sbin/cupsd can be run (Debian: cups)
  CupsServer();             // starts it and waits up to 10 s for it to answer
  ~CupsServer();
  bool up() const { return up_; }
  const std::string &server() const { return server_; }  // 127.0.0.1:PORT
  // Runs lpadmin against this scheduler ("-p emb -E -v socket://..."); 1 when it succeeded.
  int lpadmin(const std::string &args) const;
  std::string log() const;  // what the scheduler and lpadmin wrote, for failure messages
  void stop();

 private:
  std::string root_, server_;
  pid_t pid_ = -1;
  bool up_ = false;
};

#endif
