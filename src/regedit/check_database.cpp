#include "regedit/check_database.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <string>

#include "core/field_reader.h"
#include "core/number.h"
#include "platform/case_fold.h"
#include "regedit/database.h"

namespace kestrune::regedit {

namespace {

constexpr std::size_t kDigits = 4;

void CheckName(std::string_view name, core::Findings& findings) {
  const bool has_tag =
      std::any_of(std::begin(kCategories), std::end(kCategories), [name](const CategoryRow& row) {
        return name.substr(std::min(name.size(), kDigits)) == row.tag;
      });
  const std::string_view digits = name.substr(0, kDigits);
  if (!has_tag || digits.find_first_not_of("0123456789") != digits.npos) {
    findings.push_back(
        {0,
         "its name isn't four digits and then d3d, ogl or sys, so no driver is sure to choose it"});
  } else if (digits.starts_with('0') && digits != "0000") {
    const std::size_t first = digits.find_first_not_of('0');
    findings.push_back({0, "a driver above that release looks for " +
                               std::string(name.substr(first)) + ".dat instead"});
  }
}

class Checker {
 public:
  explicit Checker(std::string_view text) : fields_(text) {}

  void Run(core::Findings& findings) {
    for (std::size_t count = 1; !fields_.AtEnd(); ++count) {
      line_ = fields_.Line();
      CheckRecord(findings);
      if (count == kMostProfileEntries + 1) {
        Add(findings, "profiles save no more than the first " +
                          std::to_string(kMostProfileEntries) + " values");
      }
      if (count == kMostEditorEntries + 1) {
        Add(findings, "no more than " + std::to_string(kMostEditorEntries) + " values are listed");
      }
    }
  }

 private:
  void Add(core::Findings& findings, std::string reason) const {
    findings.push_back({line_, std::move(reason)});
  }

  void CheckRecord(core::Findings& findings) {
    const std::string name = fields_.Next().value_or("");
    if (name.empty()) Add(findings, "a value without a name");
    if (!names_.insert(platform::FoldCase(name)).second)
      Add(findings, name + " stands here a second time");
    bool is_whole = fields_.Next().has_value();
    std::size_t numbers = 0;
    for (auto field = fields_.Next();; field = fields_.Next()) {
      is_whole = is_whole && field;
      if (!field || *field == kTerminator) break;
      ++numbers;
      if (!core::ParseWholeNumber(*field)) {
        Add(findings, "\"" + *field + "\" is no whole number of 32 bits");
      }
    }
    if (numbers > kMostValues) {
      Add(findings, name + " has more than " + std::to_string(kMostValues) + " numbers");
    }
    if (!is_whole) Add(findings, name + " ends without its \"x\"");
  }

  core::FieldReader fields_;
  std::set<std::string> names_;
  int line_ = 0;
};

}  // namespace

core::Findings CheckDatabase(std::string_view base_name, std::string_view text) {
  core::Findings findings;
  CheckName(base_name, findings);
  Checker(text).Run(findings);
  return findings;
}

}  // namespace kestrune::regedit
