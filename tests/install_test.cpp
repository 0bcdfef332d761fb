// install_test.cpp - the installed tree: `cmake --install` into a fresh
// prefix puts the program, its help file, the man page and the examples in
// their places, and the man page describes every option the program has.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

static std::string slurp(const std::string &path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

// Everything a command writes on standard output and standard error.
static std::string output_of(const std::string &command) {
  FILE *p = popen((command + " 2>&1 </dev/null").c_str(), "r");
  if (p == nullptr) return "";
  std::string out;
  char buf[512];
  for (size_t n; (n = fread(buf, 1, sizeof buf, p)) > 0;) out.append(buf, n);
  pclose(p);
  return out;
}

class Install : public ::testing::Test {
 protected:
  void SetUp() override {
    char tmpl[] = "/tmp/tacto-install-XXXXXX";
    prefix_ = mkdtemp(tmpl);
    std::string cmd = std::string(TACTO_CMAKE) + " --install '" TACTO_BUILD_DIR "' --prefix '" + prefix_ + "' >/dev/null";
    ASSERT_EQ(system(cmd.c_str()), 0) << cmd;
  }
  void TearDown() override {
    if (system(("rm -rf '" + prefix_ + "'").c_str()) != 0) ADD_FAILURE() << "could not remove " << prefix_;
  }
  std::string prefix_;
};

TEST_F(Install, PutsTheProgramHelpManPageAndExamplesInPlace) {
  std::string bin = prefix_ + "/bin/tacto";
  EXPECT_EQ(access(bin.c_str(), X_OK), 0);
  EXPECT_EQ(slurp(prefix_ + "/share/tacto/tacto.hlp"), slurp(TACTO_HELP));
  EXPECT_EQ(slurp(prefix_ + "/share/man/man1/tacto.1"), slurp(TACTO_SOURCE_DIR "/doc/tacto.1"));
  for (const char *example : {"house_plan.txt", "axes_and_shapes.txt", "function_plot.txt", "braille_labels.txt"}) {
    std::string installed = slurp(prefix_ + "/share/doc/tacto/examples/" + example);
    EXPECT_FALSE(installed.empty()) << example;
    EXPECT_EQ(installed, slurp(std::string(TACTO_SOURCE_DIR) + "/examples/" + example)) << example;
  }
  // It is the program: it answers with its usage text.
  EXPECT_NE(output_of("'" + bin + "' -h").find("\nusage: tacto "), std::string::npos);
}

// Every option the usage text lists has its entry in the man page (-m
// among them, described as refused).
TEST(ManPage, DescribesEveryOptionOfTheUsageText) {
  std::string usage = output_of("'" TACTO_BINARY "' -h");
  std::string page = slurp(TACTO_SOURCE_DIR "/doc/tacto.1");
  std::smatch m;
  ASSERT_TRUE(std::regex_search(usage, m, std::regex("usage: tacto ([-a-z0-9 ]+) \\[infile\\]")));
  int checked = 0;
  for (char c : m[1].str()) {
    if (c == '-' || c == ' ') continue;
    std::regex entry(std::string("\n\\.BR? \\\\-") + c + "[ \n]");
    EXPECT_TRUE(std::regex_search(page, entry)) << "-" << c;
    checked++;
  }
  EXPECT_EQ(checked, 10);  // e j 7 6 i m t d r h
}
