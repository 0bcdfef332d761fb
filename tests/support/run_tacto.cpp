// run_tacto.cpp - running the built program for end-to-end tests.
#include "support/run_tacto.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

static void copy_file(const std::string &from, const std::string &to, mode_t mode) {
  std::ifstream in(from, std::ios::binary);
  std::ofstream out(to, std::ios::binary);
  out << in.rdbuf();
  out.close();
  chmod(to.c_str(), mode);
}

TactoDir::TactoDir() {
  char tmpl[] = "/tmp/tacto-e2e-XXXXXX";
  dir_ = mkdtemp(tmpl);
  copy_file(TACTO_BINARY, dir_ + "/tacto", 0755);
  copy_file(TACTO_HELP, dir_ + "/tacto.hlp", 0644);
}

TactoDir::~TactoDir() {
  std::string cmd = "rm -rf '" + dir_ + "'";
  if (system(cmd.c_str()) != 0) fprintf(stderr, "could not remove %s\n", dir_.c_str());
}

void TactoDir::write(const std::string &name, const std::string &text) const {
  std::ofstream out(file(name), std::ios::binary);
  out << text;
}

std::string TactoDir::read(const std::string &name) const {
  std::ifstream in(file(name), std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

bool TactoDir::exists(const std::string &name) const {
  struct stat st;
  return stat(file(name).c_str(), &st) == 0;
}

void TactoDir::remove(const std::string &name) const { unlink(file(name).c_str()); }

// In the child: runs ./program with its arguments in dir; never returns.
[[noreturn]] static void exec_tacto(const std::string &dir, const std::string &program,
                                    const std::vector<std::string> &args) {
  if (chdir(dir.c_str()) != 0) _exit(126);
  std::vector<char *> argv;
  std::string self = "./" + program;
  argv.push_back(const_cast<char *>(self.c_str()));
  for (const std::string &a : args) argv.push_back(const_cast<char *>(a.c_str()));
  argv.push_back(nullptr);
  execv(self.c_str(), argv.data());
  _exit(127);
}

RunResult TactoDir::run(const std::vector<std::string> &args, const std::string &input,
                        const std::string &program) const {
  if (program != "tacto" && !exists(program)) copy_file(TACTO_BINARY, file(program), 0755);
  int in_pipe[2], out_pipe[2], err_pipe[2];
  if (pipe(in_pipe) != 0 || pipe(out_pipe) != 0 || pipe(err_pipe) != 0) return {-1, "", "pipe failed"};
  pid_t pid = fork();
  if (pid == 0) {
    dup2(in_pipe[0], 0);
    dup2(out_pipe[1], 1);
    dup2(err_pipe[1], 2);
    for (int fd : {in_pipe[0], in_pipe[1], out_pipe[0], out_pipe[1], err_pipe[0], err_pipe[1]}) close(fd);
    exec_tacto(dir_, program, args);
  }
  close(in_pipe[0]);
  close(out_pipe[1]);
  close(err_pipe[1]);
  // Feed the input and drain both outputs together so that nothing blocks.
  size_t written = 0;
  fcntl(in_pipe[1], F_SETFL, O_NONBLOCK);
  RunResult result{0, "", ""};
  bool in_open = true, out_open = true, err_open = true;
  if (input.empty()) {
    close(in_pipe[1]);
    in_open = false;
  }
  while (out_open || err_open) {
    struct pollfd fds[3];
    int n = 0;
    if (out_open) fds[n++] = {out_pipe[0], POLLIN, 0};
    if (err_open) fds[n++] = {err_pipe[0], POLLIN, 0};
    if (in_open) fds[n++] = {in_pipe[1], POLLOUT, 0};
    if (poll(fds, n, 20000) <= 0) break;  // a hang fails the test, it does not stop the suite
    for (int i = 0; i < n; i++) {
      if (fds[i].revents == 0) continue;
      if (in_open && fds[i].fd == in_pipe[1]) {
        ssize_t w = ::write(in_pipe[1], input.data() + written, input.size() - written);
        if (w > 0) written += static_cast<size_t>(w);
        if (w < 0 || written == input.size()) {
          close(in_pipe[1]);
          in_open = false;
        }
        continue;
      }
      char buf[65536];
      ssize_t r = ::read(fds[i].fd, buf, sizeof buf);
      bool is_out = fds[i].fd == out_pipe[0];
      if (r <= 0) {
        close(fds[i].fd);
        (is_out ? out_open : err_open) = false;
      } else {
        (is_out ? result.out : result.err).append(buf, static_cast<size_t>(r));
      }
    }
  }
  if (in_open) close(in_pipe[1]);
  if (out_open) close(out_pipe[0]);
  if (err_open) close(err_pipe[0]);
  int status = 0;
  if (out_open || err_open) kill(pid, SIGKILL);
  waitpid(pid, &status, 0);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return result;
}

RunResult TactoDir::run_on_terminal(const std::vector<std::string> &args, const std::vector<std::string> &env,
                                    const std::vector<Exchange> &dialogue) const {
  int master = -1;
  pid_t pid = forkpty(&master, nullptr, nullptr, nullptr);
  if (pid < 0) return {-1, "", "forkpty failed"};
  if (pid == 0) {
    for (const char *name : {"LC_ALL", "LC_CTYPE", "LANG"}) unsetenv(name);
    for (const std::string &e : env) putenv(const_cast<char *>(e.c_str()));
    exec_tacto(dir_, "tacto", args);
  }
  RunResult result{-1, "", ""};
  bool silent = false;
  // Reads what the terminal shows next; false at its end or after 20 s of silence.
  auto read_more = [&]() {
    struct pollfd p = {master, POLLIN, 0};
    char buf[4096];
    silent = poll(&p, 1, 20000) <= 0;
    ssize_t n = silent ? -1 : ::read(master, buf, sizeof buf);
    if (n > 0) result.err.append(buf, static_cast<size_t>(n));
    return n > 0;
  };
  size_t from = 0;
  for (const Exchange &x : dialogue) {
    size_t at;
    while ((at = result.err.find(x.wait_for, from)) == std::string::npos && read_more()) {
    }
    if (at == std::string::npos) break;
    from = at + x.wait_for.size();
    if (::write(master, x.type.data(), x.type.size()) < 0) break;
  }
  while (read_more()) {
  }
  close(master);
  int status = 0;
  if (silent) kill(pid, SIGKILL);  // a hang fails the test
  waitpid(pid, &status, 0);
  if (WIFEXITED(status)) result.status = WEXITSTATUS(status);
  return result;
}

RunResult run_program(const std::string &program, const std::vector<std::string> &options) {
  TactoDir dir;
  dir.write("prog.txt", program);
  std::vector<std::string> args = options;
  args.push_back("prog.txt");
  return dir.run(args);
}
