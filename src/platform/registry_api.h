#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kestrune::platform {

/// The predefined registry roots, with the handle values that Windows gives them.
enum class RegRoot : std::uint32_t {
  kClassesRoot = 0x80000000u,
  kCurrentUser = 0x80000001u,
  kLocalMachine = 0x80000002u,
};

/// The stored types that matter here. Any other 32-bit number may be stored as well.
enum class RegType : std::uint32_t {
  kNone = 0,
  kSz = 1,
  kExpandSz = 2,
  kBinary = 3,
  kDword = 4,
};

/// Return codes of the registry operations, as Windows numbers them.
enum class RegStatus : std::int32_t {
  kSuccess = 0,
  kNotFound = 2,
  kAccessDenied = 5,
  kInvalidHandle = 6,
  kWriteFault = 29,
  kReadFault = 30,
  kInvalidParameter = 87,
  kBadPath = 161,
  kMoreData = 234,
  kKeyDeleted = 1018,
  kNoResources = 1450,
};

/// An open key; 0 is no key.
using RegHandle = std::uint32_t;

/// A value as the registry keeps it.
struct StoredValue {
  std::string name;  ///< as first written; empty for the default value
  RegType type = RegType::kNone;
  std::vector<std::byte> data;

  bool operator==(const StoredValue&) const = default;
};

/// What becomes of a change that nobody asked for while another program keeps the registry locked.
enum class HeldUp { kWaits, kPassedOver };

/// The registry, as RegOpenKey, RegCreateKey, RegQueryValueEx, RegSetValueEx, RegSetValue,
/// RegDeleteValue, RegDeleteKey, RegEnumKeyEx, RegEnumValue and RegCloseKey give it.
///
/// Paths use backslashes and have no leading one (kBadPath); paths and names are matched without
/// regard to letter case. Text is UTF-8 on this side of the seam, also the data of kSz values (with
/// its closing NUL byte where it has one). A handle to a key that was deleted since gives
/// kKeyDeleted. A root holds no values and stays (kAccessDenied). A new name or depth beyond
/// registry_limits.h gives kInvalidParameter, too much data kNoResources. A call that fails leaves
/// its outputs as they were.
class RegistryApi {
 public:
  virtual ~RegistryApi() = default;

  /// Opens an existing key; kNotFound when there is none.
  virtual RegStatus OpenKey(RegRoot root, std::string_view path, RegHandle& key) = 0;
  /// Opens a key and creates every level of its path that is missing.
  virtual RegStatus CreateKey(RegRoot root, std::string_view path, RegHandle& key) = 0;
  /// Gives a value's type and size, and its bytes when `data` has room for them. Without a buffer
  /// (`data.data()` is null) only type and size are given; a buffer that is too small gives
  /// kMoreData, with type and size set.
  virtual RegStatus QueryValue(RegHandle key, std::string_view name, RegType& type,
                               std::size_t& size, std::span<std::byte> data) = 0;
  virtual RegStatus SetValue(RegHandle key, std::string_view name, RegType type,
                             std::span<const std::byte> data) = 0;
  virtual RegStatus DeleteValue(RegHandle key, std::string_view name) = 0;
  virtual void CloseKey(RegHandle key) = 0;

  /// Sets the default value of a key to a text, with its closing NUL, and creates the key where it
  /// is missing (RegSetValue).
  virtual RegStatus SetDefaultValue(RegRoot root, std::string_view path, std::string_view text) = 0;
  /// Deletes a key with its values and all below it.
  virtual RegStatus DeleteKey(RegRoot root, std::string_view path) = 0;
  /// The names of the keys below a key, and its values, sorted without regard to case.
  virtual RegStatus ListKeys(RegHandle key, std::vector<std::string>& names) = 0;
  virtual RegStatus ListValues(RegHandle key, std::vector<StoredValue>& values) = 0;

  /// Between these two calls (they nest) reads see the registry as it was at one moment, and from a
  /// change made meanwhile on as it is then. Use ReadScope.
  virtual void BeginReads() = 0;
  virtual void EndReads() = 0;

  /// The changes between these two calls are one: others see all of them or none. A group within
  /// another is a part of it; when a part is taken back, the whole is. Only a group that could be
  /// begun is ended, by the same part of the program. kSuccess with `keep` says that the group is
  /// kept; without `keep` it is taken back, and the keys opened in it answer kInvalidHandle. Use
  /// ChangeScope.
  virtual RegStatus BeginChanges() = 0;
  virtual RegStatus EndChanges(bool keep) = 0;

  /// Nobody asked for what is changed between these two calls (they nest), so where nothing can be
  /// written it fails as ever, but is no failure that a person is told of; nor is what is passed
  /// over. Use UnaskedScope.
  virtual void BeginUnasked(HeldUp held_up) = 0;
  virtual void EndUnasked(HeldUp held_up) = 0;
};

/// Says for as long as it lives that nobody asked for the changes.
class UnaskedScope {
 public:
  UnaskedScope(RegistryApi& registry, HeldUp held_up) : registry_(registry), held_up_(held_up) {
    registry_.BeginUnasked(held_up_);
  }
  ~UnaskedScope() { registry_.EndUnasked(held_up_); }
  UnaskedScope(const UnaskedScope&) = delete;
  UnaskedScope& operator=(const UnaskedScope&) = delete;

 private:
  RegistryApi& registry_;
  HeldUp held_up_;
};

/// Holds one view of the registry for as long as it lives.
class ReadScope {
 public:
  explicit ReadScope(RegistryApi& registry) : registry_(registry) { registry_.BeginReads(); }
  ~ReadScope() { registry_.EndReads(); }
  ReadScope(const ReadScope&) = delete;
  ReadScope& operator=(const ReadScope&) = delete;

 private:
  RegistryApi& registry_;
};

/// A group of changes for as long as it lives: kept by Commit(), else taken back.
class ChangeScope {
 public:
  explicit ChangeScope(RegistryApi& registry)
      : registry_(registry),
        status_(registry.BeginChanges()),
        open_(Status() == RegStatus::kSuccess) {}
  ~ChangeScope() {
    if (open_) registry_.EndChanges(false);
  }
  ChangeScope(const ChangeScope&) = delete;
  ChangeScope& operator=(const ChangeScope&) = delete;

  /// Whether the group could be begun; nothing may be changed on its behalf otherwise.
  [[nodiscard]] RegStatus Status() const { return status_; }
  /// Anything but kSuccess: something failed on the way, and nothing of the group is kept.
  [[nodiscard]] RegStatus Commit() {
    if (!open_) return status_;
    open_ = false;
    return registry_.EndChanges(true);
  }

 private:
  RegistryApi& registry_;
  RegStatus status_;
  bool open_;
};

}  // namespace kestrune::platform
