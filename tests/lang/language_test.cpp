#include "lang/language.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "core/field_reader.h"
#include "fake_machine.h"
#include "read_all.h"

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
  explicit LanguageTest(const test::MachineKind& kind = {}) : machine(kind) {}

  FakeMachine machine;
  core::basRegistry registry{machine.Services().registry};
  Language language{registry, machine.Services().files, machine};

  void Load(const std::string& name, std::string_view bytes) {
    machine.Lay("DATA/LANGUAGE/" + name + ".dat", bytes);
    machine.Store(test::kOptionsKey, "Language", "REG_SZ " + name);
    language.LoadLanguage();
  }
};

/// On a machine without the shipped files.
struct OwnLanguagesTest : LanguageTest {
  OwnLanguagesTest() : LanguageTest({.ships_files = false}) {}
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

TEST_F(OwnLanguagesTest, TakesThreeHundredTextsAndNoMore) {
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

TEST_F(LanguageTest, AnOpenQuoteRunsToTheNextOne) {
  Load("x", "N,H\n\"open\nnext, \"a\"b\",c\"d");
  EXPECT_EQ(language.LangText[0], "open\nnext, ");
  EXPECT_EQ(language.LangText[1], "c\"d");
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

TEST_F(OwnLanguagesTest, ListsFilesByNameWithoutThoseWithAnUnderscore) {
  machine.Lay("DATA/LANGUAGE/b.dat", "Bee");
  machine.Lay("DATA/LANGUAGE/A.DAT", "Ay");
  machine.Lay("DATA/LANGUAGE/x_backup.dat", "Backup");
  machine.Lay("DATA/LANGUAGE/c.txt", "No");
  language.ListLanguages();
  EXPECT_EQ(test::Joined(language.ListLanguages()), "Ay, Bee");
  EXPECT_EQ(test::Joined(language.LanguageFiles), "A.DAT, b.dat");
}

TEST_F(OwnLanguagesTest, RemembersTheFilesOfTheFirstSixtyFiveOnly) {
  for (int i = 10; i < 76; ++i) {
    machine.Lay("DATA/LANGUAGE/l" + std::to_string(i) + ".dat", "N" + std::to_string(i));
  }
  EXPECT_EQ(language.ListLanguages().size(), 66U);
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

constexpr std::size_t kHeader = 3;  ///< the two names and the code page

/// Goes through a language file beside the English one and says where it first departs from the
/// numbers in its own comments, or from what English has there; empty when it doesn't.
std::string FaultOf(const std::string& name, std::string_view bytes, std::string_view english) {
  core::FieldReader fields(bytes);
  core::FieldReader others(english);
  const auto is_comment = [](const std::string& field) { return field.starts_with("- "); };
  int line = 1;
  int group = 1;
  int number = 0;
  const auto fault = [&](const std::string& what) {
    return name + ":" + std::to_string(line) + ": " + what + " at text " + std::to_string(number) +
           ", in the group of line " + std::to_string(group);
  };
  for (std::size_t i = 0; !fields.AtEnd() || !others.AtEnd(); ++i) {
    line = fields.Line();
    if (fields.AtEnd() || others.AtEnd()) return fault("other end than in English");
    const std::string field = *fields.Next();
    const std::string other = *others.Next();
    if (is_comment(field)) {
      if (i >= kHeader && field.substr(2, field.find(':') - 2) != std::to_string(number)) {
        return fault("the comment has another number");
      }
      group = line;
    } else if (i >= kHeader) {
      ++number;
    }
    if (is_comment(field) != is_comment(other)) return fault("other comments than in English");
    if (field.empty() != other.empty()) return fault("other texts than in English");
  }
  return "";
}

struct ShippedLanguagesTest : testing::Test {
  static std::string Bytes(const std::string& name) {
    return platform::ReadAll(KESTRUNE_DATA_FOLDER "/DATA/LANGUAGE/" + name);
  }
  const std::string english = Bytes("en.dat");
};

TEST_F(ShippedLanguagesTest, HaveEachTextInItsPlace) {
  for (const std::string& name : test::FakeFiles().ListFiles("DATA/LANGUAGE", "")) {
    EXPECT_EQ(FaultOf(name, Bytes(name), english), "");
  }
}

TEST_F(ShippedLanguagesTest, AMissingOrExtraLineIsToldWithItsGroup) {
  for (const std::string name : {"en.dat", "cs.dat"}) {
    std::vector<std::string> lines;
    std::istringstream whole(Bytes(name));
    for (std::string line; std::getline(whole, line);) lines.push_back(line + "\n");
    const auto is_comment = [](const std::string& line) { return line.starts_with("- "); };
    for (auto at = lines.begin(); at != lines.end(); ++at) {
      const auto group = std::find_if(std::make_reverse_iterator(at), lines.rend(), is_comment);
      const auto next = std::find_if(at + 1, lines.end(), is_comment);
      const std::string before = test::Joined({lines.begin(), at}, "");
      const std::string after = test::Joined({at + 1, lines.end()}, "");
      for (const std::string& instead : {std::string(), *at + "\"extra\"\n"}) {
        const std::string fault = FaultOf(name, before + instead + after, english);
        ASSERT_TRUE(fault.starts_with(name + ":")) << *at << fault;
        const auto told = std::stol(fault.substr(name.size() + 1));
        EXPECT_GE(told, lines.rend() - group) << *at << fault;
        EXPECT_LE(told, next - lines.begin() + 2) << *at << fault;
      }
    }
  }
}

TEST_F(ShippedLanguagesTest, KeepApartWhatIsComparedAndEndPrefixesWithABlank) {
  const std::vector<int> groups[] = {{127, 128, 129, 130}, {134, 135, 136, 137},
                                     {145, 146, 183},      {159, 160, 161},
                                     {180, 181, 182},      {137, 145, 146, 183, 135}};
  FakeMachine machine;
  core::basRegistry registry(machine.Services().registry);
  Language shipped(registry, machine.Files(), machine);
  shipped.ListLanguages();
  for (const std::string& file : shipped.LanguageFiles) {
    const std::string name = file.substr(0, file.find('.'));
    machine.Store(test::kOptionsKey, "Language", "REG_SZ " + name);
    Language language(registry, machine.Files(), machine);
    language.LoadLanguage();
    for (const std::vector<int>& group : groups) {
      std::set<std::string> texts;
      for (const int number : group) {
        EXPECT_TRUE(texts.insert(language.LangText[number]).second) << name << " " << number;
      }
    }
    // A number or a name follows these directly.
    for (const int prefix : {92, 93, 94, 95, 101, 104, 109, 110, 118, 123, 165, 168, 169}) {
      EXPECT_TRUE(language.LangText[prefix].ends_with(' ')) << name << " " << prefix;
    }
  }
}

}  // namespace
}  // namespace kestrune::lang
