// print_parts.cpp - loopback sockets, the listener and the CUPS scheduler.
#include "support/print_parts.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

static const char kCupsd[] = "/usr/sbin/cupsd";

int loopback(int port, bool bound) {
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

int free_port() {
  int fd = loopback(0, true), port = port_of(fd);
  close(fd);
  return port;
}

Listener::Listener(int copies, bool hang_up, bool accepting) : fd_(loopback(0, true)) {
  listen(fd_, accepting ? 8 : 0);
  if (accepting) thread_ = std::thread([=] { serve(copies, hang_up); });
}

Listener::~Listener() {
  received();
  close(fd_);
}

std::string Listener::url() const { return "socket://127.0.0.1:" + std::to_string(port_of(fd_)); }

int Listener::port() const { return port_of(fd_); }

std::vector<std::string> Listener::received() {
  if (thread_.joinable()) thread_.join();
  return received_;
}

void Listener::serve(int copies, bool hang_up) {
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

bool CupsServer::installed() { return access(kCupsd, X_OK) == 0; }

CupsServer::CupsServer() {
  if (!installed()) return;
  // The scheduler's backends run as another user: the tree must be open to it.
  char tmpl[] = "/tmp/tacto-cups-XXXXXX";
  root_ = mkdtemp(tmpl);
  chmod(root_.c_str(), 0755);
  for (const char *dir : {"/conf", "/spool", "/cache", "/state", "/log", "/tmp"}) mkdir((root_ + dir).c_str(), 0755);
  int port = free_port();
  server_ = "127.0.0.1:" + std::to_string(port);
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
    execl(kCupsd, "cupsd", "-f", "-c", (root_ + "/cupsd.conf").c_str(), "-s", (root_ + "/cups-files.conf").c_str(),
          static_cast<char *>(nullptr));
    _exit(127);
  }
  int fd = -1, status;
  for (int i = 0; i < 200 && fd < 0 && waitpid(pid_, &status, WNOHANG) == 0; i++)
    if ((fd = loopback(port, false)) < 0) usleep(50000);
  up_ = fd >= 0;
  if (up_) close(fd);
  setenv("CUPS_SERVER", server_.c_str(), 1);
}

CupsServer::~CupsServer() {
  stop();
  unsetenv("CUPS_SERVER");
  if (!root_.empty() && system(("rm -rf '" + root_ + "'").c_str()) != 0) fprintf(stderr, "left %s\n", root_.c_str());
}

void CupsServer::stop() {
  if (pid_ <= 0) return;
  kill(pid_, SIGTERM);
  int status, gone = 0;
  for (int i = 0; i < 100 && !(gone = waitpid(pid_, &status, WNOHANG) == pid_); i++) usleep(50000);
  if (!gone) {
    kill(pid_, SIGKILL);
    waitpid(pid_, &status, 0);
  }
  pid_ = -1;
  up_ = false;
}

int CupsServer::lpadmin(const std::string &args) const {
  return system(("lpadmin -h " + server_ + " " + args + " >>" + root_ + "/log/lpadmin.out 2>&1").c_str()) == 0;
}

std::string CupsServer::log() const {
  std::string all;
  for (const char *name : {"/log/cupsd.out", "/log/error_log", "/log/lpadmin.out"}) {
    std::ifstream in(root_ + name);
    std::stringstream ss;
    ss << in.rdbuf();
    all += ss.str();
  }
  return all;
}
