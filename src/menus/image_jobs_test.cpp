// image_jobs_test.cpp - the console readers of the menu screens and the two
// image jobs run through their prompts.
#include "menus/image_jobs.h"

#include <fstream>
#include <vector>

#include "core/run_state.h"
#include "devices/bitmap.h"
#include "devices/postscript.h"
#include "menus/console_io.h"
#include "platform/platform.h"
#include "support/test_env.h"

class ImageJobsTest : public TactoTest {
 protected:
  void TearDown() override {
    if (console_io.in != nullptr) fclose(console_io.in);
    TactoTest::TearDown();
  }
  // Lines the screens will read, as if typed.
  void type(const std::string &lines) {
    if (console_io.in != nullptr) fclose(console_io.in);
    console_io.in = fopen(write_file("typed.txt", lines).c_str(), "r");
  }
  // Makes a program the remembered default.
  std::string program(const std::string &text) {
    std::string path = write_file("prog.txt", text);
    copy_text(run_state.program_file, PROGRAM_FILE_SIZE, path.c_str());
    return path;
  }
};

TEST_F(ImageJobsTest, ReadersKeepGoBackOrTake) {
  type("\n  \n.5\n 7 \n3x\n\x1b\n123456\n");
  const int numbers[] = {KEEP_DEFAULT, KEEP_DEFAULT, BACK_TO_MENU, 7, -1, BACK_TO_MENU, 12, KEEP_DEFAULT};
  for (int expected : numbers) EXPECT_EQ(read_number(2), expected);  // of 123456 two characters count
  EXPECT_EQ(console_io.at_end, 1);  // the end of input kept the default
  platform_script_keys("\r\x1b" "5q");
  const int keys[] = {KEEP_DEFAULT, BACK_TO_MENU, 5, -1};
  for (int expected : keys) EXPECT_EQ(read_number(1), expected);

  type("  name.txt  \n\n.\n" + std::string(100, 'a') + "\n");
  char buf[TEXT_SIZE + 1] = "";
  EXPECT_EQ(read_text(buf, sizeof buf), 1);
  EXPECT_STREQ(buf, "name.txt");
  EXPECT_EQ(read_text(buf, sizeof buf), 0);
  EXPECT_STREQ(buf, "name.txt");  // untouched: the caller keeps its default
  EXPECT_EQ(read_text(buf, sizeof buf), -1);
  EXPECT_EQ(read_text(buf, sizeof buf), 1);
  EXPECT_EQ(std::string(buf), std::string(72, 'a'));

  char out[200];
  merge_name("graph", "dir/tacto.txt", out, sizeof out);
  EXPECT_STREQ(out, "dir/graph.txt");
  merge_name("sub/", "tacto.txt", out, sizeof out);
  EXPECT_STREQ(out, "sub/tacto.txt");
  merge_name("/tmp/x.dat", "dir/tacto.txt", out, sizeof out);
  EXPECT_STREQ(out, "/tmp/x.dat");
}

TEST_F(ImageJobsTest, EnterEverywhereMakesADotPrint) {
  std::string prog = program("plot 0 0 0\n");
  type("");
  EXPECT_EQ(postscript_job(), 1);
  std::string err = errors();
  std::string ps_name = temp_path("prog.ps");
  for (const std::string &shown : std::vector<std::string>{
           "\n\nGenerate a PostScript file\n(Keyin Period and Enter if return to Tacto menu.)\n",
        "\nTacto file [" + prog + "] = ", "\npostscript file [" + ps_name + "] = ",
        std::string("\n(0: dot print, 1: ink print)\nmode [dot print] = "),
        std::string("\n(0: plotter mode, 1: printer mode)\nmode [plotter mode] = "),
           "\nPostScript file [" + ps_name + "] was generated\n"})
    EXPECT_NE(err.find(shown), std::string::npos) << shown;
  std::string doc = read_file(ps_name);
  EXPECT_NE(doc.find("%%Title: Tactile graphics\n"), std::string::npos);
  EXPECT_NE(doc.find("gsave\nnewpath\n\n1 setlinewidth\n297 420 1 0 360 arc fill stroke\n\ngrestore\n"),
            std::string::npos);
  EXPECT_EQ(ps.active, 0);
}

TEST_F(ImageJobsTest, PrinterModeSendsTheLastPageAndCountsItsFeed) {
  program("dot 1\nplot 0 0 0\nff\nplot 1 1 0\nbogus\n");
  // A base name completed from the default, a refused answer asked again, printer mode.
  type("prog\nout\n7\n0\n1\n");
  postscript_job();
  EXPECT_EQ(run_state.error_count, 0);  // the unknown command was counted, then cleared
  std::string doc = read_file(temp_path("out.ps"));
  // The cell of (1, 1) is row 363, column 328: 586 x 328 / 599 + 4.5 and 710 x 427 / 790 + 65.5.
  EXPECT_NE(doc.find("1 setlinewidth\n297 420 2 0 360 arc fill stroke\nshowpage\n%%Page: 2 2\n"
                     "325 449 2 0 360 arc fill stroke\n\ngrestore\n"),
            std::string::npos);
  EXPECT_NE(doc.find("%%Pages: 2\n"), std::string::npos);
}

TEST_F(ImageJobsTest, InkPrintIsRememberedAndAPeriodGoesBack) {
  program("alphanumeric 0 0 ink\n");
  type("\n\n1\n");
  postscript_job();
  EXPECT_EQ(errors().find("plotter mode"), std::string::npos);  // no mode for ink print
  EXPECT_NE(read_file(temp_path("prog.ps")).find("(ink) show stroke\n"), std::string::npos);
  remove(temp_path("prog.ps").c_str());
  for (const char *typed : {".\n", "\n.\n", "\n\n.\n"}) {
    type(typed);
    EXPECT_EQ(postscript_job(), 1);
    EXPECT_FALSE(std::ifstream(temp_path("prog.ps")).good()) << typed;
  }
  EXPECT_NE(errors().find("mode [ink print] = "), std::string::npos);
}

TEST_F(ImageJobsTest, BitmapJobNamesItsFiles) {
  copy_text(run_state.program_file, PROGRAM_FILE_SIZE, temp_path("none.txt").c_str());
  type("\n");
  EXPECT_EQ(bitmap_job(), 1);
  std::string err = errors();
  EXPECT_NE(err.find("\n\nGenerate a Bitmap file\n"), std::string::npos);
  EXPECT_NE(err.find(": Tacto [" + temp_path("none.txt") + "] was not open\n   press any key ? "),
            std::string::npos);
  write_file("pic.txt", "plot 0 0 0\n");
  type("pic\n.\n");
  bitmap_job();
  EXPECT_NE(errors().find("\nbitmap file [" + temp_path("pic.bmp") + "] = "), std::string::npos);
  EXPECT_FALSE(std::ifstream(temp_path("pic.bmp")).good());
}
