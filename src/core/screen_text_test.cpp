// screen_text_test.cpp - the language the screens speak, and the table of
// their texts.
#include "core/screen_text.h"

#include <cstdlib>
#include <cstring>
#include <string>

#include "core/run_state.h"
#include "platform/platform.h"
#include "support/test_env.h"

class ScreenTextTest : public TactoTest {};

TEST_F(ScreenTextTest, JapaneseOnlyWhereTheLocaleShowsUtf8) {
  struct Case {
    const char *lc_all, *lc_ctype, *lang;
    int utf8;
  } cases[] = {
      {nullptr, nullptr, "ja_JP.UTF-8", 1},      {nullptr, nullptr, "C.utf8", 1},
      {nullptr, nullptr, "de_DE.UTF-8@euro", 1}, {"", "en_US.UTF-8", "C", 1},
      {"C", nullptr, "ja_JP.UTF-8", 0},          {nullptr, "ja_JP.eucJP", "C.UTF-8", 0},
      {nullptr, nullptr, "ja_JP.SJIS", 0},       {nullptr, nullptr, "ja_JP", 0},
      {nullptr, nullptr, "en.UTF-16", 0},        {nullptr, nullptr, nullptr, 0},
  };
  for (const Case &c : cases)
    EXPECT_EQ(utf8_locale(c.lc_all, c.lc_ctype, c.lang), c.utf8) << (c.lang ? c.lang : "") << " " << c.utf8;

  // LC_ALL overrides the others; the process's own comes back.
  std::string own = getenv("LC_ALL") != nullptr ? getenv("LC_ALL") : "";
  run_state.language = 1;
  setenv("LC_ALL", "POSIX", 1);
  EXPECT_STREQ(screen_text(ST_QUIT_QUESTION), "\n\nQuit job (Y/N)[Yes] ? ");
  setenv("LC_ALL", "ja_JP.UTF-8", 1);
  EXPECT_STREQ(screen_text(ST_QUIT_QUESTION), "\n\n終了しますか (Y/N)[Yes] ? ");
  own.empty() ? unsetenv("LC_ALL") : setenv("LC_ALL", own.c_str(), 1);
}

// The printf conversions of a text, in order ("%s%5d" for "a %s b %5d").
static std::string conversions(const char *text) {
  std::string found;
  for (const char *p = strchr(text, '%'); p != nullptr; p = strchr(p, '%')) {
    size_t n = strcspn(p + 1, "%diouxXeEfgGcsp") + 2;
    found.append(p, n);
    p += n;
  }
  return found;
}

TEST_F(ScreenTextTest, EveryTextIsTranslatedWithTheSameConversions) {
  for (int id = 0; id < ST_COUNT; id++) {
    const char *english = screen_text_in(id, LANG_ENGLISH);
    EXPECT_NE(english[0], '\0') << id;
    for (int language = 1; language < LANG_COUNT; language++) {
      const char *other = screen_text_in(id, language);
      EXPECT_STRNE(other, english) << "text " << id << " is not translated";
      EXPECT_EQ(conversions(other), conversions(english)) << other;
    }
  }
}
