#include "platform/value_text.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "platform/case_fold.h"
#include "platform/dword.h"
#include "platform/parse_number.h"
#include "platform/plain_text.h"

namespace kestrune::platform {

namespace {

struct TypeRow {
  RegType type;
  std::string_view name;
};

constexpr TypeRow kTypes[] = {
    {RegType::kSz, "REG_SZ"}, {RegType::kBinary, "REG_BINARY"}, {RegType::kDword, "REG_DWORD"}};

constexpr std::string_view kOtherType = "TYPE_";

std::string HexText(std::span<const std::byte> data) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const std::byte byte : data) {
    if (!text.empty()) text += ' ';
    text += kDigits[std::to_integer<std::size_t>(byte >> 4)];
    text += kDigits[std::to_integer<std::size_t>(byte & std::byte{15})];
  }
  return text;
}

/// The name of a type; nothing for one without.
std::optional<std::string_view> NameOf(RegType type) {
  for (const TypeRow& row : kTypes) {
    if (row.type == type) return row.name;
  }
  return std::nullopt;
}

/// Whether data have the size that their type gives them.
bool IsWellFormed(RegType type, std::span<const std::byte> data) {
  if (type == RegType::kDword) return data.size() == kDwordSize;
  if (type != RegType::kSz) return true;
  const auto end = std::find(data.begin(), data.end(), std::byte{0});
  return end != data.end() && end + 1 == data.end();
}

std::optional<std::vector<std::byte>> ParseDword(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  int base = 10;
  if (text.starts_with("0x") || text.starts_with("0X")) {
    base = 16;
    text.remove_prefix(2);
  }
  const auto number = ParseWhole<std::uint64_t>(text, base);
  const std::uint64_t most =
      negative ? std::uint64_t{1} << 31 : std::numeric_limits<std::uint32_t>::max();
  if (!number || *number > most) return std::nullopt;
  const auto bits = static_cast<std::uint32_t>(negative ? ~*number + 1 : *number);
  const auto bytes = DwordBytes(static_cast<std::int32_t>(bits));
  return std::vector<std::byte>(bytes.begin(), bytes.end());
}

std::optional<std::vector<std::byte>> ParseHex(const std::vector<std::string>& words) {
  std::string digits;
  for (const std::string& word : words) digits += word;
  std::erase(digits, ' ');
  if (digits.size() % 2 != 0) return std::nullopt;
  std::vector<std::byte> bytes;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    const auto byte = ParseWhole<std::uint8_t>(std::string_view(digits).substr(i, 2), 16);
    if (!byte) return std::nullopt;
    bytes.push_back(std::byte{*byte});
  }
  return bytes;
}

std::vector<std::byte> StringData(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (&word == words.data() ? "" : " ") + word;
  return TextData(text);
}

}  // namespace

std::string ValueNameText(std::string_view name) { return name.empty() ? "@" : PlainText(name); }

std::string TypeText(RegType type, std::span<const std::byte> data) {
  if (const auto name = NameOf(type); name && IsWellFormed(type, data)) return std::string(*name);
  return std::string(kOtherType) + std::to_string(static_cast<std::uint32_t>(type));
}

std::optional<RegType> ParseType(std::string_view text) {
  for (const TypeRow& row : kTypes) {
    if (SameWithoutCase(row.name, text)) return row.type;
  }
  if (!text.starts_with(kOtherType)) return std::nullopt;
  text.remove_prefix(kOtherType.size());
  const auto number = ParseWhole<std::uint32_t>(text);
  return number ? std::optional(static_cast<RegType>(*number)) : std::nullopt;
}

std::optional<std::string> TextOf(RegType type, std::span<const std::byte> data) {
  if (type != RegType::kSz || !IsWellFormed(type, data)) return std::nullopt;
  return std::string(reinterpret_cast<const char*>(data.data()), data.size() - 1);
}

std::string DataText(RegType type, std::span<const std::byte> data) {
  if (!IsWellFormed(type, data)) return HexText(data);
  if (const auto text = TextOf(type, data)) return PlainText(*text);
  return type == RegType::kDword ? std::to_string(DwordOf(data)) : HexText(data);
}

std::string ValueText(RegType type, std::span<const std::byte> data) {
  const std::string shown = DataText(type, data);
  return TypeText(type, data) + (shown.empty() ? "" : " ") + shown;
}

std::optional<std::vector<std::byte>> ParseData(std::string_view type,
                                                const std::vector<std::string>& words) {
  if (type.starts_with(kOtherType)) return ParseHex(words);
  if (SameWithoutCase(type, NameOf(RegType::kSz).value())) return StringData(words);
  if (SameWithoutCase(type, NameOf(RegType::kDword).value())) {
    return words.size() == 1 ? ParseDword(words.front()) : std::nullopt;
  }
  return ParseHex(words);
}

std::vector<std::byte> TextData(std::string_view text) {
  std::vector<std::byte> bytes(text.size() + 1);
  std::transform(text.begin(), text.end(), bytes.begin(),
                 [](char c) { return static_cast<std::byte>(c); });
  return bytes;
}

}  // namespace kestrune::platform
