// diag_test.cpp - error and warning lines, the limit, and the two lists.
#include "core/diag.h"

#include <string>

#include "core/run_state.h"
#include "platform/platform.h"
#include "support/test_env.h"

class DiagTest : public TactoTest {
 protected:
  void SetUp() override {
    TactoTest::SetUp();
    copy_text(run_state.fname, NAME_SIZE, "graph.txt");
    copy_text(run_state.cname, NAME_SIZE, "circle");
    run_state.line_number = 12;
  }
};

TEST_F(DiagTest, ErrorLineNamesProgramLineAndCommand) {
  EXPECT_EQ(put_error("illegal pitch 0.00"), 0);
  EXPECT_EQ(errors(), "\n\nerror 1? graph.txt line 12 \"circle\": illegal pitch 0.00");
  EXPECT_EQ(run_state.error_count, 1);
  EXPECT_EQ(platform.beeps, 2);  // two low tones
}

TEST_F(DiagTest, WarningsGoToTheConsoleOrATraceTranscriptAndHaveNoLimit) {
  put_warning("too long (AB)");
  EXPECT_EQ(errors(), "\nwarning 1! graph.txt line 12 \"circle\": too long (AB)");
  run_state.run_mode = MODE_TEST;
  put_warning("again");  // a trace on standard output: still the console's
  EXPECT_EQ(errors(), "\nwarning 2! graph.txt line 12 \"circle\": again");
  Capture transcript;
  run_state.echo_out = transcript.file();
  put_warning("listed");
  EXPECT_EQ(transcript.text(), "\nwarning 3! graph.txt line 12 \"circle\": listed");
  EXPECT_EQ(echoed(), "");
  EXPECT_EQ(platform.beeps, 9);
}

TEST_F(DiagTest, ErrorsBeyondTheLimitAreShownButNeitherSoundedNorListed) {
  copy_text(run_state.fname0, NAME_SIZE, temp_path("errors.lst").c_str());
  error_list(1);
  for (int i = 0; i < 10; i++) put_error("x");
  int beeps = platform.beeps;
  put_error("eleventh");
  EXPECT_EQ(platform.beeps, beeps);
  EXPECT_NE(errors().find("error 11? graph.txt line 12 \"circle\": eleventh"), std::string::npos);
  error_list(2);
  std::string list = read_file(temp_path("errors.lst"));
  EXPECT_NE(list.find("error 10?"), std::string::npos);
  EXPECT_EQ(list.find("eleventh"), std::string::npos);
}

TEST_F(DiagTest, StartUpErrorsWaitForAKey) {
  copy_text(run_state.fname, NAME_SIZE, "TACTO");
  platform_script_keys("k");
  put_error("x");
  EXPECT_EQ(platform.script, "");
  EXPECT_NE(errors().find("\n   press any key ? "), std::string::npos);
}

TEST_F(DiagTest, SummariesTakeTheSingularForZeroAndOne) {
  struct Case {
    int errors, warnings;
    const char *text;
  } cases[] = {
      {0, 0, "   /// 0 error and 0 warning ///\n"},
      {1, 3, "   /// 1 error and 3 warnings ///\n"},
      {2, 1, "   /// 2 errors and 1 warning ///\n"},
      {5, 5, "   /// 5 errors and 5 warnings ///\n"},
  };
  for (const Case &c : cases) {
    run_state.error_count = c.errors;
    run_state.warning_count = c.warnings;
    log_list(2);
    EXPECT_EQ(errors(), c.text);
  }
  run_state.run_mode = MODE_TEST;
  run_state.error_count = 1;
  run_state.warning_count = 3;
  error_list(2);
  EXPECT_EQ(echoed(), "\n   /// 1 error and 3 warnings ///");
}

TEST_F(DiagTest, TheLogListIsATestModeTranscript) {
  copy_text(run_state.fname0, NAME_SIZE, temp_path("run.log").c_str());
  EXPECT_EQ(log_list(1), 1);
  EXPECT_EQ(run_state.run_mode, MODE_TEST);
  EXPECT_EQ(run_state.log_on, 1);
  fputs("line 0.000\n", run_state.echo_out);
  put_warning("w");
  // A second log closes the first with its summary.
  std::string first = temp_path("run.log");
  copy_text(run_state.fname0, NAME_SIZE, temp_path("second.log").c_str());
  log_list(1);
  log_list(2);
  EXPECT_EQ(run_state.run_mode, MODE_NORMAL);
  EXPECT_EQ(run_state.echo_out, echo_.file());
  std::string text = read_file(first);
  EXPECT_EQ(text, "   /// log list (" + first + ") ///\n      (Sun Sep 16 01:03:52 1973)\nline 0.000\n"
                  "\nwarning 1! graph.txt line 12 \"circle\": w   /// 0 error and 1 warning ///\n");
}

TEST_F(DiagTest, ListsThatCannotBeOpenedAreErrors) {
  copy_text(run_state.fname0, NAME_SIZE, "/nonexistent/dir/x.log");
  EXPECT_EQ(log_list(1), 0);
  EXPECT_EQ(error_list(1), 0);
  std::string e = errors();
  EXPECT_NE(e.find("log /nonexistent/dir/x.log can not open"), std::string::npos);
  EXPECT_NE(e.find(": /nonexistent/dir/x.log can not open"), std::string::npos);
  EXPECT_EQ(run_state.log_on + run_state.errlist_on, 0);
}

TEST_F(DiagTest, QuitJobAsksForAKeyAndOnlyRequests) {
  platform_script_keys("x");
  quit_job(1);
  EXPECT_EQ(run_state.quit_requested, 1);
  EXPECT_NE(errors().find("   quit 1, press any key ? "), std::string::npos);
}

TEST_F(DiagTest, AlarmLevelsSilenceTones) {
  run_state.alarm = 0;
  put_error("quiet");
  EXPECT_EQ(platform.beeps, 0);
  run_state.alarm = 2;
  put_warning("no tone for warnings");
  EXPECT_EQ(platform.beeps, 0);
  put_error("tones for errors");
  EXPECT_EQ(platform.beeps, 2);
}

TEST_F(DiagTest, WarningsAreCutToTheirArea) {
  std::string reason(200, 'w');
  put_warning(reason.c_str());
  std::string e = errors();
  EXPECT_EQ(e.size(), 95u);
  EXPECT_EQ(e.substr(0, 40), "\nwarning 1! graph.txt line 12 \"circle\": ");
}
