#include "platform/portable/store_registry.h"

#include "platform/value_text.h"

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

RegStatus StoreRegistry::SetDefaultValue(RegRoot root, std::string_view path,
                                         std::string_view text) {
  KeyId id = 0;
  const RegStatus status = store_.CreateKey(root, path, id);
  if (status != RegStatus::kSuccess) return status;
  return store_.SetValue(id, "", RegType::kSz, TextData(text));
}

RegStatus StoreRegistry::ListKeys(RegHandle key, std::vector<std::string>& names) {
  const KeyId id = Resolve(key);
  return id == 0 ? RegStatus::kInvalidHandle : store_.ListKeys(id, names);
}

RegStatus StoreRegistry::ListValues(RegHandle key, std::vector<StoredValue>& values) {
  const KeyId id = Resolve(key);
  return id == 0 ? RegStatus::kInvalidHandle : store_.ListValues(id, values);
}

RegStatus StoreRegistry::BeginChanges() {
  if (!store_.BeginChange()) return RegStatus::kWriteFault;
  ++groups_open_;
  return RegStatus::kSuccess;
}

RegStatus StoreRegistry::EndChanges(bool keep) {
  const bool kept = store_.EndChange(keep);
  if (--groups_open_ == 0) {
    // What was opened in a group that is taken back may be a key that never came to be.
    keys_.ForEach([kept](OpenedKey& opened) {
      if (opened.in_group && !kept) opened.id = 0;
      opened.in_group = false;
    });
  }
  return kept || !keep ? RegStatus::kSuccess : RegStatus::kWriteFault;
}

RegHandle StoreRegistry::Keep(KeyId id) {
  RegHandle key = 0;
  keys_.Add(key) = {id, groups_open_ > 0};
  return key;
}

KeyId StoreRegistry::Resolve(RegHandle key) {
  const OpenedKey* opened = keys_.Find(key);
  return opened != nullptr ? opened->id : 0;
}

}  // namespace kestrune::platform::portable
