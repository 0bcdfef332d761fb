// geometry_test.cpp - the geometry commands of a real run: their test-mode
// echoes, both forms of `view`, and refusals on the error stream.
#include <gtest/gtest.h>

#include <string>

#include "support/run_tacto.h"

static const char *const PAGES =
    "b5\n"
    "  view\n"
    "landscape\n"
    "b4\n"
    "fmt 10 5\n"
    "view\n";

TEST(Geometry, TestModeEchoesAndViewLines) {
  RunResult r = run_program(PAGES, {"-r", "-t"});
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.out,
            "b5 //0 window -8.280 8.280 -11.480 11.480\n"
            "  view\n"
            "  grid(0 479 0 724)\n  frame(0 479 0 724)\n  window(-8.28 8.28 -11.48 11.48)\n"
            "b5 and portrait on ESA721\nV/H ratio: 1.0007\n"
            "landscape: now landscape\n"
            // b4 is refused on the ESA721: the window stays turned.
            "b4 //0 window -11.480 11.480 -8.280 8.280\n"
            "fmt 10 5\n"
            "view\n"
            "  grid(0 724 0 479)\n  frame(0 724 0 479)\n  window(1.00 11.00 0.00 5.30)\n"
            "b5 and landscape on ESA721\nV/H ratio: 1.3600\n");
  EXPECT_NE(r.err.find("line 4 \"b4\": invalid printer"), std::string::npos);
}

TEST(Geometry, PageNumbersTheNextPageOfTheDocument) {
  TactoDir dir;
  // Before a feed and after one: either way the next page carries the number.
  dir.write("p.txt", "postscript out.ps\nplot 0 0 0\npage 5\nff\nplot 0 0 0\nff\npage 9\nplot 1 1 0\n");
  RunResult r = dir.run({"-r", "p.txt"});
  EXPECT_EQ(r.status, 0);
  std::string ps = dir.read("out.ps");
  EXPECT_NE(ps.find("showpage\n%%Page: 5 5\n"), std::string::npos) << ps;
  EXPECT_NE(ps.find("showpage\n%%Page: 9 9\n"), std::string::npos) << ps;
  EXPECT_EQ(ps.find("%%Page: 6 6"), std::string::npos);
}
