// readers_test.cpp - numbers, data lists, texts and file names.
#include "interp/readers.h"

#include "core/run_state.h"
#include "interp/macro.h"
#include "support/test_env.h"

class ReadersTest : public TactoTest {
 protected:
  void SetUp() override {
    TactoTest::SetUp();
    copy_text(run_state.cname, NAME_SIZE, "line");
  }
  // A stream holding data lines.
  FILE *data(const std::string &text) {
    data_path_ = write_file("data.txt", text);
    stream_ = fopen(data_path_.c_str(), "r");
    return stream_;
  }
  void TearDown() override {
    if (stream_ != nullptr) fclose(stream_);
    TactoTest::TearDown();
  }
  std::string data_path_;
  FILE *stream_ = nullptr;
};

TEST_F(ReadersTest, ReadpFillsFromIndexOne) {
  EXPECT_EQ(readp("1 2.5 -3 4e2 5 6", 5), 1);
  EXPECT_DOUBLE_EQ(run_state.param[1], 1.0);
  EXPECT_DOUBLE_EQ(run_state.param[2], 2.5);
  EXPECT_DOUBLE_EQ(run_state.param[3], -3.0);
  EXPECT_DOUBLE_EQ(run_state.param[4], 4.0);  // the calculator's numbers have no exponent
  EXPECT_DOUBLE_EQ(run_state.param[5], 5.0);
}

TEST_F(ReadersTest, MissingNumbersAreReportedWithPositionAndCount) {
  run_state.param[4] = 99;
  EXPECT_EQ(readp("0 0 10", 4), 0);
  EXPECT_NE(errors().find("readp illegal param 4 in 4"), std::string::npos);
  EXPECT_DOUBLE_EQ(run_state.param[3], 10.0);  // values before the fault stay
  EXPECT_DOUBLE_EQ(run_state.param[4], 99.0);
}

TEST_F(ReadersTest, MacrosAndExpressionsInParameters) {
  define_macro("r 5");
  errors();
  EXPECT_EQ(readp("10 10 R 2*3+1", 4), 1);
  EXPECT_DOUBLE_EQ(run_state.param[3], 5.0);
  EXPECT_DOUBLE_EQ(run_state.param[4], 7.0);
  // Macros stand for whole words only: "r*2" is an expression of a variable r.
  EXPECT_EQ(readp("r*2", 1), 0);
  EXPECT_NE(errors().find("undefined variable r"), std::string::npos);
}

TEST_F(ReadersTest, DataListsEndAtTheMarkInEitherPlace) {
  FILE *f = data("1 2\n3 4\n9999 0\nnext\n");
  int line = run_state.line_number;
  EXPECT_EQ(readp2("0.5", 1, f), 1);
  EXPECT_DOUBLE_EQ(run_state.param[1], 0.5);
  EXPECT_DOUBLE_EQ(run_state.param[2], 2.0);  // pairs
  EXPECT_DOUBLE_EQ(run_state.param[3], 1.0);
  EXPECT_DOUBLE_EQ(run_state.param[4], 2.0);
  EXPECT_DOUBLE_EQ(run_state.param[5], 3.0);
  EXPECT_DOUBLE_EQ(run_state.param[6], 4.0);
  EXPECT_EQ(run_state.line_number, line + 3);
  char rest[100];
  ASSERT_NE(fgets(rest, sizeof rest, f), nullptr);
  EXPECT_STREQ(rest, "next\n");  // the reader stops at the end line

  FILE *g = data("5 9999\n");
  EXPECT_EQ(readp2("1", 1, g), 1);
  EXPECT_DOUBLE_EQ(run_state.param[2], 0.0);
  fclose(g);
  stream_ = nullptr;
  FILE *h = data("9999 0\n");
  EXPECT_EQ(readp2("1", 1, h), 1);
  EXPECT_DOUBLE_EQ(run_state.param[2], 0.0);
}

TEST_F(ReadersTest, DataListFaults) {
  EXPECT_EQ(readp2("1", 1, data("1 2\n")), 0);
  EXPECT_NE(errors().find("readp2 data can not read"), std::string::npos);
  fclose(stream_);
  EXPECT_EQ(readp2("1", 1, data("1 2\n3\n")), 0);
  EXPECT_NE(errors().find("readp2 illegal data 3.00 (2, 2)"), std::string::npos);
  fclose(stream_);
  EXPECT_EQ(readp2("1", 1, data("9999\n")), 0);  // the end line holds two numbers
  EXPECT_NE(errors().find("readp2 illegal data 9999.00 (1, 2)"), std::string::npos);
  fclose(stream_);
  std::string many;
  for (int i = 0; i < 63; i++) many += "1 1\n";
  many += "9999 0\n";
  EXPECT_EQ(readp2("1", 1, data(many)), 0);
  EXPECT_NE(errors().find("readp2 data end (9999) was not found"), std::string::npos);
  fclose(stream_);
  std::string most;
  for (int i = 0; i < 62; i++) most += "1 1\n";
  most += "9999 0\n";
  EXPECT_EQ(readp2("1", 1, data(most)), 1);
  EXPECT_DOUBLE_EQ(run_state.param[2], 62.0);
}

TEST_F(ReadersTest, TextAfterTheSecondBlank) {
  define_macro("A 7");
  errors();
  copy_text(run_state.cname, NAME_SIZE, "braille");
  EXPECT_EQ(readp3("10 20 A B", 2), 1);
  EXPECT_STREQ(run_state.ptr, "A B");
  EXPECT_DOUBLE_EQ(run_state.param[1], 10.0);
  EXPECT_EQ(readp3("10  20 hello", 2), 1);  // blanks are counted, not words
  EXPECT_STREQ(run_state.ptr, "20 hello");
  EXPECT_EQ(readp3("10 20", 2), 1);
  EXPECT_STREQ(run_state.ptr, "");
}

TEST_F(ReadersTest, FileNames) {
  EXPECT_EQ(readp4("sub.txt 1 2 3 4", 4), 1);
  EXPECT_STREQ(run_state.fname0, "sub.txt");
  EXPECT_DOUBLE_EQ(run_state.param[4], 4.0);
  EXPECT_EQ(readp4("", 4), 0);
  EXPECT_EQ(readp4("sub.txt 1 2", 4), 0);
  EXPECT_EQ(readp5("my list.txt"), 1);
  EXPECT_STREQ(run_state.fname0, "my list.txt");
  EXPECT_EQ(readp5(""), 0);
  std::string e = errors();
  EXPECT_NE(e.find("readp4 no program file"), std::string::npos);
  EXPECT_NE(e.find("readp4 illegal param 3 in 4"), std::string::npos);
  EXPECT_NE(e.find("readp5 no program file"), std::string::npos);
}
