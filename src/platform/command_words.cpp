#include "platform/command_words.h"

#include <algorithm>

#include "platform/case_fold.h"

namespace kestrune::platform {

namespace {

constexpr std::string_view kBlanks = " \t";

bool IsBlank(char c) { return kBlanks.find(c) != kBlanks.npos; }

std::string WithoutQuotes(std::string_view text) {
  std::string plain(text);
  std::erase(plain, '"');
  return plain;
}

}  // namespace

std::vector<std::string> SplitCommandLine(std::string_view command_line) {
  std::vector<std::string> words;
  bool in_word = false;
  bool in_quotes = false;
  for (const char c : command_line) {
    if (!in_quotes && IsBlank(c)) {
      in_word = false;
      continue;
    }
    if (!in_word) words.emplace_back();
    in_word = true;
    if (c == '"') {
      in_quotes = !in_quotes;
    } else {
      words.back().push_back(c);
    }
  }
  return words;
}

bool IsReloadCommand(std::string_view command_line) {
  const std::vector<std::string> words = SplitCommandLine(command_line);
  return !words.empty() && (SameWithoutCase(words.front(), "rundll32") ||
                            SameWithoutCase(words.front(), "rundll32.exe"));
}

std::vector<CommandBeginning> BeginningsOf(std::string_view command_line, std::size_t longest) {
  command_line.remove_prefix(
      std::min(command_line.find_first_not_of(kBlanks), command_line.size()));
  std::vector<CommandBeginning> beginnings;
  bool in_quotes = false;
  for (std::size_t at = 0; at <= std::min(command_line.size(), longest); ++at) {
    const bool is_end = at == command_line.size();
    if (!is_end && command_line[at] == '"') in_quotes = !in_quotes;
    if (!is_end && (in_quotes || !IsBlank(command_line[at]))) continue;
    beginnings.push_back({WithoutQuotes(command_line.substr(0, at)), command_line.substr(at)});
  }
  return beginnings;
}

}  // namespace kestrune::platform
