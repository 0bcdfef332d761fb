// test_env.cpp - unit-test support.
#include "support/test_env.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <unistd.h>

#include "core/process.h"
#include "core/run_state.h"
#include "devices/embosser.h"
#include "geometry/winstack.h"
#include "interp/help.h"
#include "interp/reader.h"
#include "platform/platform.h"
#include "shell/settings_file.h"

Capture::Capture() : file_(tmpfile()) {}

Capture::~Capture() {
  if (file_ != nullptr) fclose(file_);
}

std::string Capture::text() const {
  fflush(file_);
  long end = ftell(file_);
  std::string out(static_cast<size_t>(end), '\0');
  rewind(file_);
  size_t n = fread(&out[0], 1, out.size(), file_);
  out.resize(n);
  fseek(file_, 0, SEEK_END);
  return out;
}

std::string read_file(const std::string &path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

void TactoTest::SetUp() {
  char tmpl[] = "/tmp/tacto-unit-XXXXXX";
  dir_ = mkdtemp(tmpl);
  reset_all_state();
  reset_platform();
  platform_script_keys("");
  platform_fix_clock("Sun Sep 16 01:03:52 1973");
  sys_file.path = dir_ + "/tacto.sys";
  copy_text(help_state.path, HELP_PATH_SIZE, (dir_ + "/tacto.hlp").c_str());
  run_state.std_out = run_state.echo_out = run_state.saved_echo = echo_.file();
  embosser.out = device_.file();
  testing::internal::CaptureStderr();
  capturing_stderr_ = true;
}

void TactoTest::TearDown() {
  if (capturing_stderr_) testing::internal::GetCapturedStderr();
  reset_all_state();
  reset_platform();
  std::string cmd = "rm -rf '" + dir_ + "'";
  if (system(cmd.c_str()) != 0) ADD_FAILURE() << "could not remove " << dir_;
}

std::string TactoTest::errors() {
  std::string text = capturing_stderr_ ? testing::internal::GetCapturedStderr() : "";
  testing::internal::CaptureStderr();
  capturing_stderr_ = true;
  return text;
}

void TactoTest::run_program(const std::string &program) {
  std::string path = write_file("program.txt", program);
  FILE *in = fopen(path.c_str(), "r");
  ASSERT_NE(in, nullptr);
  copy_text(run_state.fname, NAME_SIZE, path.c_str());
  winstack_set_top(in, run_state.fname);
  interpret(in);
  fclose(in);
}

std::string TactoTest::temp_path(const std::string &name) const { return dir_ + "/" + name; }

std::string TactoTest::write_file(const std::string &name, const std::string &text) const {
  std::string path = temp_path(name);
  std::ofstream out(path, std::ios::binary);
  out << text;
  return path;
}
