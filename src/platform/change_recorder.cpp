#include "platform/change_recorder.h"

#include "platform/case_fold.h"
#include "platform/open_key.h"

namespace kestrune::platform {

std::optional<StoredValue> ChangeRecorder::Now(const KeyAddress& key, std::string_view name) {
  platform::OpenKey opened(Inner());
  StoredValue value{.name = std::string(name), .data = {}};
  std::size_t size = 0;
  if (opened.Open(key.root, key.path) != RegStatus::kSuccess ||
      Inner().QueryValue(opened.Handle(), name, value.type, size, {}) != RegStatus::kSuccess) {
    return std::nullopt;
  }
  // Data of no bytes has nowhere to go.
  value.data.resize(size);
  if (size > 0 && Inner().QueryValue(opened.Handle(), name, value.type, size, value.data) !=
                      RegStatus::kSuccess) {
    return std::nullopt;
  }
  return value;
}

void ChangeRecorder::See(const KeyAddress& key, std::string_view name) {
  const auto [seen, is_new] =
      seen_.try_emplace({FoldCase(KeyText(key.root, key.path)), FoldCase(name)});
  if (is_new) seen->second = {key, std::string(name), Now(key, name)};
}

RegStatus ChangeRecorder::SetValue(RegHandle key, std::string_view name, RegType type,
                                   std::span<const std::byte> data) {
  if (const OpenedKey* opened = Opened(key)) See(opened->address, name);
  return RegistryWrapper::SetValue(key, name, type, data);
}

RegStatus ChangeRecorder::DeleteValue(RegHandle key, std::string_view name) {
  if (const OpenedKey* opened = Opened(key)) See(opened->address, name);
  return RegistryWrapper::DeleteValue(key, name);
}

RegStatus ChangeRecorder::SetDefaultValue(RegRoot root, std::string_view path,
                                          std::string_view text) {
  See({root, std::string(path)}, "");
  return RegistryWrapper::SetDefaultValue(root, path, text);
}

std::vector<ChangedValue> ChangeRecorder::Changes() {
  std::vector<ChangedValue> changes;
  for (const auto& [place, seen] : seen_) {
    std::optional<StoredValue> after = Now(seen.key, seen.name);
    if (after != seen.before)
      changes.push_back({seen.key, seen.name, seen.before, std::move(after)});
  }
  return changes;
}

}  // namespace kestrune::platform
