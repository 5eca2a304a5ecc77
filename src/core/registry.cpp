#include "core/registry.h"

#include <array>
#include <span>
#include <vector>

#include "core/number.h"
#include "platform/dword.h"
#include "platform/open_key.h"

namespace kestrune::core {

using platform::kDwordSize;
using platform::OpenKey;
using platform::RegHandle;
using platform::RegStatus;
using platform::RegType;

namespace {

/// The driver keeps some numbers in binary values of up to six bytes, of which four count.
constexpr std::size_t kBinaryCapacity = 6;
/// Room for every number and most texts, so that one query gets them.
constexpr std::size_t kUsualSize = 64;

/// The data of a write: a 32-bit number, or the text to store, or why neither is possible.
struct Converted {
  WriteResult result = WriteResult::kDone;
  std::int32_t number = 0;
  std::optional<std::string> text;
};

Converted ConvertNumber(double number) {
  const std::optional<std::int32_t> rounded = RoundToInt32(number);
  if (!rounded) return {WriteResult::kOverflow, 0, {}};
  return {WriteResult::kDone, *rounded, {}};
}

Converted Convert(const RegInput& value, bool as_binary) {
  if (const auto* number = std::get_if<std::int32_t>(&value)) return {{}, *number, {}};
  if (const auto* boolean = std::get_if<bool>(&value)) return {{}, *boolean ? -1 : 0, {}};
  if (const auto* number = std::get_if<double>(&value)) return ConvertNumber(*number);
  const std::string& text = std::get<std::string>(value);
  if (const std::optional<double> number = ParseNumber(text)) return ConvertNumber(*number);
  if (as_binary) return {WriteResult::kTypeMismatch, 0, {}};
  return {{}, 0, std::string(TrimBlanks(text))};
}

}  // namespace

bool RegValue::IsEmpty() const {
  const auto* text = std::get_if<std::string>(&value_);
  return text != nullptr && text->empty();
}

std::string RegValue::Text() const {
  if (const auto* text = std::get_if<std::string>(&value_)) return *text;
  return std::to_string(std::get<std::int32_t>(value_));
}

std::optional<std::int32_t> RegValue::Number() const {
  if (const auto* number = std::get_if<std::int32_t>(&value_)) return *number;
  return ParseInt32(std::get<std::string>(value_));
}

RegValue basRegistry::ReadRegValue(RegRoot root, std::string_view path, std::string_view name) {
  OpenKey key(api_);
  LastRegStatus = key.Open(root, path);
  return key.Handle() == 0 ? RegValue() : ReadOpenKey(key.Handle(), name);
}

RegValue basRegistry::ReadOpenKey(RegHandle key, std::string_view name) {
  std::array<std::byte, kUsualSize> buffer{};
  RegType type = RegType::kNone;
  std::size_t size = 0;
  // A missing value leaves the type at none, which reads as empty text.
  LastRegStatus = api_.QueryValue(key, name, type, size, buffer);
  const bool is_number = (type == RegType::kDword && size <= kDwordSize) ||
                         (type == RegType::kBinary && size <= kBinaryCapacity);
  if (is_number) return RegValue(platform::DwordOf(buffer));
  if (type != RegType::kSz) {
    if (type == RegType::kDword || type == RegType::kBinary) LastRegStatus = RegStatus::kMoreData;
    return {};
  }
  if (size > buffer.size()) return ReadText(key, name, size);
  const std::string_view text(reinterpret_cast<const char*>(buffer.data()), size);
  return RegValue(std::string(text.substr(0, text.find('\0'))));
}

RegValue basRegistry::ReadText(RegHandle key, std::string_view name, std::size_t size) {
  std::string text(size, '\0');
  RegType type = RegType::kNone;
  LastRegStatus = api_.QueryValue(key, name, type, size, std::as_writable_bytes(std::span(text)));
  if (LastRegStatus != RegStatus::kSuccess) return {};
  return RegValue(text.substr(0, text.find('\0')));
}

WriteResult basRegistry::WriteRegValue(RegRoot root, std::string_view path, std::string_view name,
                                       const RegInput& value) {
  OpenKey key(api_);
  LastRegStatus = key.Create(root, path);
  const Converted data = Convert(value, WriteAsBinary == 1);
  if (data.result == WriteResult::kDone && key.Handle() != 0) {
    if (data.text) {
      // The closing NUL is part of the data.
      const std::span text(data.text->c_str(), data.text->size() + 1);
      LastRegStatus = api_.SetValue(key.Handle(), name, RegType::kSz, std::as_bytes(text));
    } else {
      const RegType type = WriteAsBinary == 1 ? RegType::kBinary : RegType::kDword;
      LastRegStatus = api_.SetValue(key.Handle(), name, type, platform::DwordBytes(data.number));
    }
  }
  return data.result;
}

void basRegistry::DeleteRegValue(RegRoot root, std::string_view path, std::string_view name) {
  OpenKey key(api_);
  LastRegStatus = key.Open(root, path);
  if (key.Handle() != 0) LastRegStatus = api_.DeleteValue(key.Handle(), name);
}

bool basRegistry::RegKeyExists(RegRoot root, std::string_view path) {
  OpenKey key(api_);
  LastRegStatus = key.Open(root, path);
  return key.Handle() != 0;
}

}  // namespace kestrune::core
