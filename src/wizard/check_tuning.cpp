#include "wizard/check_tuning.h"

#include "core/field_reader.h"
#include "core/number.h"
#include "platform/case_fold.h"
#include "wizard/tuning.h"

namespace kestrune::wizard {

namespace {

/// Why an entry is none, or the cards for which its folder has no file.
std::string WrongEntry(const std::string& entry, const std::set<std::string>& cards,
                       const EntryFiles& files_of) {
  if (entry.empty()) return "an entry without a name";
  if (LeadsOut(entry)) return "the entry \"" + entry + "\" leads out of the folder";
  std::set<std::string> names;
  for (const std::string& name : files_of(entry)) names.insert(platform::FoldCase(name));
  if (names.empty()) return "the entry \"" + entry + "\" has no folder with files";
  std::string missing;
  for (const std::string& card : cards) {
    if (!names.contains(platform::FoldCase(card + std::string(kEnding)))) missing += " " + card;
  }
  return missing.empty() ? "" : "the entry \"" + entry + "\" has no file for the cards" + missing;
}

}  // namespace

platform::Findings CheckIndex(std::string_view text, const std::set<std::string>& cards,
                              const EntryFiles& files_of) {
  platform::Findings findings;
  std::set<std::string> entries;
  core::FieldReader fields(text);
  if (fields.AtEnd()) findings.push_back({0, "it is empty"});
  while (!fields.AtEnd()) {
    const int line = fields.Line();
    const std::string entry = *fields.Next();
    std::string reason = WrongEntry(entry, cards, files_of);
    if (!entries.insert(platform::FoldCase(entry)).second) {
      reason = "the entry \"" + entry + "\" stands here a second time";
    }
    if (!reason.empty()) findings.push_back({line, std::move(reason)});
  }
  return findings;
}

platform::Findings CheckTuning(std::string_view text) {
  constexpr int kNumbers = 4;
  platform::Findings findings;
  core::FieldReader fields(text);
  int count = 0;
  for (; !fields.AtEnd() && count <= kNumbers; ++count) {
    const int line = fields.Line();
    const std::string field = *fields.Next();
    if (count == kNumbers) {
      findings.push_back({line, "there are more than four numbers"});
    } else if (!core::ParseWholeNumber(field)) {
      findings.push_back({line, '"' + field + "\" is no whole number of 32 bits"});
    }
  }
  if (count < kNumbers) findings.push_back({fields.Line(), "there are fewer than four numbers"});
  return findings;
}

}  // namespace kestrune::wizard
