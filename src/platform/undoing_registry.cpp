#include "platform/undoing_registry.h"

#include <algorithm>
#include <utility>

#include "platform/case_fold.h"
#include "platform/open_key.h"

namespace kestrune::platform {

namespace {

bool IsThere(RegistryApi& registry, RegRoot root, std::string_view path) {
  OpenKey key(registry);
  return key.Open(root, path) == RegStatus::kSuccess;
}

}  // namespace

RegStatus UndoingRegistry::OpenKey(RegRoot root, std::string_view path, RegHandle& key) {
  const RegStatus status = RegistryWrapper::OpenKey(root, path, key);
  if (status == RegStatus::kSuccess && InGroup()) opened_.insert(key);
  return status;
}

RegStatus UndoingRegistry::CreateKey(RegRoot root, std::string_view path, RegHandle& key) {
  const std::size_t noted = undos_.size();
  RegHandle created = 0;
  if (InGroup()) NoteCreation(root, path);
  RegStatus status = RegistryWrapper::CreateKey(root, path, created);
  if (status != RegStatus::kSuccess) return status;
  status = Settled(status, noted);
  if (status != RegStatus::kSuccess) {
    RegistryWrapper::CloseKey(created);
    return status;
  }
  if (InGroup()) opened_.insert(created);
  key = created;
  return status;
}

RegStatus UndoingRegistry::SetValue(RegHandle key, std::string_view name, RegType type,
                                    std::span<const std::byte> data) {
  const std::size_t noted = undos_.size();
  if (const OpenedKey* opened = Opened(key); opened != nullptr && InGroup()) {
    NoteValue(opened->address, name);
  }
  const RegStatus status = RegistryWrapper::SetValue(key, name, type, data);
  // That nothing is changed any more is told before what has become of the key.
  if (is_lost_ && status == RegStatus::kKeyDeleted) return RegStatus::kWriteFault;
  return Settled(status, noted);
}

RegStatus UndoingRegistry::DeleteValue(RegHandle key, std::string_view name) {
  const std::size_t noted = undos_.size();
  if (const OpenedKey* opened = Opened(key); opened != nullptr && InGroup()) {
    NoteValue(opened->address, name);
  }
  return Settled(RegistryWrapper::DeleteValue(key, name), noted);
}

void UndoingRegistry::CloseKey(RegHandle key) {
  opened_.erase(key);
  RegistryWrapper::CloseKey(key);
}

RegStatus UndoingRegistry::SetDefaultValue(RegRoot root, std::string_view path,
                                           std::string_view text) {
  const std::size_t noted = undos_.size();
  if (InGroup()) {
    NoteCreation(root, path);
    NoteValue({root, std::string(path)}, "");
  }
  return Settled(RegistryWrapper::SetDefaultValue(root, path, text), noted);
}

RegStatus UndoingRegistry::DeleteKey(RegRoot root, std::string_view path) {
  const std::size_t noted = undos_.size();
  const KeyAddress address{root, std::string(path)};
  if (InGroup() && !path.empty() && IsThere(Inner(), root, path)) {
    // A key that is made again is another one to those who have it open.
    if (is_lost_) return RegStatus::kWriteFault;
    undos_.push_back({.address = address,
                      .branches = {BranchAt({root, SpelledAsThere(root, path)})},
                      .handles = HandlesIn(address)});
  }
  return Settled(RegistryWrapper::DeleteKey(root, path), noted);
}

RegStatus UndoingRegistry::BeginChanges() {
  ++depth_;
  return RegStatus::kSuccess;
}

RegStatus UndoingRegistry::EndChanges(bool keep) {
  is_lost_ = is_lost_ || !keep;
  if (--depth_ > 0) return keep && is_lost_ ? RegStatus::kWriteFault : RegStatus::kSuccess;
  const bool is_lost = std::exchange(is_lost_, false);
  const bool is_back = !is_lost || PutBackTo(0);
  for (const RegHandle key : opened_) {
    if (is_lost) Disown(key);
  }
  opened_.clear();
  undos_.clear();
  return is_back && (!is_lost || !keep) ? RegStatus::kSuccess : RegStatus::kWriteFault;
}

void UndoingRegistry::NoteCreation(RegRoot root, std::string_view path) {
  for (std::size_t end = 0; end < path.size();) {
    end = std::min(path.find('\\', end + 1), path.size());
    const std::string_view level = path.substr(0, end);
    if (IsThere(Inner(), root, level)) continue;
    undos_.push_back({.address = {root, std::string(level)}, .deletes_key = true});
    return;
  }
}

void UndoingRegistry::NoteValue(const KeyAddress& address, std::string_view name) {
  kestrune::platform::OpenKey key(Inner());
  std::vector<StoredValue> values;
  if (key.Open(address.root, address.path) != RegStatus::kSuccess ||
      Inner().ListValues(key.Handle(), values) != RegStatus::kSuccess) {
    return;
  }
  Undo undo{.address = address, .deleted_values = {std::string(name)}};
  // The listing has the name as it is spelled there.
  for (StoredValue& value : values) {
    if (SameWithoutCase(value.name, name)) undo.values.push_back(std::move(value));
  }
  undos_.push_back(std::move(undo));
}

std::string UndoingRegistry::SpelledAsThere(RegRoot root, std::string_view path) {
  path = WithoutLastBackslash(path);
  const std::size_t separator = path.rfind('\\');
  const std::size_t name = separator == path.npos ? 0 : separator + 1;
  std::string spelled(path);
  kestrune::platform::OpenKey above(Inner());
  std::vector<std::string> names;
  if (above.Open(root, path.substr(0, name == 0 ? 0 : separator)) != RegStatus::kSuccess ||
      Inner().ListKeys(above.Handle(), names) != RegStatus::kSuccess) {
    return spelled;
  }
  for (const std::string& each : names) {
    if (SameWithoutCase(each, path.substr(name))) spelled.replace(name, spelled.npos, each);
  }
  return spelled;
}

std::vector<RegHandle> UndoingRegistry::HandlesIn(const KeyAddress& address) {
  const std::string branch = FoldCase(WithoutLastBackslash(address.path)) + '\\';
  return OpenedWhere([&](const OpenedKey& opened) {
    RegType type{};
    std::size_t size = 0;
    const std::string path = FoldCase(WithoutLastBackslash(opened.address.path)) + '\\';
    return opened.address.root == address.root && path.starts_with(branch) &&
           Inner().QueryValue(opened.inner, "", type, size, {}) != RegStatus::kKeyDeleted;
  });
}

UndoingRegistry::Branch UndoingRegistry::BranchAt(const KeyAddress& address) {
  Branch branch{address, {}, {}};
  kestrune::platform::OpenKey key(Inner());
  std::vector<std::string> names;
  if (key.Open(address.root, address.path) != RegStatus::kSuccess) return branch;
  if (Inner().ListValues(key.Handle(), branch.values) != RegStatus::kSuccess) return branch;
  if (Inner().ListKeys(key.Handle(), names) != RegStatus::kSuccess) return branch;
  const std::string path(WithoutLastBackslash(address.path));
  branch.below.reserve(names.size());
  for (const std::string& name : names) {
    branch.below.push_back(BranchAt({address.root, path + '\\' + name}));
  }
  return branch;
}

bool UndoingRegistry::PutBack(const Branch& branch) {
  kestrune::platform::OpenKey key(Inner());
  bool is_back = key.Create(branch.address.root, branch.address.path) == RegStatus::kSuccess;
  for (const StoredValue& value : branch.values) {
    is_back = is_back && Inner().SetValue(key.Handle(), value.name, value.type, value.data) ==
                             RegStatus::kSuccess;
  }
  for (const Branch& below : branch.below) is_back = PutBack(below) && is_back;
  return is_back;
}

bool UndoingRegistry::PutBack(const Undo& undo) {
  const auto [root, path] = undo.address;
  bool is_back = true;
  if (undo.deletes_key && IsThere(Inner(), root, path)) {
    is_back = Inner().DeleteKey(root, path) == RegStatus::kSuccess;
  }
  for (const Branch& branch : undo.branches) is_back = PutBack(branch) && is_back;
  for (const RegHandle handle : undo.handles) Reopen(handle);
  if (undo.values.empty() && undo.deleted_values.empty()) return is_back;
  kestrune::platform::OpenKey key(Inner());
  // A value of a key that isn't there any more isn't there either.
  if (key.Open(root, path) != RegStatus::kSuccess) return is_back && undo.values.empty();
  for (const std::string& name : undo.deleted_values) {
    const RegStatus status = Inner().DeleteValue(key.Handle(), name);
    is_back = is_back && (status == RegStatus::kSuccess || status == RegStatus::kNotFound);
  }
  for (const StoredValue& value : undo.values) {
    is_back = is_back && Inner().SetValue(key.Handle(), value.name, value.type, value.data) ==
                             RegStatus::kSuccess;
  }
  return is_back;
}

bool UndoingRegistry::PutBackTo(std::size_t noted) {
  bool is_back = true;
  for (; undos_.size() > noted; undos_.pop_back()) is_back = PutBack(undos_.back()) && is_back;
  return is_back;
}

RegStatus UndoingRegistry::Settled(RegStatus status, std::size_t noted) {
  if (status != RegStatus::kSuccess) {
    undos_.resize(noted);
    return status;
  }
  const bool is_refused = is_lost_ && undos_.size() > noted;
  if (is_refused) PutBackTo(noted);
  return is_refused ? RegStatus::kWriteFault : status;
}

}  // namespace kestrune::platform
