#include "platform/plain_text.h"

#include <gtest/gtest.h>

namespace kestrune::platform {
namespace {

TEST(PlainTextTest, NothingMovesTheCursor) {
  struct Case {
    std::string_view text;
    const char* plain;
  };
  for (const auto& [text, plain] : {
           Case{"", ""},
           Case{"a \"b\" \\n ~", "a \"b\" \\n ~"},
           Case{"Größe 😀", "Größe 😀"},
           Case{"a\nb\r\n\tc", "a\\nb\\r\\n\\tc"},
           Case{{"\0\x01\x1F", 3}, "\\x00\\x01\\x1F"},
           Case{"\x1B[2J\x7F", "\\x1B[2J\\x7F"},
           Case{"\xC2\x9B"
                "2J\xC2\xA0",
                "\\x9B"
                "2J\xC2\xA0"},
           Case{"\x9B"
                "2J\xC4",
                "\uFFFD2J\uFFFD"},
       }) {
    EXPECT_EQ(PlainText(text), plain);
  }
  EXPECT_EQ(PlainText("a\n\t\x1B", Escapes::kNumbersOnly), "a\\x0A\\x09\\x1B");
}

}  // namespace
}  // namespace kestrune::platform
