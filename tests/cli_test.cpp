// cli_test.cpp - the command line, start-up and shutdown of the real program.
#include <gtest/gtest.h>

#include "support/run_tacto.h"

TEST(Cli, TestModeEchoesWithIndentation) {
  RunResult r = run_program("line 0 0 5 5 1\n  box 0 0 1 1 2\n", {"-r", "-t"});
  EXPECT_EQ(r.status, 0);
  EXPECT_NE(r.out.find("line 0.000 0.000 5.000 5.000 1.000\n"), std::string::npos);
  EXPECT_NE(r.out.find("  box 0.000 0.000 1.000 1.000 2.000\n"), std::string::npos);
  EXPECT_NE(r.err.find("\ntest 1: "), std::string::npos);
  EXPECT_NE(r.err.find("\n   quit job!  good bye\n"), std::string::npos);
}
