#include "wizard/tuning.h"

#include <algorithm>

#include "core/field_reader.h"
#include "core/number.h"
#include "detect/card_data.h"
#include "platform/case_fold.h"

namespace kestrune::wizard {

namespace {

constexpr std::string_view kSeparators = "\\/";

bool HasPartAbove(std::string_view path) {
  while (true) {
    const std::size_t end = std::min(path.find_first_of(kSeparators), path.size());
    if (path.substr(0, end) == "..") return true;
    if (end == path.size()) return false;
    path.remove_prefix(end + 1);
  }
}

}  // namespace

bool LeadsOut(std::string_view entry) {
  if (entry.empty() || entry == ".") return true;
  const bool has_drive = entry.size() > 1 && entry[1] == ':';
  return has_drive || kSeparators.find(entry.front()) != kSeparators.npos || HasPartAbove(entry);
}

std::optional<std::vector<std::string>> ReadIndex(platform::FilesApi& files) {
  const auto bytes = files.ReadBytes(kIndex);
  if (!bytes) return std::nullopt;
  const std::string text = files.DecodeText(*bytes, 0);
  std::vector<std::string> entries;
  for (core::FieldReader reader(text); !reader.AtEnd();) {
    std::string entry = reader.Next().value_or("");
    if (!LeadsOut(entry)) entries.push_back(std::move(entry));
  }
  return entries;
}

std::string CardCode(std::string_view device_id) {
  constexpr std::size_t kDigits = 4;
  if (device_id.size() < kDigits) return {};
  return detect::CardCode(platform::FoldCase(device_id));
}

void TakeFactors(std::string_view text, Factors& factors) {
  core::FieldReader reader(text);
  for (std::int32_t* factor :
       {&factors.unused, &factors.image, &factors.antialiasing, &factors.anisotropy}) {
    const auto number = core::ParseWholeNumber(reader.Next().value_or(""));
    if (number) *factor = number.Value();
  }
}

void ReadFactors(platform::FilesApi& files, std::string_view entry, std::string_view device_id,
                 Factors& factors) {
  std::string path(kFolder);
  path.append(entry).append("\\").append(CardCode(device_id)).append(kEnding);
  const auto bytes = files.ReadBytes(path);
  if (bytes) TakeFactors(files.DecodeText(*bytes, 0), factors);
}

}  // namespace kestrune::wizard
