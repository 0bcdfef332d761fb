// paths.cpp - the program's own files and the user's directories. A copy
// that can write beside itself (the build tree, a portable copy) keeps its
// settings there; an installed one uses the user's directories.
#include "platform/paths.h"

#include <cerrno>
#include <cstdlib>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "platform/platform.h"

// Where an installed program finds its data, from its own directory.
static const char *const SHARE_DIR = "../share/tacto/";
static const char *const INSTALLED_NAME = "tacto";

std::string program_dir() {
  std::string exe = program_path();
  return exe.empty() ? "" : path_dir(exe);
}

static int readable(const std::string &path) {
  struct stat st;
  return stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode) && access(path.c_str(), R_OK) == 0;
}

static int writable_dir(const std::string &dir) {
  struct stat st;
  return stat(dir.c_str(), &st) == 0 && S_ISDIR(st.st_mode) && access(dir.c_str(), W_OK | X_OK) == 0;
}

// A variable's value without trailing slashes ("/" stays), or "" when it is unset.
static std::string env(const char *name) {
  const char *v = getenv(name);
  std::string value = v != nullptr ? v : "";
  while (value.size() > 1 && value.back() == '/') value.pop_back();
  return value;
}

// dir and name joined by one slash.
static std::string join(const std::string &dir, const std::string &name) {
  return !dir.empty() && dir.back() == '/' ? dir + name : dir + "/" + name;
}

// The path with its links and ".." resolved, when it exists.
static std::string resolved(const std::string &path) {
  char *real = realpath(path.c_str(), nullptr);
  if (real == nullptr) return path;
  std::string out = real;
  free(real);
  return out;
}

std::string help_file_path(const std::string &dir, const std::string &name) {
  std::string beside = dir + name + ".hlp";
  if (readable(beside)) return beside;
  std::string shared = dir + SHARE_DIR + INSTALLED_NAME + ".hlp";
  return readable(shared) ? resolved(shared) : beside;
}

std::string config_home() {
  std::string xdg = env("XDG_CONFIG_HOME");
  if (!xdg.empty() && xdg[0] == '/') return xdg;
  std::string home = env("HOME");
  if (home.empty()) {
    const struct passwd *pw = getpwuid(getuid());
    if (pw != nullptr && pw->pw_dir != nullptr) home = pw->pw_dir;
  }
  if (home.empty()) return "";
  return join(home, ".config");
}

std::string settings_file_path(const std::string &dir, const std::string &name) {
  std::string beside = dir + name + ".sys";
  if (writable_dir(dir.empty() ? "." : dir)) return beside;
  std::string config = config_home();
  if (config.empty()) return beside;
  return join(join(config, INSTALLED_NAME), std::string(INSTALLED_NAME) + ".sys");
}

int make_parent_dirs(const std::string &file) {
  size_t last = file.rfind('/');
  if (last == std::string::npos) return 1;  // the current directory
  std::string dir = file.substr(0, last);
  for (size_t at = dir.find('/', 1); ; at = dir.find('/', at + 1)) {
    std::string part = dir.substr(0, at);
    if (!part.empty() && mkdir(part.c_str(), 0700) != 0 && errno != EEXIST) return 0;
    if (at == std::string::npos) break;
  }
  struct stat st;
  return dir.empty() || (stat(dir.c_str(), &st) == 0 && S_ISDIR(st.st_mode));
}

std::string temp_dir() {
  std::string runtime = env("XDG_RUNTIME_DIR");
  if (!runtime.empty() && runtime[0] == '/' && writable_dir(runtime)) return join(runtime, "");
  std::string tmp = env("TMPDIR");
  if (!tmp.empty() && writable_dir(tmp)) return join(tmp, "");
  return "/tmp/";
}

std::string make_temp_file(const std::string &prefix) {
  std::string name = temp_dir() + prefix + "-XXXXXX";
  std::vector<char> buf(name.begin(), name.end());
  buf.push_back('\0');
  int fd = mkstemp(buf.data());
  if (fd < 0) return "";
  close(fd);
  return buf.data();
}
