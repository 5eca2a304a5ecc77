#include "platform/registry_wrapper.h"

#include <utility>

namespace kestrune::platform {

RegStatus RegistryWrapper::OpenKey(RegRoot root, std::string_view path, RegHandle& key) {
  RegHandle inner = 0;
  const RegStatus status = inner_.OpenKey(root, path, inner);
  if (status == RegStatus::kSuccess) key = Keep(root, path, inner);
  return status;
}

RegStatus RegistryWrapper::CreateKey(RegRoot root, std::string_view path, RegHandle& key) {
  RegHandle inner = 0;
  const RegStatus status = inner_.CreateKey(root, path, inner);
  if (status == RegStatus::kSuccess) key = Keep(root, path, inner);
  return status;
}

RegStatus RegistryWrapper::QueryValue(RegHandle key, std::string_view name, RegType& type,
                                      std::size_t& size, std::span<std::byte> data) {
  return inner_.QueryValue(InnerOf(key), name, type, size, data);
}

RegStatus RegistryWrapper::SetValue(RegHandle key, std::string_view name, RegType type,
                                    std::span<const std::byte> data) {
  return inner_.SetValue(InnerOf(key), name, type, data);
}

RegStatus RegistryWrapper::DeleteValue(RegHandle key, std::string_view name) {
  return inner_.DeleteValue(InnerOf(key), name);
}

void RegistryWrapper::CloseKey(RegHandle key) {
  inner_.CloseKey(InnerOf(key));
  keys_.Remove(key);
}

RegStatus RegistryWrapper::SetDefaultValue(RegRoot root, std::string_view path,
                                           std::string_view text) {
  return inner_.SetDefaultValue(root, path, text);
}

RegStatus RegistryWrapper::DeleteKey(RegRoot root, std::string_view path) {
  return inner_.DeleteKey(root, path);
}

RegStatus RegistryWrapper::ListKeys(RegHandle key, std::vector<std::string>& names) {
  return inner_.ListKeys(InnerOf(key), names);
}

RegStatus RegistryWrapper::ListValues(RegHandle key, std::vector<StoredValue>& values) {
  return inner_.ListValues(InnerOf(key), values);
}

void RegistryWrapper::Reopen(RegHandle key) {
  OpenedKey* opened = keys_.Find(key);
  RegHandle inner = 0;
  if (opened == nullptr || opened->inner == 0) return;
  if (inner_.OpenKey(opened->address.root, opened->address.path, inner) != RegStatus::kSuccess) {
    return;
  }
  inner_.CloseKey(std::exchange(opened->inner, inner));
}

void RegistryWrapper::Disown(RegHandle key) {
  OpenedKey* opened = keys_.Find(key);
  if (opened != nullptr) inner_.CloseKey(std::exchange(opened->inner, 0));
}

RegHandle RegistryWrapper::Keep(RegRoot root, std::string_view path, RegHandle inner) {
  RegHandle key = 0;
  OpenedKey& opened = keys_.Add(key);
  opened.address.root = root;
  opened.address.path.assign(path);
  opened.inner = inner;
  return key;
}

RegHandle RegistryWrapper::InnerOf(RegHandle key) {
  const OpenedKey* opened = keys_.Find(key);
  return opened != nullptr ? opened->inner : 0;
}

}  // namespace kestrune::platform
