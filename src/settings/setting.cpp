#include "settings/setting.h"

#include <algorithm>

namespace kestrune::settings {

namespace {

template <typename Test>
const Choice* FindIf(const Setting& row, Test test) {
  const auto found = std::find_if(row.choices.begin(), row.choices.end(), test);
  return found == row.choices.end() ? nullptr : &*found;
}

CodeMatch MatchIn(const Setting& row, int code, std::int32_t argument) {
  const Choice* choice = FindIf(row, [&](const Choice& each) {
    return each.call && !each.call->through && each.call->Matches(code, argument);
  });
  if (choice != nullptr) return {&row, choice};
  if (row.number_code == code) return {&row, nullptr};
  return {};
}

bool IsWritten(const Setting& row, const Choice& choice) {
  if (choice.call) return true;
  return std::none_of(row.choices.begin(), row.choices.end(),
                      [](const Choice& each) { return each.call.has_value(); });
}

}  // namespace

CodeMatch FindCode(std::span<const Setting> settings, Writer writer, int code,
                   std::int32_t argument, int driver) {
  for (const Setting& newest : settings) {
    if (newest.writer != writer) continue;
    const Setting& row = newest.For(driver);
    if (const CodeMatch match = MatchIn(row, code, argument)) return match;
    // Some codes store the newest value on every driver.
    if (const CodeMatch match = MatchIn(newest, code, argument)) return match;
  }
  return {};
}

Change ChangeOf(const CodeMatch& match, std::int32_t argument, int driver) {
  const Setting& row = *match.row;
  const std::optional<std::int32_t> number =
      match.choice != nullptr ? match.choice->number : std::optional(argument);
  std::string_view name = driver < row.old_name_below ? row.old_name : row.name;
  if (!number && !row.deleted_name.empty()) name = row.deleted_name;
  return {name, number, row.place};
}

std::optional<Change> ChangeOf(std::span<const CodeRow> codes, int code, std::int32_t argument) {
  const auto found = std::find_if(codes.begin(), codes.end(),
                                  [code](const CodeRow& row) { return row.code == code; });
  if (found == codes.end()) return std::nullopt;
  return Change{found->name, found->stores_argument ? std::optional(argument) : found->number,
                found->place};
}

const Choice* ChoiceOf(const Setting& row, std::optional<std::int32_t> number) {
  return FindIf(row, [number](const Choice& choice) { return choice.number == number; });
}

const Choice* ShownChoice(const Setting& row, std::optional<std::int32_t> number) {
  return ChoiceOf(row, number ? number : row.not_set);
}

const Choice* FindChoice(const Setting& row, std::string_view text,
                         const lang::LangTable& lang_text) {
  return FindIf(row, [&](const Choice& choice) {
    if (!IsWritten(row, choice)) return false;
    return choice.text.In(lang_text) == text || (!choice.also.empty() && choice.also == text);
  });
}

std::vector<const Choice*> Offered(const Setting& row, int driver, int card_level) {
  std::vector<const Choice*> offered;
  for (const Choice& choice : row.choices) {
    const bool has_driver = choice.above_driver == 0 || driver > choice.above_driver;
    const bool has_card = choice.card_level < kNeverListed && choice.card_level <= card_level;
    if (IsWritten(row, choice) && has_driver && has_card) offered.push_back(&choice);
  }
  return offered;
}

}  // namespace kestrune::settings
