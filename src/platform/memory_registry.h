#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/handle_table.h"
#include "platform/machine_memory.h"
#include "platform/registry_api.h"

namespace kestrune::platform {

/// A registry in memory, and what its machine remembers; gone with this. It does what RegistryApi
/// says and nothing else, so that others can be compared with it. A group of changes costs a copy
/// of everything.
class MemoryRegistry : public RegistryApi, public MachineMemory {
 public:
  MemoryRegistry();

  RegStatus OpenKey(RegRoot root, std::string_view path, RegHandle& key) override;
  RegStatus CreateKey(RegRoot root, std::string_view path, RegHandle& key) override;
  RegStatus QueryValue(RegHandle key, std::string_view name, RegType& type, std::size_t& size,
                       std::span<std::byte> data) override;
  RegStatus SetValue(RegHandle key, std::string_view name, RegType type,
                     std::span<const std::byte> data) override;
  RegStatus DeleteValue(RegHandle key, std::string_view name) override;
  void CloseKey(RegHandle key) override { opened_.Remove(key); }
  RegStatus SetDefaultValue(RegRoot root, std::string_view path, std::string_view text) override;
  RegStatus DeleteKey(RegRoot root, std::string_view path) override;
  RegStatus ListKeys(RegHandle key, std::vector<std::string>& names) override;
  RegStatus ListValues(RegHandle key, std::vector<StoredValue>& values) override;
  void BeginReads() override {}
  void EndReads() override {}
  RegStatus BeginChanges() override;
  RegStatus EndChanges(bool keep) override;
  void BeginUnasked(HeldUp) override {}
  void EndUnasked(HeldUp) override {}

  std::optional<std::string> MachineState(std::string_view name) override;
  RegStatus SetMachineState(std::string_view name, std::string_view text) override;

 private:
  /// Of one key, from its creation to its end.
  using KeyNumber = std::uint64_t;

  struct Key {
    KeyNumber number = 0;
    RegRoot root{};
    std::string path;                                ///< as first written
    bool is_known = false;                           ///< whether it was asked what stands in it
    std::map<std::string, StoredValue> values = {};  ///< by name, in capitals
  };
  struct Opened {
    std::string folded;
    KeyNumber number = 0;  ///< 0: opened in a group of changes that was taken back
    bool in_group = false;
  };
  struct Content {
    std::map<std::string, Key, std::less<>> keys;  ///< by FoldKeyPath
    std::map<std::string, std::string, std::less<>> state;
  };

  /// What stands in a key before anything is changed there.
  virtual RegStatus Fetch(RegRoot root, const std::string& path, std::vector<std::string>& names,
                          std::vector<StoredValue>& values);

  RegStatus Find(std::string_view folded, Key*& key);
  RegStatus Learn(std::string_view folded, Key& key);
  Key& Add(std::string folded, RegRoot root, std::string_view path);
  RegStatus FindOrAdd(RegRoot root, std::string_view path, std::string& folded, Key*& key);
  RegHandle Keep(std::string folded, const Key& key);
  RegStatus KeyOf(RegHandle handle, Key*& key);
  RegStatus PutValue(Key* key, std::string_view name, RegType type,
                     std::span<const std::byte> data);

  Content content_;
  std::optional<Content> before_;  ///< what was there when the open group began
  HandleTable<Opened> opened_;
  KeyNumber last_number_ = 0;
  int groups_open_ = 0;  ///< nested
  bool doomed_ = false;  ///< the open group can only be taken back
};

/// A registry laid over another one, which must outlive it: what was never changed here is read
/// there, each key as it is when it is first looked into, and nothing that is changed or deleted
/// here reaches it.
class OverlayRegistry : public MemoryRegistry {
 public:
  explicit OverlayRegistry(RegistryApi& below) : below_(below) {}

  void BeginReads() override { below_.BeginReads(); }
  void EndReads() override { below_.EndReads(); }

 private:
  RegStatus Fetch(RegRoot root, const std::string& path, std::vector<std::string>& names,
                  std::vector<StoredValue>& values) override;

  RegistryApi& below_;
};

}  // namespace kestrune::platform
