#include "platform/linux/text_encoding.h"

#include <string>

#include "gtest/gtest.h"

namespace quibbly::linux_services {
namespace {

TEST(TextEncoding, tells_utf8_from_the_bytes_that_json_would_refuse) {
  for (const std::string text : {"", "Dateien", "Größe", "ファイル", "😀", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_TRUE(isUtf8(text)) << text;
  }
  for (const std::string text :
       {"Gr\xF6\xDF"
        "e",
        "\x80", "cut \xE3\x83", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF0\x9F\x98z"}) {
    EXPECT_FALSE(isUtf8(text)) << text;
  }
}

}  // namespace
}  // namespace quibbly::linux_services
