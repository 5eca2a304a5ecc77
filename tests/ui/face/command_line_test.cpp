#include "ui/face/command_line.h"

#include <gtest/gtest.h>

#include <vector>

namespace kestrune::face {
namespace {

TEST(CommandLineTest, IsAProfilesPathUnlessAnOptionStandsAlone) {
  struct Case {
    std::vector<const char*> arguments;
    const char* path;
    const char* answer;  ///< how it begins; null for none
  };
  const Case cases[] = {
      {{"kestrune"}, "", nullptr},
      {{"kestrune", "C:\\My", "Games\\a.ksp"}, "C:\\My Games\\a.ksp", nullptr},
      {{"kestrune", "--help"}, "--help", "Shows and changes"},
      {{"kestrune", "--version"}, "--version", "kestrune 3.5.3\n"},
      {{"kestrune", "--help", "me.ksp"}, "--help me.ksp", nullptr},
      {{"kestrune", "--versions"}, "--versions", nullptr},
  };
  for (const Case& each : cases) {
    const int count = static_cast<int>(each.arguments.size());
    EXPECT_EQ(ProfilePath(count, each.arguments.data()), each.path);
    const auto answer = PrintedAnswer(count, each.arguments.data());
    ASSERT_EQ(answer.has_value(), each.answer != nullptr) << each.path;
    if (answer) {
      EXPECT_TRUE(answer->starts_with(each.answer)) << *answer;
    }
  }
}

}  // namespace
}  // namespace kestrune::face
