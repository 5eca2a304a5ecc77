#include "platform/memory_registry.h"

#include <algorithm>
#include <utility>

#include "platform/case_fold.h"
#include "platform/key_address.h"
#include "platform/open_key.h"
#include "platform/registry_limits.h"
#include "platform/value_text.h"

namespace kestrune::platform {

MemoryRegistry::MemoryRegistry() {
  for (const RegRoot root :
       {RegRoot::kClassesRoot, RegRoot::kCurrentUser, RegRoot::kLocalMachine}) {
    Add(std::string(LongRootName(root)), root, "");
  }
}

RegStatus MemoryRegistry::Fetch(RegRoot, const std::string&, std::vector<std::string>&,
                                std::vector<StoredValue>&) {
  return RegStatus::kSuccess;
}

/// Goes up to the first key that there is and down again, since a key may be learned of only when
/// the one above it is looked into.
RegStatus MemoryRegistry::Find(std::string_view folded, Key*& key) {
  std::size_t end = folded.size();
  auto found = content_.keys.find(folded);
  while (found == content_.keys.end()) {
    end = folded.rfind('\\', end - 1);
    found = content_.keys.find(folded.substr(0, end));
  }
  while (true) {
    const RegStatus status = Learn(folded.substr(0, end), found->second);
    if (status != RegStatus::kSuccess) return status;
    if (end == folded.size()) break;
    end = std::min(folded.find('\\', end + 1), folded.size());
    found = content_.keys.find(folded.substr(0, end));
    if (found == content_.keys.end()) return RegStatus::kNotFound;
  }
  key = &found->second;
  return RegStatus::kSuccess;
}

RegStatus MemoryRegistry::Learn(std::string_view folded, Key& key) {
  if (key.is_known) return RegStatus::kSuccess;
  std::vector<std::string> names;
  std::vector<StoredValue> values;
  const RegStatus status = Fetch(key.root, key.path, names, values);
  if (status != RegStatus::kSuccess) return status;
  const std::string before = key.path.empty() ? "" : key.path + "\\";
  for (const std::string& name : names) {
    Add(std::string(folded) + "\\" + FoldCase(name), key.root, before + name);
  }
  for (StoredValue& value : values) {
    std::string folded_name = FoldCase(value.name);
    key.values.emplace(std::move(folded_name), std::move(value));
  }
  key.is_known = true;
  return RegStatus::kSuccess;
}

/// A key that may be there already.
MemoryRegistry::Key& MemoryRegistry::Add(std::string folded, RegRoot root, std::string_view path) {
  const auto [place, is_new] = content_.keys.try_emplace(std::move(folded));
  if (is_new) place->second = {.number = ++last_number_, .root = root, .path = std::string(path)};
  return place->second;
}

RegStatus MemoryRegistry::FindOrAdd(RegRoot root, std::string_view path, std::string& folded,
                                    Key*& key) {
  RegStatus status = FoldKeyPath(root, path, folded);
  if (status == RegStatus::kSuccess) status = Find(folded, key);
  if (status != RegStatus::kNotFound) return status;
  if (KeyFault(path) != nullptr) return RegStatus::kInvalidParameter;
  if (doomed_) return RegStatus::kWriteFault;
  std::size_t folded_end = folded.find('\\');
  for (std::size_t end = 0; end != path.npos;) {
    end = path.find('\\', end + 1);
    folded_end = folded.find('\\', folded_end + 1);
    key = &Add(folded.substr(0, folded_end), root, path.substr(0, end));
    key->is_known = true;
  }
  return RegStatus::kSuccess;
}

RegStatus MemoryRegistry::OpenKey(RegRoot root, std::string_view path, RegHandle& key) {
  std::string folded;
  Key* found = nullptr;
  RegStatus status = FoldKeyPath(root, path, folded);
  if (status == RegStatus::kSuccess) status = Find(folded, found);
  if (status == RegStatus::kSuccess) key = Keep(std::move(folded), *found);
  return status;
}

RegStatus MemoryRegistry::CreateKey(RegRoot root, std::string_view path, RegHandle& key) {
  std::string folded;
  Key* found = nullptr;
  const RegStatus status = FindOrAdd(root, path, folded, found);
  if (status == RegStatus::kSuccess) key = Keep(std::move(folded), *found);
  return status;
}

RegHandle MemoryRegistry::Keep(std::string folded, const Key& key) {
  RegHandle handle = 0;
  opened_.Add(handle) = {std::move(folded), key.number, groups_open_ > 0};
  return handle;
}

RegStatus MemoryRegistry::KeyOf(RegHandle handle, Key*& key) {
  const Opened* opened = opened_.Find(handle);
  if (opened == nullptr || opened->number == 0) return RegStatus::kInvalidHandle;
  const auto found = content_.keys.find(opened->folded);
  if (found == content_.keys.end() || found->second.number != opened->number) {
    return RegStatus::kKeyDeleted;
  }
  key = &found->second;
  return RegStatus::kSuccess;
}

RegStatus MemoryRegistry::QueryValue(RegHandle handle, std::string_view name, RegType& type,
                                     std::size_t& size, std::span<std::byte> data) {
  Key* key = nullptr;
  const RegStatus status = KeyOf(handle, key);
  if (status != RegStatus::kSuccess) return status;
  const auto value = key->values.find(FoldCase(name));
  if (value == key->values.end()) return RegStatus::kNotFound;
  const std::vector<std::byte>& stored = value->second.data;
  type = value->second.type;
  size = stored.size();
  if (data.data() == nullptr) return RegStatus::kSuccess;
  if (data.size() < stored.size()) return RegStatus::kMoreData;
  std::copy(stored.begin(), stored.end(), data.begin());
  return RegStatus::kSuccess;
}

/// What can't be set anywhere is told before that the key is gone.
RegStatus MemoryRegistry::SetValue(RegHandle handle, std::string_view name, RegType type,
                                   std::span<const std::byte> data) {
  Key* key = nullptr;
  const RegStatus status = KeyOf(handle, key);
  if (status == RegStatus::kInvalidHandle) return status;
  return PutValue(key, name, type, data);
}

/// Null stands for a key that was deleted.
RegStatus MemoryRegistry::PutValue(Key* key, std::string_view name, RegType type,
                                   std::span<const std::byte> data) {
  if (key != nullptr && key->path.empty()) return RegStatus::kAccessDenied;
  if (ValueNameFault(name) != nullptr) return RegStatus::kInvalidParameter;
  if (DataFault(data.size()) != nullptr) return RegStatus::kNoResources;
  if (doomed_) return RegStatus::kWriteFault;
  if (key == nullptr) return RegStatus::kKeyDeleted;
  const auto [place, is_new] = key->values.try_emplace(FoldCase(name));
  StoredValue& value = place->second;
  if (is_new) value.name = name;
  value.type = type;
  value.data.assign(data.begin(), data.end());
  return RegStatus::kSuccess;
}

RegStatus MemoryRegistry::DeleteValue(RegHandle handle, std::string_view name) {
  Key* key = nullptr;
  const RegStatus status = KeyOf(handle, key);
  if (status != RegStatus::kSuccess) return status;
  if (key->path.empty()) return RegStatus::kAccessDenied;
  const auto value = key->values.find(FoldCase(name));
  if (value == key->values.end()) return RegStatus::kNotFound;
  if (doomed_) return RegStatus::kWriteFault;
  key->values.erase(value);
  return RegStatus::kSuccess;
}

RegStatus MemoryRegistry::SetDefaultValue(RegRoot root, std::string_view path,
                                          std::string_view text) {
  std::string folded;
  Key* key = nullptr;
  const RegStatus status = FindOrAdd(root, path, folded, key);
  if (status != RegStatus::kSuccess) return status;
  return PutValue(key, "", RegType::kSz, TextData(text));
}

RegStatus MemoryRegistry::DeleteKey(RegRoot root, std::string_view path) {
  std::string folded;
  RegStatus status = FoldKeyPath(root, path, folded);
  if (status != RegStatus::kSuccess) return status;
  if (path.empty()) return RegStatus::kAccessDenied;
  Key* key = nullptr;
  status = Find(folded, key);
  if (status != RegStatus::kSuccess) return status;
  if (doomed_) return RegStatus::kWriteFault;
  // All paths below a key lie between its own with a backslash and with the character behind that.
  auto& keys = content_.keys;
  keys.erase(keys.lower_bound(folded + '\\'),
             keys.lower_bound(folded + static_cast<char>('\\' + 1)));
  keys.erase(folded);
  return RegStatus::kSuccess;
}

RegStatus MemoryRegistry::ListKeys(RegHandle handle, std::vector<std::string>& names) {
  Key* key = nullptr;
  const RegStatus status = KeyOf(handle, key);
  if (status != RegStatus::kSuccess) return status;
  names.clear();
  const std::string before = opened_.Find(handle)->folded + '\\';
  for (auto each = content_.keys.lower_bound(before);
       each != content_.keys.end() && each->first.starts_with(before); ++each) {
    if (each->first.find('\\', before.size()) != std::string::npos) continue;
    const std::string& path = each->second.path;
    names.push_back(path.substr(path.rfind('\\') + 1));
  }
  return RegStatus::kSuccess;
}

RegStatus MemoryRegistry::ListValues(RegHandle handle, std::vector<StoredValue>& values) {
  Key* key = nullptr;
  const RegStatus status = KeyOf(handle, key);
  if (status != RegStatus::kSuccess) return status;
  values.clear();
  for (const auto& [folded, value] : key->values) values.push_back(value);
  return RegStatus::kSuccess;
}

RegStatus MemoryRegistry::BeginChanges() {
  if (groups_open_++ == 0) before_ = content_;
  return RegStatus::kSuccess;
}

RegStatus MemoryRegistry::EndChanges(bool keep) {
  if (!keep) doomed_ = true;
  const bool kept = !doomed_;
  if (--groups_open_ == 0) {
    if (!kept) content_ = *std::move(before_);
    before_.reset();
    doomed_ = false;
    // What was opened in a group that is taken back may be a key that never came to be.
    opened_.ForEach([kept](Opened& opened) {
      if (opened.in_group && !kept) opened.number = 0;
      opened.in_group = false;
    });
  }
  return kept || !keep ? RegStatus::kSuccess : RegStatus::kWriteFault;
}

std::optional<std::string> MemoryRegistry::MachineState(std::string_view name) {
  const auto found = content_.state.find(name);
  return found == content_.state.end() ? std::nullopt : std::optional(found->second);
}

RegStatus MemoryRegistry::SetMachineState(std::string_view name, std::string_view text) {
  if (doomed_) return RegStatus::kWriteFault;
  content_.state.insert_or_assign(std::string(name), text);
  return RegStatus::kSuccess;
}

RegStatus OverlayRegistry::Fetch(RegRoot root, const std::string& path,
                                 std::vector<std::string>& names,
                                 std::vector<StoredValue>& values) {
  platform::OpenKey key(below_);
  RegStatus status = key.Open(root, path);
  if (status == RegStatus::kSuccess) status = below_.ListKeys(key.Handle(), names);
  if (status == RegStatus::kSuccess) status = below_.ListValues(key.Handle(), values);
  return status;
}

}  // namespace kestrune::platform
