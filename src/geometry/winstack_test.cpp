// winstack_test.cpp - the depth bounds of the window stack.
#include "geometry/winstack.h"

#include <string>

#include "support/test_env.h"

class WinStackTest : public TactoTest {};

TEST_F(WinStackTest, DepthBounds) {
  for (int i = 0; i < 23; i++) ASSERT_EQ(push_win(nullptr), 1) << i;
  EXPECT_EQ(push_win(nullptr), 0);
  for (int i = 0; i < 24; i++) ASSERT_EQ(pop_win(), 1) << i;  // the last one pops the top record
  EXPECT_EQ(pop_win(), 0);
  EXPECT_EQ(push_win(nullptr), 0);
  std::string e = errors();
  EXPECT_NE(e.find("push_win overflow deep = 28"), std::string::npos);
  EXPECT_NE(e.find("pop_win underflow deep = 4"), std::string::npos);
  EXPECT_NE(e.find("push_win overflow deep = 4"), std::string::npos);
}
