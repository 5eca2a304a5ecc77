#include "platform/code_page.h"

#include <gtest/gtest.h>

#include "platform/case_fold.h"
#include "platform/utf8.h"

namespace kestrune::platform {
namespace {

TEST(CodePageTest, EveryByteComesBack) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes.push_back(static_cast<char>(i));
  for (const int page :
       {437, 850, 852, 866, 874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 65001}) {
    CodePages pages(page);
    const EncodedText back = pages.Encode(pages.Decode(bytes));
    EXPECT_EQ(back.bytes, bytes) << page;
    EXPECT_EQ(back.lost, 0) << page;
  }
}

TEST(CodePageTest, BytesMeanWhatTheirPageSays) {
  struct Case {
    int page;
    const char* bytes;
    const char* text;
  };
  CodePages pages(1250);
  for (const auto& [page, bytes, text] : {
           Case{1252, "\x80\xE4", "€ä"},
           Case{1252, "a\x81", "a\xEF\x9E\x81"},  // U+F781: the page has no such byte
           Case{1251, "\xCA\xEB\xFE\xF7", "Ключ"},
           Case{437, "\x84", "ä"},
           Case{932, "\x93\xFA\x96{\xB1", "日本ｱ"},
           Case{932, "\x93", "\xEF\x9E\x93"},
           Case{1258, "e\xEC", "e\xCC\x81"},
           Case{65001, "\xC3\xA4\xFF", "ä\xEF\x9F\xBF"},
           Case{0, "\xB9", "ą"},
           Case{4711, "\xB9", "ą"},
           Case{-1, "\xB9", "ą"},
       }) {
    EXPECT_EQ(pages.Decode(bytes, page), text) << page;
    EXPECT_EQ(pages.Encode(text, page).bytes, bytes) << page;
  }
}

TEST(CodePageTest, WhatAPageLacksIsCounted) {
  CodePages pages(1252);
  const EncodedText encoded = pages.Encode("Ключ €");
  EXPECT_EQ(encoded.bytes, "???? \x80");
  EXPECT_EQ(encoded.lost, 4);
}

TEST(CaseFoldTest, LettersBecomeTheirCapitalsOneForOne) {
  struct Case {
    const char* text;
    const char* folded;
  };
  for (const auto& [text, folded] : {
           Case{"aZ_{09}", "AZ_{09}"},
           Case{"éÿßžŉő", "ÉŸßŽŉŐ"},
           Case{"ıſµ", "ıſµ"},
           Case{"άσςϋ", "ΆΣΣΫ"},
           Case{"яёђҐӂ", "ЯЁЂҐӁ"},
           Case{"ạⅷｚ", "ẠⅧＺ"},
           Case{"日本😀", "日本😀"},
           Case{"a\xFF\xC3z\xED\xA0\x80", "A\xFF\xC3Z\xED\xA0\x80"},
           Case{"\xC0\xE1\xF0\x80\x80\xE1", "\xC0\xE1\xF0\x80\x80\xE1"},
       }) {
    EXPECT_EQ(FoldCase(text), folded);
    EXPECT_TRUE(SameWithoutCase(text, folded));
  }
  EXPECT_FALSE(SameWithoutCase("a", "ab"));
}

}  // namespace
}  // namespace kestrune::platform
