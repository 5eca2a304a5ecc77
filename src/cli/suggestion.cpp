#include "cli/suggestion.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace kestrune::cli {

namespace {

constexpr std::size_t kMostSuggestions = 3;

/// How many letters it takes to turn one text into another.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j < row.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
    }
  }
  return row.back();
}

std::string_view LastPart(std::string_view name) { return name.substr(name.rfind('.') + 1); }

}  // namespace

std::string Suggestion(std::string_view wrong, std::vector<std::string_view> names) {
  const auto difference = [wrong](std::string_view name) {
    return std::pair(Distance(LastPart(wrong), LastPart(name)), Distance(wrong, name));
  };
  std::stable_sort(names.begin(), names.end(),
                   [&difference](std::string_view a, std::string_view b) {
                     return difference(a) < difference(b);
                   });
  if (names.size() > kMostSuggestions) names.resize(kMostSuggestions);
  std::string text;
  for (const std::string_view name : names) {
    text += (text.empty() ? "; nearest: " : ", ") + std::string(name);
  }
  return text;
}

}  // namespace kestrune::cli
