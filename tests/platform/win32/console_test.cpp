#include "platform/win32/console.h"

#include <gtest/gtest.h>

namespace kestrune::platform::win32 {
namespace {

TEST(CommandLineTest, IsTakenApartAsTheSystemsOwnProgramsDoIt) {
  struct Case {
    const wchar_t* line;
    std::vector<std::string> words;
  };
  const Case cases[] = {
      {L"", {}},
      {L"k", {}},
      {L"k  a\tb ", {"a", "b"}},
      {L"\"C:\\a folder\\k.exe\" a", {"a"}},
      // Backslashes mean nothing in the program's name.
      {L"\"C:\\folder\\\" a", {"a"}},
      {L"k \"a b\" c", {"a b", "c"}},
      {L"k a\" b\"c", {"a bc"}},
      {L"k \"\" x", {"", "x"}},
      {L"k \"open", {"open"}},
      {L"k C:\\a\\b\\", {"C:\\a\\b\\"}},
      {L"k \"C:\\a b\\\\\" c", {"C:\\a b\\", "c"}},
      {L"k \"C:\\a b\\\" c", {"C:\\a b\" c"}},
      {L"k a\\\"b", {"a\"b"}},
      {L"k a\\\\\"b c\"", {"a\\b c"}},
      {L"k \"a\"\"b\"", {"a\"b"}},
      {L"k \x0101\x20AC", {"\xC4\x81\xE2\x82\xAC"}},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(WordsOf(each.line), each.words) << testing::PrintToString(std::wstring(each.line));
  }
}

}  // namespace
}  // namespace kestrune::platform::win32
