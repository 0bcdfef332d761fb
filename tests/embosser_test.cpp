// embosser_test.cpp - whole programs through the real binary: the embosser
// stream of a normal run is decoded back to dots and pen moves and compared
// with the debug trace of the same program.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "support/run_tacto.h"

namespace {

// The paper's portrait grid ends, to turn device cells back into grid dots.
struct Grid {
  int x1, y1;
  bool portrait;
};

// Decodes an ESA721/ESA600G stream into one line per event: "Plot dx dy"
// and "Move dx dy" in grid dots (row = y1 - dy, col = dx in portrait; row =
// y1 - dx, col = x1 - dy in landscape), "size n", "enter", "leave", "feed".
std::string decode_esa(const std::string &s, const Grid &g, bool marks_only = false) {
  std::string out;
  auto b = [&](size_t i) { return i < s.size() ? static_cast<unsigned char>(s[i]) : 0; };
  auto cell = [&](size_t i, const char *what) {
    if (!(b(i) >= 32 && b(i) < 64 && b(i + 1) >= 96 && b(i + 1) < 128 && b(i + 2) >= 32 && b(i + 2) < 64 &&
          b(i + 3) >= 64 && b(i + 3) < 96))
      return std::string();
    int col = (b(i) - 32) * 32 + b(i + 1) - 96, row = (b(i + 2) - 32) * 32 + b(i + 3) - 64;
    int dx = g.portrait ? col : g.y1 - row, dy = g.portrait ? g.y1 - row : g.x1 - col;
    return std::string(what) + " " + std::to_string(dx) + " " + std::to_string(dy) + "\n";
  };
  for (size_t i = 0; i < s.size();) {
    std::string control, mark;
    if (b(i) == 27 && b(i + 1) == 27 && b(i + 2) == 'G') control = "enter\n", i += 3;
    else if (b(i) == 27 && b(i + 1) == 27 && b(i + 2) == 'D') control = "size " + s.substr(i + 3, 1) + "\n", i += 4;
    else if (b(i) == 29 && !(mark = cell(i + 1, "Move")).empty()) i += 5;
    else if (!(mark = cell(i, "Plot")).empty()) i += 4;
    else if (b(i) == 13) control = "leave\n", i++;
    else if (b(i) == 12) control = "feed\n", i += b(i + 1) == 10 ? 2 : 1;
    else control = "byte " + std::to_string(b(i++)) + "\n";
    out += mark + (marks_only ? "" : control);
  }
  return out;
}

// The dots and moves of a debug trace; stroke ends (kind 3) are traced but
// never embossed, so they are left out.
std::string traced(const std::string &trace) {
  std::string out;
  for (size_t at = 0; at < trace.size();) {
    size_t end = trace.find('\n', at);
    std::string line = trace.substr(at, end - at);
    at = end == std::string::npos ? trace.size() : end + 1;
    int dx, dy, kind;
    if (sscanf(line.c_str(), "   Plot %d %d %d", &dx, &dy, &kind) == 3 && kind != 3)
      out += "Plot " + std::to_string(dx) + " " + std::to_string(dy) + "\n";
    else if (sscanf(line.c_str(), "   Move %d %d", &dx, &dy) == 2)
      out += "Move " + std::to_string(dx) + " " + std::to_string(dy) + "\n";
  }
  return out;
}

const Grid ESA721{599, 790, true}, ESA721_LANDSCAPE{599, 790, false}, ESA600G{831, 1023, true};

// Runs a program normally and in debug mode; expects the decoded stream to
// hold the traced dots and moves and returns the decoded stream.
std::string decoded_as_traced(const std::string &program, const Grid &g, const std::vector<std::string> &opts) {
  std::vector<std::string> debug_opts = opts;
  debug_opts.push_back("-d");
  RunResult normal = run_program(program, opts), debug = run_program(program, debug_opts);
  EXPECT_EQ(decode_esa(normal.out, g, true), traced(debug.out)) << program;
  return decode_esa(normal.out, g);
}

}  // namespace

TEST(Embosser, Esa721StreamDecodesToTheDebugTrace) {
  std::string events = decoded_as_traced(
      "plot 0 0 0\nplot 10.35 -12.5 4\ndot 2\nmove -5 5\nplot -5 5 1\nplot -4.5 5 2\nplot -4 5 3\n"
      "  point 3 3 0\nplot 11 0 0\nff\nplot 0 -3 0\n",
      ESA721, {"-r"});
  EXPECT_EQ(events,
            "enter\nPlot 300 395\nPlot 599 1\nsize 2\nMove 155 553\nPlot 155 553\nPlot 169 553\n"
            "Plot 386 486\nPlot 386 492\nPlot 383 489\nPlot 389 489\nPlot 386 489\nleave\nfeed\nenter\nPlot 300 300\n");
  RunResult debug = run_program("plot 0 0 0\n", {"-r", "-d"});
  EXPECT_EQ(debug.out, "plot 300 395 0\n   Plot 300 395 0\n");  // prefixes go to standard error
  EXPECT_NE(debug.err.find("\ndebug 1: "), std::string::npos);
}

TEST(Embosser, TransformedDotsDecodeToTheTraceToo) {
  std::string events = decoded_as_traced(
      "rotate 1 1 1 30\nplot 3 1 0\nmove 1 4\nmirror 1 5\nplot 3 1 0\nrotate 0 0 0 0\nplot -8 -8 0\n"
      "mirror 0 0\nplot -8 -8 0\n",
      ESA721, {"-r"});
  EXPECT_EQ(count_of(events, "Plot "), 4);
  EXPECT_EQ(count_of(events, "leave\nenter\n"), 1);  // switching mirroring on leaves plotter mode
}

TEST(Embosser, LandscapeCellsRunAcrossThePortraitSheet) {
  std::string events =
      decoded_as_traced("landscape\nplot 0 0 0\nplot 12 -10 0\nmove -12 10\nplot -12 10 0\n", ESA721_LANDSCAPE, {"-r"});
  // Landscape (0, 0) is grid (395, 300): device row 790 - 395, column 599 - 300.
  EXPECT_EQ(events.substr(0, 19), "enter\nPlot 395 300\n");
}

TEST(Embosser, Esa600gSizeCodesAndFeed) {
  std::string events = decoded_as_traced("plot 0 0 0\ndot 0\nplot 1 1 0\nmirror 1 0\ndot 0\nplot 2 2 0\nff\n",
                                         ESA600G, {"-r", "-6"});
  EXPECT_EQ(events, "enter\nPlot 408 533\nsize 3\nPlot 447 572\nsize 6\nPlot 486 611\nleave\nfeed\n");
  EXPECT_EQ(run_program("ff\n", {"-r", "-6"}).out, "\f\n");
}

TEST(Embosser, EverestLinesDecodeToTheTrace) {
  const char *program = "plot 0 0 0\nplot 9.5 -13.85 0\ndot 7\nplot -3 4 1\nformfeed 1\nplot -9 13 0\n";
  RunResult normal = run_program(program, {"-r", "-i"}), debug = run_program(program, {"-r", "-i", "-d"});
  const std::string setup = "\x1b" "DBT0,TD0,DP1,LS27,TM1,BI2,CH32,LP27;\n\x1b" "FOR0.00:0.00,WX190.00,HY277.00;\n";
  EXPECT_EQ(count_of(normal.out, setup), 2);  // each page starts with the set-up
  EXPECT_EQ(count_of(normal.out, ";\f\n"), 1);
  // Dot lines are mm from the right edge and up: dx = 380 - x / 0.5, dy = y / 0.5.
  std::string dots;
  double x, y;
  for (size_t at = normal.out.find('\n'); at != std::string::npos; at = normal.out.find('\n', at + 1))
    if (sscanf(normal.out.c_str() + at + 1, "%lf:%lf\n", &x, &y) == 2)
      dots += "Plot " + std::to_string(380 - static_cast<int>(x / 0.5 + 0.5)) + " " +
              std::to_string(static_cast<int>(y / 0.5 + 0.5)) + "\n";
  EXPECT_EQ(dots, traced(debug.out));
  EXPECT_NE(normal.out.find("\n0.00:0.00\n"), std::string::npos);  // the window's right bottom corner
  EXPECT_EQ(normal.err.find("error"), std::string::npos);          // dot 7 is accepted silently
}

TEST(Embosser, PastedProgramsEmbossInTheCallersWindow) {
  TactoDir dir;
  dir.write("part.txt", "plot 0 0 0\nrotate 1 0 0 90\nplot 1 0 0\nwindow -1 1 -1 1\nplot 0.5 0.5 0\n");
  dir.write("main.txt", "paste part.txt 2 3 0.5 0.5\nplot 2 3 0\nplot 1 0 0\n");
  std::string dots = decode_esa(dir.run({"-r", "main.txt"}).out, ESA721, true);
  EXPECT_EQ(dots, traced(dir.run({"-r", "-d", "main.txt"}).out));
  // The part's origin is the caller's (2, 3); the caller keeps no rotation.
  EXPECT_EQ(dots, "Plot 357 490\nPlot 357 505\nPlot 150 593\nPlot 357 490\nPlot 328 395\n");
}

TEST(Embosser, RefusalsSwitchesAndFeeds) {
  RunResult r = run_program("dot 3\nformfeed 100\nformfeed -1\nprinter\nplot 0 0 0\nplotter\non_off 0\n"
                            "plot 0 0 0\non_off 1\nplot 0 1 0\n",
                            {"-r"});
  EXPECT_NE(r.err.find("illegal dot size 3 (printer 0)"), std::string::npos);
  EXPECT_NE(r.err.find("illegal formfeed 100 (0-99)"), std::string::npos);
  EXPECT_NE(r.err.find("illegal formfeed -1 (0-99)"), std::string::npos);
  // Printer mode without a page map draws nothing; on_off 0 holds the stream
  // back (the plotter mode entry included).
  EXPECT_EQ(decode_esa(r.out, ESA721), "Plot 300 427\n");
  EXPECT_EQ(run_program("ff\nformfeed 0\nff\nff\nformfeed 3\nff\n", {"-r"}).out, "\f\f\f\f\f");
  EXPECT_EQ(run_program("plot 0 0 0\nff\nformfeed 2\n", {"-r", "-t"}).out,
            "plot 0.000 0.000 0\n   plot 0.000 0.000 0\nff\nformfeed 2\n");
}

// A value typed on the window's edge lies on it: the window is single precision.
TEST(Embosser, PointsTypedOnTheWindowEdgeAreDrawn) {
  RunResult r = run_program("plot 0 12.53 0\nmove 0 12.53\nplot -10.35 -12.53 0\n", {"-r", "-d"});
  EXPECT_NE(r.out.find("   Plot 300 790 0\n"), std::string::npos);
  EXPECT_NE(r.out.find("   Move 300 790\n"), std::string::npos);
  EXPECT_NE(r.out.find("   Plot 0 0 0\n"), std::string::npos);
}
