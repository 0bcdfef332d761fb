// destination_test.cpp - port names read as destinations, and jobs delivered
// to real parts the tests start: a TCP listener, named pipes, a terminal, a
// plain file and a CUPS scheduler of their own.
#include "devices/destination.h"

#include <arpa/inet.h>
#include <cups/cups.h>
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "core/run_state.h"
#include "support/test_env.h"

// An embosser-like stream: plotter mode, then every byte value many times.
static std::string job_bytes(size_t size) {
  std::string s(size, '\0');
  for (size_t i = 0; i < size; i++) s[i] = static_cast<char>((i * 7 + i / 256) & 0xff);
  return s.replace(0, 4, "\x1b\x1bG\r");
}

// A TCP socket on 127.0.0.1:`port` (0: an ephemeral one), bound or connected.
static int loopback(int port, bool bound) {
  int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in a = {};
  a.sin_family = AF_INET;
  a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  a.sin_port = htons(static_cast<uint16_t>(port));
  int ok = bound ? bind(fd, reinterpret_cast<sockaddr *>(&a), sizeof a) : connect(fd, reinterpret_cast<sockaddr *>(&a), sizeof a);
  if (ok == 0) return fd;
  close(fd);
  return -1;
}

static int port_of(int fd) {
  sockaddr_in a = {};
  socklen_t len = sizeof a;
  getsockname(fd, reinterpret_cast<sockaddr *>(&a), &len);
  return ntohs(a.sin_port);
}

// A loopback port nobody listens on (bound, then let go).
static int free_port() {
  int fd = loopback(0, true), port = port_of(fd);
  close(fd);
  return port;
}

// A listener on 127.0.0.1 that takes `copies` connections one after another
// and keeps what each sent until it closed; `hang_up` closes each at once.
// Not `accepting`, its backlog of 0 makes a host that stops answering.
class Listener {
 public:
  explicit Listener(int copies, bool hang_up = false, bool accepting = true) : fd_(loopback(0, true)) {
    listen(fd_, accepting ? 8 : 0);
    if (accepting) thread_ = std::thread([=] { serve(copies, hang_up); });
  }
  ~Listener() {
    received();
    close(fd_);
  }
  std::string url() const { return "socket://127.0.0.1:" + std::to_string(port_of(fd_)); }
  int port() const { return port_of(fd_); }
  // Every connection's bytes, once all came (or 30 s passed).
  std::vector<std::string> received() {
    if (thread_.joinable()) thread_.join();
    return received_;
  }

 private:
  void serve(int copies, bool hang_up) {
    pollfd p = {fd_, POLLIN, 0};
    for (int i = 0; i < copies && poll(&p, 1, 30000) > 0; i++) {
      int c = accept(fd_, nullptr, nullptr);
      std::string got;
      char buf[65536];
      pollfd q = {c, POLLIN, 0};
      for (ssize_t n; !hang_up && poll(&q, 1, 30000) > 0 && (n = read(c, buf, sizeof buf)) > 0;)
        got.append(buf, static_cast<size_t>(n));
      close(c);
      received_.push_back(got);
    }
  }
  int fd_;
  std::thread thread_;
  std::vector<std::string> received_;
};

class DestinationTest : public TactoTest {
 protected:
  Destination dest(const std::string &name) {
    Destination d;
    parse_destination(name.c_str(), serial, &d);
    return d;
  }
  // The last delivery reported exactly one error, ending with `text` (a
  // prefix of the reason when `whole` is false); the count starts again.
  void expect_one_error(const std::string &text, bool whole = true) {
    std::string shown = errors();
    EXPECT_EQ(run_state.error_count, 1) << shown;
    EXPECT_EQ(count_of(shown, "error "), 1) << shown;
    size_t at = shown.find(": " + text), end = at + text.size() + 2;
    EXPECT_TRUE(at != std::string::npos && (!whole || end == shown.size() || shown[end] == '\n')) << shown;
    run_state.error_count = 0;
  }
  void expect_all_taken(const std::vector<std::string> &got, size_t copies, const std::string &job) {
    ASSERT_EQ(got.size(), copies);
    for (const std::string &copy : got) EXPECT_TRUE(copy == job) << copy.size() << " of " << job.size() << " bytes";
    EXPECT_EQ(run_state.error_count, 0) << errors();
  }
};

TEST_F(DestinationTest, PortNamesReadAsDestinations) {
  struct Case {
    const char *name;
    int kind;
    const char *label, *target;
  } cases[] = {
      {"COM1", DEST_SERIAL, "/dev/ttyS0", "/dev/ttyS0"},
      {"com12", DEST_SERIAL, "/dev/ttyS11", "/dev/ttyS11"},
      {"3", DEST_SERIAL, "/dev/ttyS2", "/dev/ttyS2"},
      {"/dev/usb/lp0", DEST_PATH, "/dev/usb/lp0", "/dev/usb/lp0"},
      {"ttyUSB0", DEST_PATH, "/dev/ttyUSB0", "/dev/ttyUSB0"},
      {"./plan.bin", DEST_PATH, "./plan.bin", "./plan.bin"},
      {"socket://emb.school.org", DEST_SOCKET, "socket://emb.school.org:9100", "emb.school.org"},
      {"SOCKET://10.0.0.5:9101/", DEST_SOCKET, "socket://10.0.0.5:9101", "10.0.0.5"},
      {"socket://[::1]:631", DEST_SOCKET, "socket://[::1]:631", "::1"},
      {"cups:emb", DEST_CUPS, "cups:emb", "emb"},
      {"cups:", DEST_CUPS, "cups:", ""},
  };
  for (const Case &c : cases) {
    Destination d = dest(c.name);
    EXPECT_EQ(d.problem, nullptr) << c.name;
    EXPECT_EQ(d.kind, c.kind) << c.name;
    EXPECT_STREQ(d.label, c.label) << c.name;
    EXPECT_STREQ(d.target, c.target) << c.name;
  }
  EXPECT_EQ(dest("socket://h").port, 9100);
  EXPECT_EQ(dest("socket://h:65535").port, 65535);
}

TEST_F(DestinationTest, MalformedNamesAreRefusedAndTheirJobsReported) {
  struct Case {
    std::string name;
    const char *problem;
  } cases[] = {
      {"", "has no name"},
      {std::string(96, 'a'), "is longer than 95 characters"},
      {"COM0", "is no serial port (COM1 to COM99)"},
      {"COM100", "is no serial port (COM1 to COM99)"},
      {"socket://", "has no host"},
      {"socket://:9100", "has no host"},
      {"socket://[::1", "has a bad host"},
      {"socket://h:0", "has a bad port number (1 to 65535)"},
      {"socket://h:65536", "has a bad port number (1 to 65535)"},
      {"socket://h:91x", "has a bad port number (1 to 65535)"},
      {"cups:my queue", "has a bad queue name"},
      {"cups:a/b", "has a bad queue name"},
      {"usb://Maker/Model", "is no destination (COM1, a path, socket://HOST:PORT or cups:QUEUE)"},
  };
  for (const Case &c : cases) {
    Destination d;
    EXPECT_EQ(parse_destination(c.name.c_str(), serial, &d), 0) << c.name;
    EXPECT_STREQ(d.problem, c.problem) << c.name;
  }
  EXPECT_EQ(deliver_buffer(dest("socket://h:0"), "x", 1, "t", nullptr), 0);
  expect_one_error("printer [socket://h:0] has a bad port number (1 to 65535)");
}

TEST_F(DestinationTest, SocketTakesEveryByteOncePerCopy) {
  std::string job = job_bytes(3 << 20);
  Listener emb(3);
  Destination d = dest(emb.url());
  int id = -1;
  EXPECT_EQ(deliver_buffer(d, job.data(), job.size(), "plan", &id), 1);
  EXPECT_EQ(id, 0);
  EXPECT_EQ(deliver_buffer(d, job.data(), job.size(), "plan", &id), 1);
  EXPECT_EQ(deliver_file(d, write_file("job.out", job).c_str(), "plan", &id), 1);
  expect_all_taken(emb.received(), 3, job);
}

TEST_F(DestinationTest, SocketThatRefusesStaysSilentOrHangsUp) {
  std::string closed = "socket://127.0.0.1:" + std::to_string(free_port());
  EXPECT_EQ(deliver_buffer(dest(closed), "x", 1, "t", nullptr), 0);
  expect_one_error("printer [" + closed + "] refused the connection");

  // One connection fills the backlog of 0 (once the listener has taken its
  // last handshake packet); the next handshake is dropped.
  Listener silent(0, false, false);
  int filler = loopback(silent.port(), false);
  ASSERT_GE(filler, 0);
  usleep(50000);
  Destination d = dest(silent.url());
  d.connect_ms = 300;
  EXPECT_EQ(deliver_buffer(d, "x", 1, "t", nullptr), 0);
  expect_one_error("printer [" + silent.url() + "] did not answer in 0.3 s");
  close(filler);

  Listener rude(1, true);
  std::string job = job_bytes(16 << 20);
  EXPECT_EQ(deliver_buffer(dest(rude.url()), job.data(), job.size(), "t", nullptr), 0);
  expect_one_error("printer [" + rude.url() + "] write failed (", false);
}

TEST_F(DestinationTest, NamedPipeReaderGetsTheJob) {
  std::string fifo = temp_path("emb.fifo"), job = job_bytes(300000), got;
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  // The reader comes a little late: the job waits for it.
  std::thread reader([&] {
    usleep(100000);
    std::ifstream in(fifo, std::ios::binary);
    got.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  });
  EXPECT_EQ(deliver_file(dest(fifo), write_file("job.out", job).c_str(), "t", nullptr), 1);
  reader.join();
  expect_all_taken({got}, 1, job);
}

TEST_F(DestinationTest, NamedPipeWithoutAWillingReaderEndsTheCopy) {
  std::string fifo = temp_path("emb.fifo"), other = temp_path("other.fifo"), job = job_bytes(1 << 20);
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  ASSERT_EQ(mkfifo(other.c_str(), 0600), 0);
  Destination d = dest(fifo);
  d.stall_ms = 200;
  EXPECT_EQ(deliver_buffer(d, "x", 1, "t", nullptr), 0);
  expect_one_error("printer [" + fifo + "] has no reader for 0.2 s");

  int idle = open(fifo.c_str(), O_RDONLY | O_NONBLOCK);
  EXPECT_EQ(deliver_buffer(d, job.data(), job.size(), "t", nullptr), 0);
  expect_one_error("printer [" + fifo + "] took no data for 0.2 s");
  close(idle);

  // This reader leaves as soon as the first bytes arrive: the pipe breaks,
  // and the program lives on with no signal left pending.
  int leaving = open(other.c_str(), O_RDONLY | O_NONBLOCK);
  std::thread leaver([leaving] {
    pollfd p = {leaving, POLLIN, 0};
    poll(&p, 1, 10000);
    close(leaving);
  });
  EXPECT_EQ(deliver_buffer(dest(other), job.data(), job.size(), "t", nullptr), 0);
  leaver.join();
  expect_one_error("printer [" + other + "] write failed (Broken pipe)");
  sigset_t pending;
  sigpending(&pending);
  EXPECT_FALSE(sigismember(&pending, SIGPIPE));
}

TEST_F(DestinationTest, FileCollectsCopiesButAMissingDeviceIsNotMade) {
  std::string out = temp_path("port.bin");
  EXPECT_EQ(deliver_buffer(dest(out), "ab\n", 3, "t", nullptr), 1);
  EXPECT_EQ(deliver_buffer(dest(out), "cd\n", 3, "t", nullptr), 1);
  EXPECT_EQ(read_file(out), "ab\ncd\n");
  EXPECT_EQ(deliver_buffer(dest("/dev/tacto-no-embosser"), "x", 1, "t", nullptr), 0);
  expect_one_error("printer [/dev/tacto-no-embosser] was not open (No such file or directory)");
  EXPECT_NE(access("/dev/tacto-no-embosser", F_OK), 0);
  std::string none = temp_path("none.out");
  EXPECT_EQ(deliver_file(dest(out), none.c_str(), "t", nullptr), 0);
  expect_one_error("job [" + none + "] was not open (No such file or directory)");
}

TEST_F(DestinationTest, TerminalTakesTheLineSettingsAndBytesUnchanged) {
  int master, slave;
  char name[128];
  ASSERT_EQ(openpty(&master, &slave, name, nullptr, nullptr), 0);
  // A pseudo-terminal keeps 8 bits without parity whatever it is told.
  serial.baud = 19200;
  serial.stop = 2;
  serial.xon = 0;
  EXPECT_EQ(deliver_buffer(dest(name), "\x1b\x1bG\r\n1\n", 7, "t", nullptr), 1);
  std::string got;
  char buf[64];
  pollfd p = {master, POLLIN, 0};
  for (ssize_t n; got.size() < 7 && poll(&p, 1, 5000) > 0 && (n = read(master, buf, sizeof buf)) > 0;)
    got.append(buf, static_cast<size_t>(n));
  EXPECT_EQ(got, "\x1b\x1bG\r\n1\n");
  termios t;
  ASSERT_EQ(tcgetattr(slave, &t), 0);
  EXPECT_EQ(cfgetospeed(&t), static_cast<speed_t>(B19200));
  EXPECT_NE(t.c_cflag & CSTOPB, 0u);
  EXPECT_EQ(t.c_iflag & (IXON | IXOFF), 0u);
  EXPECT_EQ(t.c_oflag & OPOST, 0u);
  close(slave);
  close(master);
}

// A CUPS scheduler of the test's own on a loopback port, with every
// directory in a temporary tree, no authentication, and the library
// pointed at it.
class CupsTest : public DestinationTest {
 protected:
  void SetUp() override {
    DestinationTest::SetUp();
    std::string cupsd = access("/usr/sbin/cupsd", X_OK) == 0 ? "/usr/sbin/cupsd" : "";
    if (cupsd.empty()) GTEST_SKIP() << "cupsd is not installed (Debian: cups)";
    // The scheduler's backends run as another user: the tree must be open to it.
    char tmpl[] = "/tmp/tacto-cups-XXXXXX";
    root_ = mkdtemp(tmpl);
    chmod(root_.c_str(), 0755);
    for (const char *dir : {"/conf", "/spool", "/cache", "/state", "/log", "/tmp"}) mkdir((root_ + dir).c_str(), 0755);
    port_ = free_port();
    server_ = "127.0.0.1:" + std::to_string(port_);
    std::ofstream(root_ + "/cupsd.conf")
        << "Listen " << server_ << "\nLogLevel warn\nBrowsing Off\nWebInterface No\nDefaultAuthType None\n"
        << "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n<Policy default>\n  <Limit All>\n"
        << "    AuthType None\n    Order allow,deny\n    Allow all\n  </Limit>\n</Policy>\n";
    std::ofstream files(root_ + "/cups-files.conf");
    for (const char *key : {"ServerRoot conf", "RequestRoot spool", "CacheDir cache", "StateDir state", "TempDir tmp",
                            "ErrorLog log/error_log", "AccessLog log/access_log", "PageLog log/page_log"}) {
      std::string line = key;
      files << line.replace(line.find(' '), 1, " " + root_ + "/") << "\n";
    }
    files.close();
    pid_ = fork();
    if (pid_ == 0) {
      int log = open((root_ + "/log/cupsd.out").c_str(), O_WRONLY | O_CREAT, 0644);
      dup2(log, 1);
      dup2(log, 2);
      execl(cupsd.c_str(), "cupsd", "-f", "-c", (root_ + "/cupsd.conf").c_str(), "-s",
            (root_ + "/cups-files.conf").c_str(), static_cast<char *>(nullptr));
      _exit(127);
    }
    // Up to 10 s for the scheduler to take connections.
    int up = -1, status;
    for (int i = 0; i < 200 && up < 0 && waitpid(pid_, &status, WNOHANG) == 0; i++)
      if ((up = loopback(port_, false)) < 0) usleep(50000);
    ASSERT_GE(up, 0) << read_file(root_ + "/log/cupsd.out") << read_file(root_ + "/log/error_log");
    close(up);
    cupsSetServer(server_.c_str());
  }

  void TearDown() override {
    stop_server();
    cupsSetServer(nullptr);
    if (!root_.empty() && system(("rm -rf '" + root_ + "'").c_str()) != 0) ADD_FAILURE() << "left " << root_;
    DestinationTest::TearDown();
  }

  // Stops the scheduler by its process id.
  void stop_server() {
    if (pid_ <= 0) return;
    kill(pid_, SIGTERM);
    int status, gone = 0;
    for (int i = 0; i < 100 && !(gone = waitpid(pid_, &status, WNOHANG) == pid_); i++) usleep(50000);
    if (!gone) {
      kill(pid_, SIGKILL);
      waitpid(pid_, &status, 0);
    }
    pid_ = -1;
  }

  // Runs lpadmin against the test's scheduler; 1 when it succeeded.
  int lpadmin(const std::string &args) {
    return system(("lpadmin -h " + server_ + " " + args + " >>" + root_ + "/log/lpadmin.out 2>&1").c_str()) == 0;
  }

  std::string root_, server_;
  int port_ = 0;
  pid_t pid_ = -1;
};

TEST_F(CupsTest, RawJobsReachTheQueueDeviceOncePerCopy) {
  Listener emb(3);
  ASSERT_TRUE(lpadmin("-p emb -E -v " + emb.url())) << read_file(root_ + "/log/lpadmin.out");
  std::string job = job_bytes(200000);
  int first = 0, second = 0, third = 0;
  EXPECT_EQ(deliver_buffer(dest("cups:emb"), job.data(), job.size(), "house_plan.txt", &first), 1);
  EXPECT_EQ(deliver_file(dest("cups:emb"), write_file("tmp.out", job).c_str(), "house_plan.txt", &second), 1);
  ASSERT_TRUE(lpadmin("-d emb"));
  EXPECT_EQ(deliver_buffer(dest("cups:"), job.data(), job.size(), "", &third), 1);
  EXPECT_GT(first, 0);
  EXPECT_EQ(second, first + 1);
  EXPECT_EQ(third, first + 2);
  expect_all_taken(emb.received(), 3, job);
  cups_job_t *jobs;
  int n = cupsGetJobs2(CUPS_HTTP_DEFAULT, &jobs, "emb", 0, CUPS_WHICHJOBS_ALL);
  std::vector<std::string> titles;
  for (int i = 0; i < n; i++) titles.push_back(jobs[i].title);
  cupsFreeJobs(n, jobs);
  std::sort(titles.begin(), titles.end());
  EXPECT_EQ(titles, (std::vector<std::string>{"house_plan.txt", "house_plan.txt", "tacto"}));
}

TEST_F(CupsTest, UnknownQueueAndMissingServerAreReported) {
  int id = -1;
  EXPECT_EQ(deliver_buffer(dest("cups:nosuch"), "x", 1, "t", &id), 0);
  EXPECT_EQ(id, 0);
  expect_one_error("printer [cups:nosuch] no such queue");
  EXPECT_EQ(deliver_buffer(dest("cups:"), "x", 1, "t", nullptr), 0);
  expect_one_error("printer [cups:] has no default queue");
  stop_server();
  EXPECT_EQ(deliver_buffer(dest("cups:emb"), "x", 1, "t", nullptr), 0);
  expect_one_error("printer [cups:emb] found no print server at " + server_);
}
