// paths_test.cpp - where the help file, the settings file and temporary
// files are found, for a program in the build tree, a portable copy and an
// installed tree, with the user's environment set by each test.
#include "platform/paths.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/platform.h"
#include "support/test_env.h"

// Sets (or with null unsets) an environment variable for one scope.
struct ScopedEnv {
  const char *name;
  const char *old;
  std::string saved;
  ScopedEnv(const char *n, const char *value) : name(n), old(getenv(n)), saved(old ? old : "") {
    if (value != nullptr) setenv(name, value, 1);
    else unsetenv(name);
  }
  ~ScopedEnv() {
    if (old != nullptr) setenv(name, saved.c_str(), 1);
    else unsetenv(name);
  }
};

class PathsTest : public TactoTest {
 protected:
  // A directory inside the test's own, with its parents; its path ends in '/'.
  std::string dir(const std::string &name) {
    EXPECT_EQ(make_parent_dirs(temp_path(name + "/x")), 1) << name;
    return temp_path(name + "/");
  }
};

static mode_t mode_of(const std::string &path) {
  struct stat st;
  return stat(path.c_str(), &st) == 0 ? st.st_mode : 0;
}

TEST_F(PathsTest, HelpFileBesideTheProgramOrInTheInstalledShare) {
  platform.exe_override = temp_path("prefix/bin/tacto");
  std::string bin = dir("prefix/bin");
  EXPECT_EQ(program_dir(), bin);
  EXPECT_EQ(help_file_path(bin, "tacto"), bin + "tacto.hlp");  // neither: the one beside is named
  dir("prefix/share/tacto/tacto.hlp");                         // not a file: passed over
  EXPECT_EQ(help_file_path(bin, "tacto"), bin + "tacto.hlp");
  rmdir(temp_path("prefix/share/tacto/tacto.hlp").c_str());
  write_file("prefix/share/tacto/tacto.hlp", "help");
  std::string installed = temp_path("prefix/share/tacto/tacto.hlp");  // without the bin/..
  EXPECT_EQ(help_file_path(bin, "tacto"), installed);
  EXPECT_EQ(help_file_path(bin, "TACTO"), installed);  // the installed name, whatever ours
  write_file("prefix/bin/tacto.hlp", "help");
  EXPECT_EQ(help_file_path(bin, "tacto"), bin + "tacto.hlp");
}

// The settings path a program in `bin` would use, worked out by a child
// running as an ordinary user (as root, anything is writable): nobody.
static std::string settings_path_as_user(const std::string &bin) {
  int fds[2];
  if (pipe(fds) != 0) return "pipe failed";
  pid_t pid = fork();
  if (pid == 0) {
    if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(2);
    std::string path = settings_file_path(bin, "tacto");
    _exit(write(fds[1], path.data(), path.size()) == static_cast<ssize_t>(path.size()) ? 0 : 1);
  }
  close(fds[1]);
  std::string out;
  char buf[256];
  for (ssize_t n; (n = read(fds[0], buf, sizeof buf)) > 0;) out.append(buf, static_cast<size_t>(n));
  close(fds[0]);
  int status = 0;
  waitpid(pid, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? out : "child failed";
}

TEST_F(PathsTest, SettingsBesideAWritableProgramElseInTheConfigDirectory) {
  ScopedEnv xdg("XDG_CONFIG_HOME", "/home/reader/.cfg/");
  std::string bin = dir("prefix/bin");
  EXPECT_EQ(settings_file_path(bin, "Tacto"), bin + "Tacto.sys");  // beside: named after the program
  for (const char *d : {"", "prefix"}) ASSERT_EQ(chmod(temp_path(d).c_str(), 0755), 0);
  ASSERT_EQ(chmod(bin.c_str(), 0555), 0);  // read-only, but reachable by an ordinary user
  EXPECT_EQ(settings_path_as_user(bin), "/home/reader/.cfg/tacto/tacto.sys");
  EXPECT_EQ(settings_path_as_user(temp_path("missing/")), "/home/reader/.cfg/tacto/tacto.sys");
}

TEST_F(PathsTest, ConfigDirectoryDefaultsToDotConfigInTheHomeDirectory) {
  ScopedEnv home("HOME", "/home/reader");
  {
    ScopedEnv xdg("XDG_CONFIG_HOME", nullptr);
    EXPECT_EQ(config_home(), "/home/reader/.config");
  }
  ScopedEnv xdg("XDG_CONFIG_HOME", "relative/cfg");  // not absolute: passed over
  EXPECT_EQ(config_home(), "/home/reader/.config");
  ScopedEnv no_home("HOME", nullptr);  // the password entry's home
  std::string cfg = config_home();
  ASSERT_GT(cfg.size(), 9u);
  EXPECT_EQ(cfg.substr(cfg.size() - 8), "/.config");
}

TEST_F(PathsTest, SettingsDirectoryIsMadePrivateWhenSaving) {
  std::string file = temp_path("cfg/tacto/tacto.sys");
  EXPECT_EQ(make_parent_dirs(file), 1);
  EXPECT_EQ(mode_of(temp_path("cfg/tacto")), S_IFDIR | 0700u);
  EXPECT_EQ(make_parent_dirs(file), 1);         // there already
  EXPECT_EQ(make_parent_dirs("tacto.sys"), 1);  // the current directory
  write_file("plain", "");
  EXPECT_EQ(make_parent_dirs(temp_path("plain/tacto/tacto.sys")), 0);  // a file in the way
}

TEST_F(PathsTest, TemporaryFilesAreNewAndPrivateInTheRuntimeOrTemporaryDirectory) {
  std::string runtime = dir("run"), tmp = dir("tmp");
  {
    ScopedEnv r("XDG_RUNTIME_DIR", nullptr), t("TMPDIR", nullptr);
    EXPECT_EQ(temp_dir(), "/tmp/");
  }
  ScopedEnv t("TMPDIR", tmp.c_str());
  {
    ScopedEnv r("XDG_RUNTIME_DIR", temp_path("gone").c_str());  // not there: passed over
    EXPECT_EQ(temp_dir(), tmp);
  }
  ScopedEnv r("XDG_RUNTIME_DIR", runtime.c_str());
  EXPECT_EQ(temp_dir(), runtime);
  platform.exe_override = temp_path("bin/tacto");
  std::string a = make_temp_file("tacto-print"), b = make_temp_file("tacto-print");
  EXPECT_NE(a, b);
  EXPECT_EQ(a.compare(0, runtime.size() + 12, runtime + "tacto-print-"), 0) << a;
  EXPECT_EQ(mode_of(a), S_IFREG | 0600u);
  EXPECT_EQ(read_file(a), "");
  EXPECT_EQ(mode_of(temp_path("bin")), 0u);  // nothing beside the program
}
