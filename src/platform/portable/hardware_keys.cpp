#include "platform/portable/hardware_keys.h"

#include <algorithm>
#include <utility>

#include "platform/case_fold.h"
#include "platform/dword.h"
#include "platform/parse_number.h"
#include "platform/reg_text.h"
#include "platform/value_text.h"

namespace kestrune::platform::portable {
namespace {

constexpr std::string_view kLevels[] = {"HARDWARE", "DESCRIPTION", "System", "CentralProcessor"};
constexpr std::string_view kProcessors = "HARDWARE\\DESCRIPTION\\SYSTEM\\CENTRALPROCESSOR";

StoredValue Text(const std::string& name, const std::string& text) {
  return {name, RegType::kSz, TextData(text)};
}

StoredValue Dword(const std::string& name, int number) {
  const auto bytes = DwordBytes(number);
  return {name, RegType::kDword, {bytes.begin(), bytes.end()}};
}

bool IsWithin(std::string_view outer, std::string_view inner) {
  return outer.empty() || (inner.starts_with(outer) &&
                           (inner.size() == outer.size() || inner[outer.size()] == '\\'));
}

/// How many names a path has.
std::size_t DepthOf(std::string_view path) {
  path = WithoutLastBackslash(path);
  const auto separators = static_cast<std::size_t>(std::count(path.begin(), path.end(), '\\'));
  return path.empty() ? 0 : separators + 1;
}

}  // namespace

RegStatus HardwareKeys::OpenKey(RegRoot root, std::string_view path, RegHandle& key) {
  const Place place = PlaceOf(root, path);
  if (place == Place::kNowhere) return RegStatus::kNotFound;
  if (place == Place::kElsewhere || place == Place::kAbove) {
    const RegStatus status = RegistryWrapper::OpenKey(root, path, key);
    if (place == Place::kElsewhere || status != RegStatus::kNotFound) return status;
  }
  key = Keep(root, path, 0);
  return RegStatus::kSuccess;
}

RegStatus HardwareKeys::CreateKey(RegRoot root, std::string_view path, RegHandle& key) {
  if (!IsHardwareDescription(root, path)) return RegistryWrapper::CreateKey(root, path, key);
  const RegStatus status = OpenKey(root, path, key);
  return status == RegStatus::kNotFound ? RegStatus::kAccessDenied : status;
}

RegStatus HardwareKeys::QueryValue(RegHandle key, std::string_view name, RegType& type,
                                   std::size_t& size, std::span<std::byte> data) {
  if (!IsOwn(key)) return RegistryWrapper::QueryValue(key, name, type, size, data);
  for (const StoredValue& value : OwnValues(key)) {
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
  if (IsHeld(key)) return RegStatus::kAccessDenied;
  return RegistryWrapper::SetValue(key, name, type, data);
}

RegStatus HardwareKeys::DeleteValue(RegHandle key, std::string_view name) {
  return IsHeld(key) ? RegStatus::kAccessDenied : RegistryWrapper::DeleteValue(key, name);
}

RegStatus HardwareKeys::SetDefaultValue(RegRoot root, std::string_view path,
                                        std::string_view text) {
  if (IsHardwareDescription(root, path)) return RegStatus::kAccessDenied;
  return RegistryWrapper::SetDefaultValue(root, path, text);
}

RegStatus HardwareKeys::DeleteKey(RegRoot root, std::string_view path) {
  const Place place = PlaceOf(root, path);
  if (place == Place::kNowhere) return RegStatus::kNotFound;
  return place == Place::kElsewhere && !IsHardwareDescription(root, path)
             ? RegistryWrapper::DeleteKey(root, path)
             : RegStatus::kAccessDenied;
}

RegStatus HardwareKeys::ListKeys(RegHandle key, std::vector<std::string>& names) {
  const OpenedKey* opened = Opened(key);
  if (opened == nullptr) return RegStatus::kInvalidHandle;
  std::vector<std::string> all;
  if (opened->inner != 0) {
    const RegStatus status = RegistryWrapper::ListKeys(key, all);
    if (status != RegStatus::kSuccess) return status;
  }
  for (std::string& own : OwnKeys(opened->address)) {
    const bool is_there = std::any_of(all.begin(), all.end(), [&own](const std::string& name) {
      return SameWithoutCase(name, own);
    });
    if (!is_there) all.push_back(std::move(own));
  }
  std::sort(all.begin(), all.end(), [](const std::string& left, const std::string& right) {
    return FoldCase(left) < FoldCase(right);
  });
  names = std::move(all);
  return RegStatus::kSuccess;
}

RegStatus HardwareKeys::ListValues(RegHandle key, std::vector<StoredValue>& values) {
  if (!IsOwn(key)) return RegistryWrapper::ListValues(key, values);
  values = OwnValues(key);
  return RegStatus::kSuccess;
}

bool HardwareKeys::IsOwn(RegHandle key) {
  const OpenedKey* opened = Opened(key);
  return opened != nullptr && opened->inner == 0;
}

bool HardwareKeys::IsHeld(RegHandle key) {
  const OpenedKey* opened = Opened(key);
  return IsOwn(key) ||
         (opened != nullptr && IsHardwareDescription(opened->address.root, opened->address.path));
}

std::vector<StoredValue> HardwareKeys::OwnValues(RegHandle key) {
  const KeyAddress& address = Opened(key)->address;
  if (PlaceOf(address.root, address.path) != Place::kProcessor) return {};
  const std::string_view path = WithoutLastBackslash(address.path);
  return processors_[*ParseWhole<std::size_t>(path.substr(path.rfind('\\') + 1))];
}

/// The names below a key that no registry behind needs to have.
std::vector<std::string> HardwareKeys::OwnKeys(const KeyAddress& address) {
  const Place place = PlaceOf(address.root, address.path);
  if (place == Place::kAbove) return {std::string(kLevels[DepthOf(address.path)])};
  std::vector<std::string> numbers;
  if (place != Place::kProcessors) return numbers;
  LoadValues();
  for (std::size_t i = 0; i < processors_.size(); ++i) numbers.push_back(std::to_string(i));
  return numbers;
}

HardwareKeys::Place HardwareKeys::PlaceOf(RegRoot root, std::string_view path) {
  constexpr std::string_view kFirst = kLevels[0];
  if (root != RegRoot::kLocalMachine) return Place::kElsewhere;
  if (path.empty()) return Place::kAbove;
  if (!SameWithoutCase(path.substr(0, kFirst.size()), kFirst)) return Place::kElsewhere;
  const std::string whole = FoldCase(path);
  const std::string_view folded = WithoutLastBackslash(whole);
  if (folded == kProcessors) return Place::kProcessors;
  if (IsWithin(folded, kProcessors)) return Place::kAbove;
  if (!IsWithin(kProcessors, folded)) return Place::kElsewhere;
  LoadValues();
  const std::string_view number = folded.substr(kProcessors.size() + 1);
  for (std::size_t i = 0; i < processors_.size(); ++i) {
    if (number == std::to_string(i)) return Place::kProcessor;
  }
  return Place::kNowhere;
}

void HardwareKeys::LoadValues() {
  if (!ask_processor_) return;
  const DescribedProcessor processor = std::exchange(ask_processor_, nullptr)();
  if (!processor.count) return;
  // One that is described is there, whatever is said of their number.
  const auto count = static_cast<std::size_t>(std::max(*processor.count, 1));
  for (std::size_t i = 0; i < count; ++i) {
    std::vector<StoredValue>& values = processors_.emplace_back();
    if (processor.identifier) values.push_back(Text("Identifier", *processor.identifier));
    if (processor.names) {
      const bool is_named = i < processor.names->size();
      values.push_back(Text("ProcessorNameString", is_named ? (*processor.names)[i] : ""));
    }
    if (processor.vendor) values.push_back(Text("VendorIdentifier", *processor.vendor));
    if (processor.mhz) values.push_back(Dword("~MHz", *processor.mhz));
  }
}

}  // namespace kestrune::platform::portable
