#include "regedit/database.h"

#include <algorithm>
#include <iterator>

#include "core/field_reader.h"
#include "core/number.h"
#include "platform/parse_number.h"

namespace kestrune::regedit {

namespace {

constexpr std::string_view kEnding = ".dat";
constexpr std::string_view kFallBack = "0000";
constexpr std::size_t kMostFiles = 65;

/// The release that a base name begins with; four digits alone are one.
std::optional<int> ReleaseOf(std::string_view name) {
  const std::string_view digits = name.substr(0, kFallBack.size());
  if (digits.size() < kFallBack.size() || digits.find_first_not_of("0123456789") != digits.npos) {
    return std::nullopt;
  }
  return platform::ParseWhole<int>(digits);
}

std::vector<std::string> BaseNames(platform::FilesApi& files, std::string_view tag) {
  std::vector<std::string> names;
  for (std::string& name : files.ListFiles(kDatabaseFolder, kEnding)) {
    name.resize(name.size() - kEnding.size());
    if (name.ends_with(tag) && names.size() < kMostFiles) names.push_back(std::move(name));
  }
  return names;
}

/// Reads what a record holds behind its name and description. A record that the end of the file
/// cuts off keeps what was read.
std::vector<std::int32_t> ReadValues(core::FieldReader& reader) {
  std::vector<std::int32_t> values;
  for (auto field = reader.Next(); field && *field != kTerminator; field = reader.Next()) {
    if (values.size() == kMostValues) continue;
    const auto number = core::ParseWholeNumber(*field);
    values.push_back(number ? number.Value() : 0);
  }
  return values;
}

}  // namespace

const CategoryRow& RowOf(Category category) {
  return *std::find_if(std::begin(kCategories), std::end(kCategories),
                       [category](const CategoryRow& row) { return row.category == category; });
}

std::string FindDatabaseFile(platform::FilesApi& files, Category category, int driver) {
  const std::string_view tag = RowOf(category).tag;
  int nearest = 0;
  for (const std::string& name : BaseNames(files, tag)) {
    const std::optional<int> release = ReleaseOf(name);
    if (!release) continue;
    if (*release == driver) return name;
    if (*release < driver) nearest = std::max(nearest, *release);
  }
  // The number alone: a release below 10.00 names a file without its leading zeros.
  return (nearest > 0 ? std::to_string(nearest) : std::string(kFallBack)).append(tag);
}

std::optional<std::vector<DatabaseEntry>> LoadDatabaseFile(platform::FilesApi& files,
                                                           std::string_view base_name,
                                                           std::size_t most) {
  const auto bytes =
      files.ReadBytes(std::string(kDatabaseFolder).append(base_name).append(kEnding));
  if (!bytes) return std::nullopt;
  const std::string text = files.DecodeText(*bytes, 0);
  std::vector<DatabaseEntry> entries;
  for (core::FieldReader reader(text); !reader.AtEnd() && entries.size() < most;) {
    std::string name = reader.Next().value_or("");
    std::string description = reader.Next().value_or("");
    entries.push_back({std::move(name), std::move(description), ReadValues(reader)});
  }
  return entries;
}

Database OpenDatabase(platform::FilesApi& files, Category category, int driver, std::size_t most) {
  std::string file = FindDatabaseFile(files, category, driver);
  auto entries = LoadDatabaseFile(files, file, most);
  return {std::move(file), std::move(entries)};
}

std::vector<std::int32_t> SuggestedValues(const DatabaseEntry& entry) {
  std::vector<std::int32_t> slots = entry.values;
  slots.resize(kMostValues);
  const auto first = std::find(slots.begin(), slots.end(), 0);
  if (first != slots.end()) slots.erase(std::find(first + 1, slots.end(), 0), slots.end());
  return slots;
}

}  // namespace kestrune::regedit
