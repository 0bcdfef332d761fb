// terminal_test.cpp - the program on a pseudo-terminal, as a user (or a
// screen reader) meets it: the screens in Japanese, no embosser bytes on the
// screen, and start-up messages that stay in view.
#include <gtest/gtest.h>

#include <string>

#include "support/run_tacto.h"

// Whether the screen shows an ESA721 stream's plotter mode, pen moves or feeds.
static bool shows_embosser_bytes(const std::string &screen) {
  return screen.find("\x1b\x1b") != std::string::npos || screen.find_first_of("\x1d\f") != std::string::npos;
}

TEST(Terminal, JapaneseConsoleShowsNoEmbosserBytes) {
  TactoDir dir;
  const std::string line = "line 0 0 5 5 1\nff\n";
  std::string bytes = dir.run({"-r"}, "c" + line + "bye\nq").out;  // the same run, piped
  ASSERT_TRUE(shows_embosser_bytes(bytes));
  RunResult r = dir.run_on_terminal({"-r", "-j"}, {"LANG=ja_JP.UTF-8"},
                                    {{"q ? ", "c"}, {"console 1: ", line}, {"console 3: ", "bye\n"},
                                     {"q ? ", "q"}, {"(Y/N)", "y"}});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.err.find("Tacto メニュー"), std::string::npos) << r.err;
  EXPECT_NE(r.err.find("終了しますか (Y/N)[Yes] ? "), std::string::npos);
  EXPECT_FALSE(shows_embosser_bytes(r.err)) << r.err;
  EXPECT_NE(r.err.find("データ " + std::to_string(bytes.size()) + " バイト"), std::string::npos) << r.err;
}

TEST(Terminal, CommandLineRunsKeepTheScreen) {
  TactoDir dir;
  RunResult r = dir.run_on_terminal({"-r", "nosuch.txt"}, {}, {{"press any key ? ", "x"}, {"press any key ? ", "x"}});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("input file (nosuch.txt) can not open"), std::string::npos) << r.err;
  EXPECT_EQ(r.err.find("\x1b[2J"), std::string::npos);
  // A page made on a terminal is counted there, not shown.
  dir.write("p.txt", "line 0 0 5 5 1\nff\n");
  std::string bytes = dir.run({"-r", "p.txt"}).out;
  r = dir.run_on_terminal({"-r", "p.txt"}, {}, {});
  EXPECT_FALSE(shows_embosser_bytes(r.err)) << r.err;
  EXPECT_NE(r.err.find("\ntacto: the page made " + std::to_string(bytes.size()) +
                       " embosser bytes, not written to the terminal; to send them, redirect the output (> FILE), "
                       "use --output=FILE or the Print item\r\n"),
            std::string::npos)
      << r.err;
}
