#include "platform/value_text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>

#include "platform/dword.h"

namespace kestrune::platform {

namespace {

struct RootRow {
  RegRoot root;
  std::string_view name;
  std::string_view long_name;
};

constexpr RootRow kRoots[] = {
    {RegRoot::kLocalMachine, "HKLM", "HKEY_LOCAL_MACHINE"},
    {RegRoot::kCurrentUser, "HKCU", "HKEY_CURRENT_USER"},
    {RegRoot::kClassesRoot, "HKCR", "HKEY_CLASSES_ROOT"},
};

struct TypeRow {
  RegType type;
  std::string_view name;
};

constexpr TypeRow kTypes[] = {
    {RegType::kSz, "REG_SZ"}, {RegType::kBinary, "REG_BINARY"}, {RegType::kDword, "REG_DWORD"}};

constexpr std::string_view kOtherType = "TYPE_";

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](char x, char y) { return lower(x) == lower(y); });
}

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

std::string StringText(std::span<const std::byte> data) {
  std::string text;
  for (const std::byte byte : data) {
    const char c = std::to_integer<char>(byte);
    if (c == '\0') break;
    switch (c) {
      case '\n':
        text += "\\n";
        break;
      case '\r':
        text += "\\r";
        break;
      case '\t':
        text += "\\t";
        break;
      default:
        text += c;
    }
  }
  return text;
}

std::optional<std::vector<std::byte>> ParseDword(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  int base = 10;
  if (text.starts_with("0x") || text.starts_with("0X")) {
    base = 16;
    text.remove_prefix(2);
  }
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) {
    return std::nullopt;
  }
  const std::uint64_t most =
      negative ? std::uint64_t{1} << 31 : std::numeric_limits<std::uint32_t>::max();
  if (number > most) return std::nullopt;
  const auto bits = static_cast<std::uint32_t>(negative ? ~number + 1 : number);
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
    std::uint8_t byte = 0;
    const char* pair = digits.data() + i;
    const auto [end, error] = std::from_chars(pair, pair + 2, byte, 16);
    if (error != std::errc() || end != pair + 2) return std::nullopt;
    bytes.push_back(std::byte{byte});
  }
  return bytes;
}

std::vector<std::byte> StringData(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (&word == words.data() ? "" : " ") + word;
  std::vector<std::byte> bytes;
  for (const char c : text) bytes.push_back(static_cast<std::byte>(c));
  bytes.push_back(std::byte{0});
  return bytes;
}

}  // namespace

std::string_view RootName(RegRoot root) {
  for (const RootRow& row : kRoots) {
    if (row.root == root) return row.name;
  }
  return "?";
}

std::optional<KeyAddress> ParseKey(std::string_view text) {
  const std::size_t end = std::min(text.find('\\'), text.size());
  const std::string_view name = text.substr(0, end);
  for (const RootRow& row : kRoots) {
    if (!EqualsIgnoringCase(name, row.name) && !EqualsIgnoringCase(name, row.long_name)) continue;
    return KeyAddress{row.root, std::string(text.substr(std::min(end + 1, text.size())))};
  }
  return std::nullopt;
}

std::string KeyText(RegRoot root, std::string_view path) {
  return std::string(RootName(root)) + "\\" + std::string(path);
}

std::string TypeText(RegType type) {
  for (const TypeRow& row : kTypes) {
    if (row.type == type) return std::string(row.name);
  }
  return std::string(kOtherType) + std::to_string(static_cast<std::uint32_t>(type));
}

std::optional<RegType> ParseType(std::string_view text) {
  for (const TypeRow& row : kTypes) {
    if (EqualsIgnoringCase(row.name, text)) return row.type;
  }
  if (!text.starts_with(kOtherType)) return std::nullopt;
  text.remove_prefix(kOtherType.size());
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return static_cast<RegType>(number);
}

std::string DataText(RegType type, std::span<const std::byte> data) {
  if (type == RegType::kSz) return StringText(data);
  if (type == RegType::kDword && data.size() == kDwordSize) return std::to_string(DwordOf(data));
  return HexText(data);
}

std::string ValueText(RegType type, std::span<const std::byte> data) {
  const bool odd_dword = type == RegType::kDword && data.size() != kDwordSize;
  std::string text = odd_dword ? std::string(kOtherType) + "4" : TypeText(type);
  const std::string shown = DataText(type, data);
  return shown.empty() ? text : text + " " + shown;
}

std::optional<std::vector<std::byte>> ParseData(RegType type,
                                                const std::vector<std::string>& words) {
  if (type == RegType::kSz) return StringData(words);
  if (type == RegType::kDword) {
    return words.size() == 1 ? ParseDword(words.front()) : std::nullopt;
  }
  return ParseHex(words);
}

}  // namespace kestrune::platform
