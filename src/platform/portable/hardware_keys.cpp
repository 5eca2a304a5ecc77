#include "platform/portable/hardware_keys.h"

#include <algorithm>
#include <cstdint>

#include "platform/portable/case_fold.h"

namespace kestrune::platform::portable {
namespace {

constexpr std::string_view kProcessors = "HARDWARE\\DESCRIPTION\\SYSTEM\\CENTRALPROCESSOR";

// Handles that no registry gives out, so that they need no table.
constexpr RegHandle kKeyWithoutValues = 0xFFFF0000;
constexpr RegHandle kProcessorKey = 0xFFFF0001;

bool IsOwn(RegHandle key) { return key == kKeyWithoutValues || key == kProcessorKey; }

StoredValue Text(const std::string& name, const std::string& text) {
  const auto* bytes = reinterpret_cast<const std::byte*>(text.c_str());
  return {name, RegType::kSz, {bytes, bytes + text.size() + 1}};
}

StoredValue Dword(const std::string& name, int number) {
  StoredValue value{name, RegType::kDword, {}};
  for (int shift = 0; shift < 32; shift += 8) {
    value.data.push_back(static_cast<std::byte>(static_cast<std::uint32_t>(number) >> shift));
  }
  return value;
}

}  // namespace

RegStatus HardwareKeys::OpenKey(RegRoot root, std::string_view path, RegHandle& key) {
  bool has_values = false;
  const Place place = PlaceOf(root, path, has_values);
  if (place == Place::kNowhere) return RegStatus::kNotFound;
  if (place != Place::kHere) {
    const RegStatus status = registry_.OpenKey(root, path, key);
    if (place == Place::kElsewhere || status != RegStatus::kNotFound) return status;
  }
  key = has_values ? kProcessorKey : kKeyWithoutValues;
  return RegStatus::kSuccess;
}

RegStatus HardwareKeys::CreateKey(RegRoot root, std::string_view path, RegHandle& key) {
  bool has_values = false;
  const Place place = PlaceOf(root, path, has_values);
  if (place == Place::kNowhere) return RegStatus::kAccessDenied;
  if (place != Place::kHere) return registry_.CreateKey(root, path, key);
  key = has_values ? kProcessorKey : kKeyWithoutValues;
  return RegStatus::kSuccess;
}

RegStatus HardwareKeys::QueryValue(RegHandle key, std::string_view name, RegType& type,
                                   std::size_t& size, std::span<std::byte> data) {
  if (!IsOwn(key)) return registry_.QueryValue(key, name, type, size, data);
  if (key == kKeyWithoutValues) return RegStatus::kNotFound;
  for (const StoredValue& value : values_) {
    if (!SameWithoutCase(value.name, name)) continue;
    type = value.type;
    size = value.data.size();
    if (data.data() == nullptr) return RegStatus::kSuccess;
    if (data.size() < size) return RegStatus::kMoreData;
    std::copy(value.data.begin(), value.data.end(), data.begin());
    return RegStatus::kSuccess;
  }
  return RegStatus::kNotFound;
}

RegStatus HardwareKeys::SetValue(RegHandle key, std::string_view name, RegType type,
                                 std::span<const std::byte> data) {
  return IsOwn(key) ? RegStatus::kAccessDenied : registry_.SetValue(key, name, type, data);
}

RegStatus HardwareKeys::DeleteValue(RegHandle key, std::string_view name) {
  return IsOwn(key) ? RegStatus::kAccessDenied : registry_.DeleteValue(key, name);
}

void HardwareKeys::CloseKey(RegHandle key) {
  if (!IsOwn(key)) registry_.CloseKey(key);
}

/// Where a path lies: away from the processors, above them, on one of their keys, or below them
/// where there is nothing.
HardwareKeys::Place HardwareKeys::PlaceOf(RegRoot root, std::string_view path, bool& has_values) {
  constexpr std::string_view kFirst = "HARDWARE";
  if (root != RegRoot::kLocalMachine || !SameWithoutCase(path.substr(0, kFirst.size()), kFirst)) {
    return Place::kElsewhere;
  }
  std::string folded = FoldCase(path);
  if (folded.ends_with('\\')) folded.pop_back();
  const auto is_within = [](std::string_view outer, std::string_view inner) {
    return inner.starts_with(outer) &&
           (inner.size() == outer.size() || inner[outer.size()] == '\\');
  };
  if (!is_within(kProcessors, folded)) {
    return is_within(folded, kProcessors) ? Place::kAbove : Place::kElsewhere;
  }
  if (folded.size() == kProcessors.size()) return Place::kHere;
  LoadValues();
  const std::string_view number = std::string_view(folded).substr(kProcessors.size() + 1);
  for (int i = 0; i < *count_; ++i) {
    if (number == std::to_string(i)) return has_values = true, Place::kHere;
  }
  return Place::kNowhere;
}

void HardwareKeys::LoadValues() {
  if (count_) return;
  const DescribedProcessor processor = ask_processor_();
  count_ = processor.count.value_or(1);
  if (processor.mhz) values_.push_back(Dword("~MHz", *processor.mhz));
  if (processor.identifier) values_.push_back(Text("Identifier", *processor.identifier));
  if (processor.vendor) values_.push_back(Text("VendorIdentifier", *processor.vendor));
  if (processor.name) values_.push_back(Text("ProcessorNameString", *processor.name));
}

}  // namespace kestrune::platform::portable
