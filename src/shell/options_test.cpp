// options_test.cpp - the long options' values, ranges and combinations.
#include "shell/options.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace {

// Reads the arguments in order; 1 when every one is accepted.
int read_all(std::initializer_list<const char *> args, LongOptions *o) {
  *o = no_long_options();
  testing::internal::CaptureStderr();
  int ok = 1;
  for (const char *a : args) ok = ok && read_long_option(a, o);
  testing::internal::GetCapturedStderr();
  return ok;
}

int check_quietly(const LongOptions &o, int has_program) {
  testing::internal::CaptureStderr();
  int ok = check_long_options(o, has_program);
  testing::internal::GetCapturedStderr();
  return ok;
}

TEST(LongOptions, ValuesAndTheirRanges) {
  LongOptions o;
  ASSERT_TRUE(read_all({"--output=Plan.PNG", "--dpi=600"}, &o));
  EXPECT_EQ(o.produce, PRODUCE_FILE);
  EXPECT_EQ(o.output_kind, OUTPUT_PNG);
  EXPECT_EQ(o.dpi, 600);
  ASSERT_TRUE(read_all({"--check=1.5,0"}, &o));
  EXPECT_DOUBLE_EQ(o.label_mm, 1.5);
  EXPECT_DOUBLE_EQ(o.line_mm, 0);
  ASSERT_TRUE(read_all({"--print", "--copies=99"}, &o));
  EXPECT_TRUE(o.print_default);
  EXPECT_EQ(o.copies, 99);
  ASSERT_TRUE(read_all({"--braille-view=3"}, &o));
  EXPECT_EQ(o.view_scale, 3);
  for (const char *bad : {"--dpi=9", "--dpi=601", "--dpi=1e2", "--copies=0", "--copies=100", "--braille-view=0",
                          "--check=3", "--check=3,-1", "--check=3,2x", "--print=", "--output=", "--outputs=a",
                          "--help=1"})
    EXPECT_FALSE(read_all({bad}, &o)) << bad;
}

TEST(LongOptions, OneProductAtATimeWithAProgram) {
  LongOptions o;
  EXPECT_FALSE(read_all({"--output=a.ps", "--check"}, &o));
  EXPECT_TRUE(read_all({"--output=a.ps", "--output=b.ps"}, &o));
  EXPECT_EQ(std::string(o.output), "b.ps");
  ASSERT_TRUE(read_all({"--output=a.ps"}, &o));
  EXPECT_TRUE(check_quietly(o, 1));
  EXPECT_FALSE(check_quietly(o, 0));
  ASSERT_TRUE(read_all({"--output=a.ps", "--dpi=200"}, &o));
  EXPECT_FALSE(check_quietly(o, 1));
  ASSERT_TRUE(read_all({"--copies=2"}, &o));
  EXPECT_FALSE(check_quietly(o, 1));
  EXPECT_EQ(output_kind_of("dir.ps/plan"), OUTPUT_STREAM);
  EXPECT_EQ(output_kind_of("plan.bin"), OUTPUT_STREAM);
  EXPECT_EQ(output_kind_of("a.bmp"), OUTPUT_BMP);
}

}  // namespace
