// Whether the language files keep to the words of docs/glossary.md.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>

#include "fake_machine.h"
#include "lang/language.h"
#include "platform/case_fold.h"
#include "read_all.h"

namespace kestrune::lang {
namespace {

std::vector<std::string> Split(const std::string& text, const std::string& between) {
  std::vector<std::string> parts;
  std::size_t from = 0;
  for (std::size_t at = 0; (at = text.find(between, from)) != std::string::npos;) {
    parts.push_back(text.substr(from, at - from));
    from = at + between.size();
  }
  parts.push_back(text.substr(from));
  return parts;
}

/// The cells of a table's row, without the blanks around them.
std::vector<std::string> Cells(const std::string& line) {
  std::vector<std::string> cells = Split(line, "|");
  for (std::string& cell : cells) {
    cell.erase(0, cell.find_first_not_of(' '));
    cell.erase(cell.find_last_not_of(' ') + 1);
  }
  // Before the first and behind the last bar stands nothing.
  return {cells.begin() + 1, cells.end() - 1};
}

/// The table: a row of headings (the term, its texts, the languages' names), a rule, the terms.
std::vector<std::vector<std::string>> Table() {
  std::vector<std::vector<std::string>> rows;
  std::istringstream document(platform::ReadAll(KESTRUNE_DATA_FOLDER "/../docs/glossary.md"));
  for (std::string line; std::getline(document, line);) {
    if (line.starts_with("|") && !line.starts_with("|-")) rows.push_back(Cells(line));
  }
  return rows;
}

bool ContainsOneOf(const std::string& text, const std::string& forms) {
  const std::vector<std::string> each = Split(forms, " / ");
  return std::any_of(each.begin(), each.end(), [text](const std::string& form) {
    return platform::FoldCase(text).find(platform::FoldCase(form)) != std::string::npos;
  });
}

TEST(GlossaryTest, EveryLanguageKeepsToItsWords) {
  constexpr std::size_t kLanguagesFrom = 2;
  constexpr std::size_t kFewestTerms = 40;
  const auto table = Table();
  ASSERT_GT(table.size(), kFewestTerms);
  const std::vector<std::string>& heading = table.front();
  std::set<std::string> missing;
  for (const auto& file :
       std::filesystem::directory_iterator(KESTRUNE_DATA_FOLDER "/DATA/LANGUAGE")) {
    missing.insert(file.path().stem().string());
  }
  missing.erase("en");
  for (std::size_t column = kLanguagesFrom; column < heading.size(); ++column) {
    test::FakeMachine machine;
    core::basRegistry registry(machine.Services().registry);
    machine.Store(test::kOptionsKey, "Language", "REG_SZ " + heading[column]);
    Language language(registry, machine.Files(), machine);
    language.LoadLanguage();
    EXPECT_EQ(missing.erase(heading[column]), 1U) << heading[column];
    for (auto row = table.begin() + 1; row != table.end(); ++row) {
      ASSERT_EQ(row->size(), heading.size()) << row->front();
      ASSERT_FALSE((*row)[column].empty()) << row->front() << " in " << heading[column];
      for (const std::string& number : Split((*row)[1], " ")) {
        const std::string& text = language.LangText[std::stoi(number)];
        EXPECT_TRUE(ContainsOneOf(text, (*row)[column]))
            << heading[column] << " " << number << " \"" << text << "\" has none of "
            << (*row)[column];
      }
    }
  }
  EXPECT_TRUE(missing.empty()) << *missing.begin() << " is not in the table";
}

}  // namespace
}  // namespace kestrune::lang
