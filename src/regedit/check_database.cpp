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

const CategoryRow* CategoryOf(std::string_view tag) {
  const auto* row = std::find_if(
      std::begin(kCategories), std::end(kCategories),
      [tag](const CategoryRow& each) { return platform::SameWithoutCase(each.tag, tag); });
  return row == std::end(kCategories) ? nullptr : row;
}

/// Says what is wrong with a file's name; the category that it stands for, where it does.
const CategoryRow* CheckName(std::string_view name, platform::Findings& findings) {
  const std::string_view digits = name.substr(0, kDigits);
  const std::string_view tag = name.substr(std::min(name.size(), kDigits));
  const CategoryRow* category = CategoryOf(tag);
  if (category == nullptr || digits.find_first_not_of("0123456789") != digits.npos) {
    findings.push_back(
        {0,
         "its name isn't four digits and then d3d, ogl or sys, so no driver is sure to choose it"});
  } else if (tag != category->tag) {
    findings.push_back({0, "no driver chooses it, since " + std::string(tag) + " isn't spelled " +
                               std::string(category->tag)});
  } else if (digits.starts_with('0') && digits != "0000") {
    const std::size_t first = digits.find_first_not_of('0');
    findings.push_back({0, "a driver above that release looks for " +
                               std::string(name.substr(first)) + ".dat instead"});
  }
  return category;
}

class Checker {
 public:
  Checker(std::string_view text, const CategoryRow* category)
      : fields_(text), prefix_(category != nullptr ? category->prefix : "") {}

  void Run(platform::Findings& findings) {
    if (fields_.AtEnd()) findings.push_back({0, "it is empty"});
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
  void Add(platform::Findings& findings, std::string reason) const {
    findings.push_back({line_, std::move(reason)});
  }

  void CheckRecord(platform::Findings& findings) {
    const std::string name = fields_.Next().value_or("");
    const bool has_prefix = platform::SameWithoutCase(name.substr(0, prefix_.size()), prefix_);
    if (name.empty()) {
      Add(findings, "a value without a name");
    } else if (!has_prefix) {
      Add(findings, name + " doesn't begin with " + std::string(prefix_));
    }
    if (!names_.insert(platform::FoldCase(name)).second)
      Add(findings, name + " stands here a second time");
    const auto description = fields_.Next();
    bool is_whole = description.has_value();
    if (is_whole && (description->empty() || *description == kNoDescription)) {
      Add(findings, name + " has no description");
    }
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
  std::string_view prefix_;
  std::set<std::string> names_;
  int line_ = 0;
};

}  // namespace

platform::Findings CheckDatabase(std::string_view base_name, std::string_view text) {
  platform::Findings findings;
  const CategoryRow* category = CheckName(base_name, findings);
  Checker(text, category).Run(findings);
  return findings;
}

}  // namespace kestrune::regedit
