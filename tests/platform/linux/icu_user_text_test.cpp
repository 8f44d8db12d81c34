#include "platform/linux/icu_user_text.h"

#include <gtest/gtest.h>

namespace quibbly::linux_services {
namespace {

TEST(IcuUserTextTest, tells_utf8_from_other_bytes) {
  const IcuUserText text;
  for (const char* good : {"", "plain", "‘ö’", "👩‍👩‍👧‍👦", "\xf4\x8f\xbf\xbf"})
    EXPECT_TRUE(text.isUtf8(good)) << good;
  for (const char* bad : {"\xff", "\xc3", "\xc0\xaf", "\xed\xa0\x80", "\xf4\x90\x80\x80", "a\x80"}) {
    EXPECT_FALSE(text.isUtf8(bad)) << bad;
  }
  EXPECT_TRUE(text.isUtf8(std::string_view("\0x", 2)));
}

TEST(IcuUserTextTest, counts_characters_as_people_do) {
  const IcuUserText text;
  const std::string family = "👩‍👩‍👧‍👦";
  const std::string flag = "🇬🇧";
  const std::string accented = "e\u0301";
  EXPECT_EQ(text.firstCharacters(family + flag + accented + "x", 3), family + flag + accented);
  EXPECT_EQ(text.firstCharacters(family + flag, 2), family + flag);
  EXPECT_EQ(text.firstCharacters(std::string(100, 'a'), 80), std::string(80, 'a'));
  EXPECT_EQ(text.firstCharacters("a\xff\x62\x63", 3), "a\xff\x62");
}

TEST(IcuUserTextTest, a_sign_takes_two_columns_as_an_emoji_and_a_text_none_that_its_characters_do_not_take) {
  const IcuUserText text;
  for (const auto& [shown, columns] : std::initializer_list<std::pair<const char*, std::size_t>>{
           {"♥", 1}, {"♥\uFE0F", 2}, {"a\uFE0F", 1}, {"\uFFF0\uFE0F", 1}, {"\uFE0F", 0}, {"👩\u200D♥\uFE0F", 2}}) {
    EXPECT_EQ(text.columns(shown), columns) << shown;
  }
}

}  // namespace
}  // namespace quibbly::linux_services
