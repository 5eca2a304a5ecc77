#pragma once

#include "platform/handle_table.h"
#include "platform/portable/store.h"
#include "platform/registry_api.h"

namespace kestrune::platform::portable {

/// The registry operations over a store, which must outlive this.
class StoreRegistry : public RegistryApi {
 public:
  explicit StoreRegistry(Store& store) : store_(store) {}

  RegStatus OpenKey(RegRoot root, std::string_view path, RegHandle& key) override;
  RegStatus CreateKey(RegRoot root, std::string_view path, RegHandle& key) override;
  RegStatus QueryValue(RegHandle key, std::string_view name, RegType& type, std::size_t& size,
                       std::span<std::byte> data) override;
  RegStatus SetValue(RegHandle key, std::string_view name, RegType type,
                     std::span<const std::byte> data) override;
  RegStatus DeleteValue(RegHandle key, std::string_view name) override;
  void CloseKey(RegHandle key) override { keys_.Remove(key); }
  RegStatus SetDefaultValue(RegRoot root, std::string_view path, std::string_view text) override;
  RegStatus DeleteKey(RegRoot root, std::string_view path) override {
    return store_.DeleteKey(root, path);
  }
  RegStatus ListKeys(RegHandle key, std::vector<std::string>& names) override;
  RegStatus ListValues(RegHandle key, std::vector<StoredValue>& values) override;
  void BeginUnasked(HeldUp held_up) override { store_.BeginUnasked(held_up); }
  void EndUnasked(HeldUp held_up) override { store_.EndUnasked(held_up); }
  void BeginReads() override { store_.BeginReads(); }
  void EndReads() override { store_.EndReads(); }
  RegStatus BeginChanges() override;
  RegStatus EndChanges(bool keep) override;

 private:
  struct OpenedKey {
    KeyId id = 0;  ///< 0: opened in a group of changes that was taken back
    bool in_group = false;
  };

  RegHandle Keep(KeyId id);
  KeyId Resolve(RegHandle key);

  Store& store_;
  HandleTable<OpenedKey> keys_;
  int groups_open_ = 0;  ///< nested
};

}  // namespace kestrune::platform::portable
