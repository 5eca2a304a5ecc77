// The performance wizard in one word.

#include <algorithm>

#include "cli/command_line_run.h"
#include "cli/output.h"

namespace kestrune::cli {
namespace {

using WizardCommandsTest = CommandLineTest;

TEST_F(WizardCommandsTest, OptimizesOnceAndPrintsWhatThePreviewLists) {
  const Json shown = Json::parse(
      Out({"--json", "--dry-run", "do", "open:performance-wizard",
           "performance-wizard.auto-settings-for=racing", "performance-wizard.quality=7",
           "performance-wizard.fine-adjust=on", "performance-wizard.antialiasing=3",
           "performance-wizard.texture-filtering=4", "?performance-wizard.preview"}));
  std::string lines;
  for (const auto& line : shown[0]["items"]) lines += line.get<std::string>() + "\n";
  EXPECT_GE(std::count(lines.begin(), lines.end(), '\n'), 10);

  const std::vector<std::string> words = {"wizard", "racing", "7", "--fine", "3,4"};
  EXPECT_EQ(Out(words), lines);
  EXPECT_EQ(Out({"get", "opengl.filtering.manual-intellisample-trilinear-configuration"}), "on\n");
  EXPECT_EQ(Out({"get", "direct3d.filtering.trilinear-optimization"}), "off\n");
  const Json listed = Json::parse(Out({"--json", "wizard", "Racing", "7", "--fine", "3,4"}));
  EXPECT_EQ(listed[0]["line"], lines.substr(0, lines.find('\n')));
}

TEST_F(WizardCommandsTest, WhatItDoesNotOfferIsRefusedAndChangesNothing) {
  struct Case {
    int status;
    const char* part;
    std::vector<std::string> words;
  };
  const Case cases[] = {
      {3, "\"Default\"", {"wizard", "Nothing", "5"}},
      {3, "from 0 to 9", {"wizard", "Default", "10"}},
      {3, "from 0 to 9", {"wizard", "Default", "4.5"}},
      {3, "from 0 to 9", {"wizard", "Default", "99999999999"}},
      {3, "from 0 to 4", {"wizard", "Default", "5", "--fine", "0,5"}},
      {2, "is no number", {"wizard", "Default", "high"}},
      {2, "is no AA,TF", {"wizard", "Default", "5", "--fine", "1"}},
      {2, "is no AA,TF", {"wizard", "Default", "5", "--fine", "1,x"}},
      {2, "is no AA,TF", {"wizard", "Default", "5", "--fine", "1,2,3"}},
  };
  for (const Case& each : cases) {
    std::vector<std::string> words = {"--trace"};
    words.insert(words.end(), each.words.begin(), each.words.end());
    ExpectRefused(each.status, each.part, words);
  }
}

TEST_F(WizardCommandsTest, DefaultIsOfferedWhereThereIsNoIndexAndElseOnlyByIt) {
  const std::string own = folder / "own";
  std::filesystem::create_directories(own + "/DATA");
  std::filesystem::copy(std::string(KESTRUNE_DATA_FOLDER) + "/DATA/LANGUAGE",
                        own + "/DATA/LANGUAGE", std::filesystem::copy_options::recursive);
  program_folder = own;
  EXPECT_EQ(Run({"wizard", "default", "5"}).status, 0);
  ExpectRefused(3, "no items", {"wizard", "Racing", "5"});
  folder.Write("own/DATA/PW/index.dat", "Racing\n");
  EXPECT_EQ(Run({"wizard", "Racing", "5"}).status, 0);
  ExpectRefused(3, "\"Racing\"", {"wizard", "Default", "5"});
}

}  // namespace
}  // namespace kestrune::cli
