#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "platform/registry_api.h"

namespace kestrune::core {

using platform::RegRoot;

/// What reading a registry value gives: empty text (missing, or of a type that has no meaning
/// here), text, or a signed 32-bit number.
class RegValue {
 public:
  RegValue() = default;
  explicit RegValue(std::string text) : value_(std::move(text)) {}
  explicit RegValue(std::int32_t number) : value_(number) {}

  /// Empty text: the value is not set.
  bool IsEmpty() const;
  /// The text, or the number's decimal text.
  std::string Text() const;
  /// The number, or what the text reads as; nothing for other text and empty text.
  std::optional<std::int32_t> Number() const;
  std::int32_t NumberOr(std::int32_t fallback) const { return Number().value_or(fallback); }
  bool IsNumber() const { return std::holds_alternative<std::int32_t>(value_); }

  bool operator==(const RegValue&) const = default;

 private:
  std::variant<std::string, std::int32_t> value_;
};

/// A value to be written: a number, a Boolean (true is -1) or text.
using RegInput = std::variant<std::int32_t, double, bool, std::string>;

/// Why a write was refused before it reached the value. The key exists by then.
enum class WriteResult {
  kDone,          ///< also when the registry itself refused: that is never reported
  kOverflow,      ///< a number outside the signed 32-bit range
  kTypeMismatch,  ///< text that is no number while WriteAsBinary is 1
};

/// The one doorway to the registry: every read goes to it, nothing is cached, no key stays open.
///
/// Paths stand below the root, with backslashes and without a leading one; the empty name is the
/// key's default value. No failure of the registry is reported; a read then gives empty text and a
/// write or delete has no effect.
class basRegistry {
 public:
  explicit basRegistry(platform::RegistryApi& api) : api_(api) {}

  /// The value as stored: REG_SZ up to its first NUL, REG_DWORD, REG_BINARY of up to six bytes
  /// (the first four, least significant first). Anything else is empty text.
  RegValue ReadRegValue(RegRoot root, std::string_view path, std::string_view name);
  /// Creates the key and stores the value: REG_BINARY of four bytes while WriteAsBinary is 1, else
  /// REG_DWORD for what is or reads as a number, else REG_SZ without the blanks around it.
  [[nodiscard]] WriteResult WriteRegValue(RegRoot root, std::string_view path,
                                          std::string_view name, const RegInput& value);
  /// Deletes a value; does nothing, and creates nothing, when the key or the value is missing.
  void DeleteRegValue(RegRoot root, std::string_view path, std::string_view name);
  bool RegKeyExists(RegRoot root, std::string_view path);

  /// Changes within one scope that nobody asked for are passed over where nothing can be written.
  [[nodiscard]] platform::UnaskedScope Unasked(platform::HeldUp held_up) {
    return platform::UnaskedScope(api_, held_up);
  }
  /// Many reads within one scope see the registry as it was at one moment.
  [[nodiscard]] platform::ReadScope Reading() { return platform::ReadScope(api_); }

  /// While it is 1, every write stores REG_BINARY. Callers set it and clear it.
  int WriteAsBinary = 0;
  /// The return code of the last call to the registry.
  platform::RegStatus LastRegStatus = platform::RegStatus::kSuccess;

 private:
  RegValue ReadOpenKey(platform::RegHandle key, std::string_view name);
  RegValue ReadText(platform::RegHandle key, std::string_view name, std::size_t size);

  platform::RegistryApi& api_;
};

}  // namespace kestrune::core
