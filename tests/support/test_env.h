// test_env.h - unit-test support: a fixture that restores every record to
// its start-up defaults, scripts the keys, and captures what a piece of the
// program writes.
#ifndef TACTO_TESTS_SUPPORT_TEST_ENV_H
#define TACTO_TESTS_SUPPORT_TEST_ENV_H

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "support/count.h"

// A temporary file that collects output and reads it back.
class Capture {
 public:
  Capture();
  ~Capture();
  FILE *file() const { return file_; }
  std::string text() const;  // everything written so far
 private:
  FILE *file_;
};

// Every test starts from the start-up defaults, with no keys waiting, the
// clock fixed at "Sun Sep 16 01:03:52 1973", and echo, embosser and the
// error stream captured.
class TactoTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // What went to the echo stream, the embosser and the error stream.
  std::string echoed() const { return echo_.text(); }
  std::string emitted() const { return device_.text(); }
  std::string errors();

  // Runs a program text through the interpreter (echo and embosser captured).
  void run_program(const std::string &program);

  // A path inside this test's own temporary directory.
  std::string temp_path(const std::string &name) const;

  // Writes a file into the temporary directory; returns its path.
  std::string write_file(const std::string &name, const std::string &text) const;

  Capture echo_, device_;
  std::string dir_;
  bool capturing_stderr_ = false;
};

// Reads a whole file; "" when it cannot.
std::string read_file(const std::string &path);

#endif
