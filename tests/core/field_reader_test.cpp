#include "core/field_reader.h"

#include <gtest/gtest.h>

namespace kestrune::core {
namespace {

/// The fields of a text, each with a bar behind it.
std::string Fields(std::string_view text) {
  FieldReader reader(text);
  std::string fields;
  while (!reader.AtEnd()) fields += reader.Next().value_or("nothing") + "|";
  return fields;
}

TEST(FieldReaderTest, SplitsAtCommasAndEveryKindOfLineEnd) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"", ""},
      {"a,b\nc", "a|b|c|"},
      {"a\r\nb\rc\n", "a|b|c|"},
      {" a b ,  c  ", "a b|c|"},
      {"a,,b", "a||b|"},
      {"a\n\nb", "a||b|"},
      {"a,", "a|"},
      {R"("a, b" , " c ")", "a, b| c |"},
      {R"(" a"tail,b)", " a|b|"},
      {R"(a"b,c)", R"(a"b|c|)"},
      {R"("","x")", "|x|"},
      {"\"two\r\nlines\"x\nnext", "two\r\nlines|next|"},
      {"a,\"open, still\nopen \r\n\r\n", "a|open, still\nopen |"},
      {"\"", "|"},
      {"  ", ""},
      {"a,\r\n \n\r  ", "a|"},
      {"a\n\t\n", "a|\t|"}};
  for (const auto& [text, fields] : cases) EXPECT_EQ(Fields(text), fields) << text;
}

TEST(FieldReaderTest, SaysThatAQuotedFieldIsCutOff) {
  FieldReader reader("\"a\",b,\"c\"x\n\"d");
  for (const bool is_cut_off : {false, false, false, true}) {
    EXPECT_TRUE(reader.Next());
    EXPECT_EQ(reader.IsCutOff(), is_cut_off);
  }
}

TEST(FieldReaderTest, CountsLinesForTheFieldThatComes) {
  FieldReader reader("a,b\r\n\"c\r\nc\n\"\nd\n\n");
  const int lines[] = {1, 1, 2, 5};
  for (const int line : lines) {
    EXPECT_EQ(reader.Line(), line);
    EXPECT_TRUE(reader.Next());
  }
  EXPECT_EQ(reader.Next(), std::nullopt);
}

}  // namespace
}  // namespace kestrune::core
