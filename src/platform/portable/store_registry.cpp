#include "platform/portable/store_registry.h"

namespace kestrune::platform::portable {

RegStatus StoreRegistry::OpenKey(RegRoot root, std::string_view path, RegHandle& key) {
  KeyId id = 0;
  const RegStatus status = store_.FindKey(root, path, id);
  if (status == RegStatus::kSuccess) key = Keep(id);
  return status;
}

RegStatus StoreRegistry::CreateKey(RegRoot root, std::string_view path, RegHandle& key) {
  KeyId id = 0;
  const RegStatus status = store_.CreateKey(root, path, id);
  if (status == RegStatus::kSuccess) key = Keep(id);
  return status;
}

RegStatus StoreRegistry::QueryValue(RegHandle key, std::string_view name, RegType& type,
                                    std::size_t& size, std::span<std::byte> data) {
  const KeyId id = Resolve(key);
  return id == 0 ? RegStatus::kInvalidHandle : store_.QueryValue(id, name, type, size, data);
}

RegStatus StoreRegistry::SetValue(RegHandle key, std::string_view name, RegType type,
                                  std::span<const std::byte> data) {
  const KeyId id = Resolve(key);
  return id == 0 ? RegStatus::kInvalidHandle : store_.SetValue(id, name, type, data);
}

RegStatus StoreRegistry::DeleteValue(RegHandle key, std::string_view name) {
  const KeyId id = Resolve(key);
  return id == 0 ? RegStatus::kInvalidHandle : store_.DeleteValue(id, name);
}

void StoreRegistry::CloseKey(RegHandle key) {
  if (key == 0 || key > keys_.size() || keys_[key - 1].id == 0) return;
  keys_[key - 1].id = 0;
  free_.push_back(key);
}

RegHandle StoreRegistry::Keep(KeyId id) {
  if (free_.empty()) {
    keys_.emplace_back();
    free_.push_back(static_cast<RegHandle>(keys_.size()));
  }
  const RegHandle key = free_.back();
  free_.pop_back();
  keys_[key - 1] = {id, store_.Rollbacks()};
  return key;
}

/// A key opened before a transaction was taken back may be one that never came to be.
KeyId StoreRegistry::Resolve(RegHandle key) const {
  if (key == 0 || key > keys_.size()) return 0;
  const OpenedKey& opened = keys_[key - 1];
  return opened.rollbacks == store_.Rollbacks() ? opened.id : 0;
}

}  // namespace kestrune::platform::portable
