// cli_test.cpp - the command line, start-up, the system file across runs,
// and shutdown, on the real program.
#include <gtest/gtest.h>

#include <cstring>

#include "support/run_tacto.h"

static int32_t i32_at(const std::string &b, size_t at) {
  uint32_t u = 0;
  for (int i = 0; i < 4; i++) u |= static_cast<uint32_t>(static_cast<uint8_t>(b[at + i])) << (8 * i);
  return static_cast<int32_t>(u);
}
enum : size_t { PRINTER_AT = 10 + 12, PAPER_AT = 10 + 28, LANGUAGE_AT = 10 + 8 };

TEST(Cli, TestModeEchoesWithIndentation) {
  RunResult r = run_program("version\n  version\n", {"-r", "-t"});
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.out, "Version //0 11.20\n  Version //0 11.20\n");
  EXPECT_NE(r.err.find("\ntest 1: "), std::string::npos);
  EXPECT_NE(r.err.find("\ntest 3: "), std::string::npos);
  EXPECT_NE(r.err.find("\n   quit job!  good bye\n"), std::string::npos);
}

TEST(Cli, OnlyTheSecondCharacterOfAnOptionCounts) {
  RunResult r = run_program("version\n", {"-r", "-TX", "/e"});
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.out, "Version //0 11.20\n");
}

TEST(Cli, RefusedOptionsAndUsage) {
  TactoDir dir;
  RunResult m = dir.run({"-m"});
  EXPECT_EQ(m.status, 1);
  EXPECT_EQ(m.err, "!!! illegal option: -m\nusage: tacto -e -j -t -d -r -h [< infile] [> outfile]\n");
  EXPECT_FALSE(dir.exists("tacto.sys"));  // nothing is saved
  RunResult h = dir.run({"-?"});
  EXPECT_EQ(h.status, 1);
  EXPECT_EQ(h.err.substr(0, 58), "\n\nusage: tacto -ej -76i -m -td -r -h [infile] [> outfile]\n");
  EXPECT_NE(h.err.find("\nh or ?: discription of command line options\n"), std::string::npos);
  EXPECT_EQ(h.err.substr(h.err.size() - 40), "\noutfile: output file or standard output");
}

TEST(Cli, TheProgramMustBeCalledTacto) {
  TactoDir dir;
  RunResult r = dir.run({"-r"}, "", "plotter");
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "!!! Usage: tacto -f -t -s -h infile > outfile (./plotter)\n");
  RunResult upper = dir.run({"-r", "nofile"}, "", "TACTO");
  EXPECT_EQ(upper.err.find("!!! Usage"), std::string::npos);
}

TEST(Cli, TheLastFileNameIsRead) {
  TactoDir dir;
  dir.write("a.txt", "calc 1\n");
  dir.write("b.txt", "version\n");
  RunResult r = dir.run({"-r", "-t", "a.txt", "b.txt"});
  EXPECT_EQ(r.out, "Version //0 11.20\n");
}

TEST(Cli, AMissingInputFileEndsTheRunWithStatusOne) {
  TactoDir dir;
  RunResult r = dir.run({"-r", "nope.txt"});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("error 1? nope.txt line 0 \"tacto\": input file (nope.txt) can not open"),
            std::string::npos);
  EXPECT_NE(r.err.find("   quit 1, press any key ? "), std::string::npos);
  EXPECT_NE(r.err.find("\n   quit job!  good bye\n"), std::string::npos);
  EXPECT_TRUE(dir.exists("tacto.sys"));
}

TEST(Cli, SettingsPersistAndOptionsYieldToTheFile) {
  TactoDir dir;
  dir.write("p.txt", "version\n");
  RunResult first = dir.run({"p.txt"});
  EXPECT_NE(first.err.find("!!! Dr. Orvane: I'll make your new system file (" + dir.file("tacto.sys") + ")\n"),
            std::string::npos);
  std::string b = dir.read("tacto.sys");
  ASSERT_EQ(b.size(), 1794u);
  EXPECT_EQ(i32_at(b, PRINTER_AT), 0);

  dir.run({"-r", "-i", "-j", "p.txt"});  // a reset start takes the option and saves it
  b = dir.read("tacto.sys");
  EXPECT_EQ(i32_at(b, PRINTER_AT), 2);
  EXPECT_EQ(i32_at(b, PAPER_AT), 6);
  EXPECT_EQ(i32_at(b, LANGUAGE_AT), 1);

  RunResult again = dir.run({"-7", "-e", "p.txt"});  // the file's printer wins; -e always wins
  EXPECT_EQ(again.err.find("I'll make"), std::string::npos);
  b = dir.read("tacto.sys");
  EXPECT_EQ(i32_at(b, PRINTER_AT), 2);
  EXPECT_EQ(i32_at(b, LANGUAGE_AT), 0);

  std::string outdated = b;
  memcpy(&outdated[0], "11.19", 5);
  dir.write("tacto.sys", outdated);
  RunResult old = dir.run({"p.txt"});
  EXPECT_NE(old.err.find("!!! tacto version is updateed to 11.20\n"), std::string::npos);
  b = dir.read("tacto.sys");
  EXPECT_EQ(b.substr(0, 5), "11.20");
  EXPECT_EQ(i32_at(b, PRINTER_AT), 0);  // defaults, rewritten
}

TEST(Cli, AMissingHelpFileIsAStartUpError) {
  TactoDir dir;
  dir.remove("tacto.hlp");
  dir.write("p.txt", "nonsense\n");
  RunResult r = dir.run({"-r", "p.txt"});
  EXPECT_NE(r.err.find("error 1? tacto line 0 \"tacto\": tacto.hlp' can not open"), std::string::npos);
  EXPECT_NE(r.err.find(" !!! system error !!! press any key ? "), std::string::npos);
  EXPECT_NE(r.err.find("error 2? p.txt line 1 \"nonsense\": unknown command"), std::string::npos);
}

TEST(Cli, AConsoleSessionCanBeScripted) {
  TactoDir dir;
  RunResult r = dir.run({"-r"}, "2version\nbye\n");
  EXPECT_EQ(r.status, 0);
  EXPECT_NE(r.err.find("      Tacto Menu"), std::string::npos);
  EXPECT_NE(r.err.find("\nconsole 1: "), std::string::npos);
  EXPECT_NE(r.err.find("version //0 11.20\n"), std::string::npos);
  EXPECT_NE(r.err.find("Quit job (Y/N)[Yes] ? "), std::string::npos);
  EXPECT_NE(r.err.find("\n   quit job!  good bye\n"), std::string::npos);
}

TEST(Cli, TestAndDebugFromTheMenu) {
  TactoDir dir;
  // bye ends the Test and Debug items; in the Console item a trace mode
  // entered by command is only left, and a second bye ends the item.
  RunResult r = dir.run({"-r"}, "3version\nbye\n4version\nbye\n2test\nversion\nbye\nversion\nbye\n");
  EXPECT_EQ(r.out, "Version //0 11.20\nVersion //0 11.20\ntest // mode 2 (return by 'bye').\nVersion //0 11.20\n");
  EXPECT_NE(r.err.find("\ntest 1: "), std::string::npos);
  EXPECT_NE(r.err.find("\ndebug 1: "), std::string::npos);
  EXPECT_NE(r.err.find("\nconsole 2: version //0 11.20\n"), std::string::npos);
  EXPECT_NE(r.err.find("\nconsole 3: "), std::string::npos);
  EXPECT_EQ(r.err.find("unknown command"), std::string::npos);
}

TEST(Cli, ATraceModeEnteredUnderALogListSurvivesItsClosing) {
  TactoDir dir;
  RunResult r = dir.run({"-r"}, "2log q.log\ndebug\nbye\ntest\nversion\nbye\nbye\n");
  EXPECT_EQ(r.status, 0);
  EXPECT_NE(r.out.find("test // mode 2 (return by 'bye').\nVersion //0 11.20\n"), std::string::npos);
  EXPECT_NE(dir.read("q.log").find("debug // mode 1 (return by 'bye').\n"), std::string::npos);
}

TEST(Cli, BinaryAndEndlessInputEndsNormally) {
  std::string junk;
  for (int i = 0; i < 20000; i++) junk += static_cast<char>((i * 7919) % 256);
  RunResult r = run_program(junk + "\n/*\n");
  EXPECT_EQ(r.status, 0);
  EXPECT_NE(r.err.find("\n   quit job!  good bye\n"), std::string::npos);
}
