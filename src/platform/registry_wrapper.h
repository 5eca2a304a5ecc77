#pragma once

#include "platform/handle_table.h"
#include "platform/key_address.h"
#include "platform/registry_api.h"

namespace kestrune::platform {

/// A registry in front of another one, which must outlive it: every call goes on to that one. What
/// derives from it says only what it adds. The handles are the wrapper's own, so that it knows the
/// address behind each of them, and may give out keys that the other one doesn't have.
class RegistryWrapper : public RegistryApi {
 public:
  explicit RegistryWrapper(RegistryApi& inner) : inner_(inner) {}

  RegStatus OpenKey(RegRoot root, std::string_view path, RegHandle& key) override;
  RegStatus CreateKey(RegRoot root, std::string_view path, RegHandle& key) override;
  RegStatus QueryValue(RegHandle key, std::string_view name, RegType& type, std::size_t& size,
                       std::span<std::byte> data) override;
  RegStatus SetValue(RegHandle key, std::string_view name, RegType type,
                     std::span<const std::byte> data) override;
  RegStatus DeleteValue(RegHandle key, std::string_view name) override;
  void CloseKey(RegHandle key) override;
  RegStatus SetDefaultValue(RegRoot root, std::string_view path, std::string_view text) override;
  RegStatus DeleteKey(RegRoot root, std::string_view path) override;
  RegStatus ListKeys(RegHandle key, std::vector<std::string>& names) override;
  RegStatus ListValues(RegHandle key, std::vector<StoredValue>& values) override;
  void BeginUnasked(HeldUp held_up) override { inner_.BeginUnasked(held_up); }
  void EndUnasked(HeldUp held_up) override { inner_.EndUnasked(held_up); }
  void BeginReads() override { inner_.BeginReads(); }
  void EndReads() override { inner_.EndReads(); }
  RegStatus BeginChanges() override { return inner_.BeginChanges(); }
  RegStatus EndChanges(bool keep) override { return inner_.EndChanges(keep); }

 protected:
  struct OpenedKey {
    KeyAddress address;   ///< as it was asked for
    RegHandle inner = 0;  ///< 0: the registry behind doesn't have this key
  };

  RegistryApi& Inner() { return inner_; }
  /// Null when the handle isn't open here.
  const OpenedKey* Opened(RegHandle key) { return keys_.Find(key); }
  /// The keys that are open here and fulfil a condition of theirs.
  template <class Condition>
  std::vector<RegHandle> OpenedWhere(const Condition& condition) {
    std::vector<RegHandle> handles;
    keys_.ForEachHandle([&](RegHandle handle, const OpenedKey& opened) {
      if (condition(opened)) handles.push_back(handle);
    });
    return handles;
  }
  /// Opens a key at its address once more, for the same owner.
  void Reopen(RegHandle key);
  /// Closes a key without its owner, to whom it answers as one that was never open.
  void Disown(RegHandle key);
  /// Gives out a key.
  RegHandle Keep(RegRoot root, std::string_view path, RegHandle inner);

 private:
  RegHandle InnerOf(RegHandle key);

  RegistryApi& inner_;
  HandleTable<OpenedKey> keys_;
};

}  // namespace kestrune::platform
