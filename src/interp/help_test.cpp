// help_test.cpp - the help browser on the program's own help file.
#include "interp/help.h"

#include <string>

#include "core/run_state.h"
#include "platform/platform.h"
#include "support/test_env.h"

class HelpTest : public TactoTest {
 protected:
  void SetUp() override {
    TactoTest::SetUp();
    copy_text(help_state.path, HELP_PATH_SIZE, TACTO_HELP);
    run_state.in_help = 1;
  }
  // Runs the browser on queries; returns what it printed.
  std::string browse(const std::string &queries) {
    std::string path = write_file("queries.txt", queries);
    FILE *in = fopen(path.c_str(), "r");
    help_browser(in);
    fclose(in);
    return errors();
  }
};

TEST_F(HelpTest, CommandsAreFoundOnThreeLetters) {
  std::string out = browse("cir\ncircle\n");
  EXPECT_EQ(count_of(out, "circle CX CY R A0 A1 PITCH\n  An arc"), 2);
  EXPECT_NE(out.find("Help: Tacto Command Menu (ver. 11.20)"), std::string::npos);
  EXPECT_NE(out.find("menu: type a command word"), std::string::npos);
  EXPECT_NE(out.find("\nhelp 2: "), std::string::npos);
}

TEST_F(HelpTest, PrinterEntriesNeedFiveLettersOrTheirOwnThree) {
  std::string out = browse("esa\nesa72\npri\n");
  EXPECT_NE(out.find("error 1? help line 1 \"esa\": unknown command"), std::string::npos);
  EXPECT_NE(out.find("esa721\n  Selects the ESA721"), std::string::npos);
  EXPECT_NE(out.find("printer\n  Printer mode"), std::string::npos);
  EXPECT_EQ(help_state.errors, 1);
  EXPECT_EQ(run_state.error_count, 0);  // the browser's errors are its own
}

TEST_F(HelpTest, ByeLeavesQuitRequestsTheEnd) {
  std::string out = browse("bye\ncircle\n");
  EXPECT_EQ(out.find("circle CX"), std::string::npos);
  EXPECT_EQ(run_state.quit_requested, 0);
  platform_script_keys("k");
  out = browse("quit\ncircle\n");
  EXPECT_NE(out.find("quit\n  Ends the program"), std::string::npos);
  EXPECT_NE(out.find("  press any key ? "), std::string::npos);
  EXPECT_EQ(out.find("circle CX"), std::string::npos);
  EXPECT_EQ(run_state.quit_requested, 1);
  EXPECT_EQ(platform.script, "");
}

TEST_F(HelpTest, AMissingHelpFileIsAnError) {
  copy_text(help_state.path, HELP_PATH_SIZE, temp_path("none.hlp").c_str());
  std::string out = browse("cir\n");
  EXPECT_NE(out.find(": \"tacto.hlp\" can not open"), std::string::npos);
  EXPECT_EQ(run_state.help_open, 0);
}
