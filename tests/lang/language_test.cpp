#include "lang/language.h"

#include <gtest/gtest.h>

#include "fake_machine.h"

namespace kestrune::lang {
namespace {

using test::FakeMachine;

constexpr std::string_view kTooMany = "Error in loading language";

/// A language file with that many texts, "t0", "t1" and so on, behind its header.
std::string FileWith(int texts, const std::string& mark = "t") {
  std::string file = "Name,Header\n";
  for (int i = 0; i < texts; ++i) file += mark + std::to_string(i) + "\n";
  return file;
}

struct LanguageTest : testing::Test {
  FakeMachine machine;
  core::basRegistry registry{machine.Services().registry};
  Language language{registry, machine.Services().files, machine};

  void Load(const std::string& name, std::string_view bytes) {
    machine.Lay("DATA/LANGUAGE/" + name + ".dat", bytes);
    machine.Store(test::kOptionsKey, "Language", "REG_SZ " + name);
    language.LoadLanguage();
  }
};

TEST_F(LanguageTest, LoadsTheStoredLanguageElseEnglish) {
  language.LoadLanguage();
  EXPECT_EQ(language.LanguageName, "en");
  EXPECT_EQ(language.LangText[145], "Disabled");
  Load("gr", "Ellinika,Kefalida\nfirst");
  EXPECT_EQ(language.LanguageName, "gr");
  EXPECT_EQ(language.HeaderText, "Kefalida");
  EXPECT_EQ(language.LangText[0], "first");
}

TEST_F(LanguageTest, ACommentStandsForTheFieldAfterIt) {
  Load("x", "N,H\n- a note\nHello,\"- no, comment\",\"b, c\"\n-dash\n- last");
  EXPECT_EQ(language.LangText[0], "Hello");
  EXPECT_EQ(language.LangText[1], "b, c");
  EXPECT_EQ(language.LangText[2], "-dash");
  EXPECT_EQ(language.LangText[3], "");
}

TEST_F(LanguageTest, TakesThreeHundredTextsAndNoMore) {
  machine.HideShippedFiles();
  machine.Lay("DATA/LANGUAGE/en.dat", "English,H\nE0");
  Load("full", FileWith(300));
  EXPECT_EQ(machine.messages.size(), 0U);
  EXPECT_EQ(language.LangText[299], "t299");
  Load("over", FileWith(301));
  EXPECT_EQ(test::Joined(machine.messages), kTooMany);
  EXPECT_EQ(language.LanguageName, "en");
  EXPECT_EQ(language.LangText[0], "E0");
  EXPECT_EQ(language.LangText[1], "t1");
}

TEST_F(LanguageTest, TriesEnglishOnceWhenItHasTooManyTextsItself) {
  machine.Lay("DATA/LANGUAGE/en.dat", FileWith(301, "e"));
  Load("over", FileWith(302));
  EXPECT_EQ(machine.messages.size(), 2U);
  EXPECT_EQ(language.LangText[300], "e300");
}

TEST_F(LanguageTest, AMissingOrEmptyFileLeavesEmptyTextsWithoutAMessage) {
  machine.Store(test::kOptionsKey, "Language", "REG_SZ nowhere");
  language.LoadLanguage();
  EXPECT_EQ(language.LangText[0], "");
  EXPECT_EQ(language.LangText[-1], "");
  EXPECT_EQ(language.LangText[301], "");
  Load("empty", "");
  EXPECT_EQ(language.LangText[0] + language.HeaderText, "");
  EXPECT_TRUE(machine.messages.empty());
}

TEST_F(LanguageTest, UnbalancedQuotesSpoilTheirLineAlone) {
  Load("x", "N,H\n\"open\nnext, \"a\"b\",c\"d");
  EXPECT_EQ(language.LangText[0], "open");
  EXPECT_EQ(language.LangText[1], "next");
  EXPECT_EQ(language.LangText[2], "a");
  EXPECT_EQ(language.LangText[3], "c\"d");
}

TEST_F(LanguageTest, ReadsTheCodePageNamedRightAfterTheHeader) {
  const std::string_view texts = "\xE8,\xE8\n";  // c with caron in 1250, e with grave in 1252
  struct Case {
    std::string comment;
    std::string text;
  };
  for (const Case& each : {Case{"- codepage 1250\n", "\u010D"}, Case{"", "\u00E8"},
                           Case{"- other\n", "\u00E8"}, Case{"- codepage 99999\n", "\u00E8"}}) {
    Load("x", std::string(texts) + each.comment + "\xE8");
    EXPECT_EQ(language.LangText[0], each.text) << each.comment;
    EXPECT_EQ(language.HeaderText, each.text) << each.comment;
  }
}

TEST_F(LanguageTest, ListsFilesByNameWithoutThoseWithAnUnderscore) {
  machine.HideShippedFiles();
  machine.Lay("DATA/LANGUAGE/b.dat", "Bee");
  machine.Lay("DATA/LANGUAGE/A.DAT", "Ay");
  machine.Lay("DATA/LANGUAGE/x_backup.dat", "Backup");
  machine.Lay("DATA/LANGUAGE/c.txt", "No");
  language.ListLanguages();
  language.ListLanguages();
  EXPECT_EQ(test::Joined(language.DisplayNames), "Ay, Bee");
  EXPECT_EQ(test::Joined(language.LanguageFiles), "A.DAT, b.dat");
}

TEST_F(LanguageTest, RemembersTheFilesOfTheFirstSixtyFiveOnly) {
  machine.HideShippedFiles();
  for (int i = 10; i < 76; ++i) {
    machine.Lay("DATA/LANGUAGE/l" + std::to_string(i) + ".dat", "N" + std::to_string(i));
  }
  language.ListLanguages();
  EXPECT_EQ(language.DisplayNames.size(), 66U);
  EXPECT_EQ(language.LanguageFiles.size(), 65U);
  language.ChooseLanguage(65);
  language.ChooseLanguage(-1);
  EXPECT_EQ(machine.Stored(test::kOptionsKey, "Language"), "");
}

TEST_F(LanguageTest, ChoosingStoresTheNameAsTextAndAsksForARestart) {
  language.ListLanguages();
  registry.WriteAsBinary = 1;
  language.ChooseLanguage(0);
  EXPECT_EQ(machine.Stored(test::kOptionsKey, "Language"), "REG_SZ cs");
  EXPECT_EQ(test::Joined(machine.messages), "Please restart Kestrune for change language.");
  EXPECT_EQ(language.LangText[145], "");
}

TEST(ShippedLanguagesTest, HaveTheSameTextsAndKeepApartWhatIsCompared) {
  const int groups[][6] = {{127, 128, 129, 130, -1, -1}, {134, 135, 136, 137, -1, -1},
                           {145, 146, 183, -1, -1, -1},  {159, 160, 161, -1, -1, -1},
                           {180, 181, 182, -1, -1, -1},  {137, 145, 146, 183, 135, -1}};
  FakeMachine machine;
  core::basRegistry registry(machine.Services().registry);
  Language english(registry, machine.Files(), machine);
  english.LoadLanguage();
  machine.Store(test::kOptionsKey, "Language", "REG_SZ cs");
  Language other(registry, machine.Files(), machine);
  other.LoadLanguage();
  int texts = 0;
  for (int number = 0; number < kTextCount; ++number) {
    EXPECT_EQ(english.LangText[number].empty(), other.LangText[number].empty()) << number;
    texts += english.LangText[number].empty() ? 0 : 1;
  }
  EXPECT_EQ(texts, 227);
  EXPECT_EQ(english.LangText[273].empty(), false);
  for (const LangTable* table : {&english.LangText, &other.LangText}) {
    for (const auto& group : groups) {
      for (int i = 0; i < 6; ++i) {
        for (int j = 0; j < i && group[i] >= 0; ++j) {
          EXPECT_NE((*table)[group[i]], (*table)[group[j]]) << group[i] << " " << group[j];
        }
      }
    }
    // A number or a name follows these directly.
    for (const int prefix : {92, 93, 94, 95, 101, 104, 109, 110, 118, 123, 165, 168, 169}) {
      EXPECT_TRUE((*table)[prefix].ends_with(' ')) << prefix;
    }
  }
}

}  // namespace
}  // namespace kestrune::lang
