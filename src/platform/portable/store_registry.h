#pragma once

#include <cstdint>
#include <vector>

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
  void CloseKey(RegHandle key) override;
  void BeginReads() override { store_.BeginReads(); }
  void EndReads() override { store_.EndReads(); }

 private:
  struct OpenedKey {
    KeyId id = 0;  ///< 0: the place is free
    std::uint64_t rollbacks = 0;
  };

  RegHandle Keep(KeyId id);
  KeyId Resolve(RegHandle key) const;

  Store& store_;
  std::vector<OpenedKey> keys_;  ///< a handle is a place here, counted from 1
  std::vector<RegHandle> free_;
};

}  // namespace kestrune::platform::portable
