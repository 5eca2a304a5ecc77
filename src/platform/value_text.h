#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/key_address.h"
#include "platform/registry_api.h"

/// How a person reads and writes the registry: one text form for types and data, wherever they are
/// shown.
namespace kestrune::platform {

/// A value's name; "@" for the default value.
std::string ValueNameText(std::string_view name);

/// A type's name: "REG_SZ", "REG_BINARY", "REG_DWORD", otherwise "TYPE_n".
std::string TypeText(RegType type);
std::optional<RegType> ParseType(std::string_view text);

/// A value's data: REG_DWORD as a signed decimal number, REG_SZ as its text up to the first NUL
/// (control characters as \n, \r, \t), anything else as pairs of hexadecimal digits.
std::string DataText(RegType type, std::span<const std::byte> data);
/// "TYPE DATA"; a REG_DWORD that isn't four bytes long is shown as "TYPE_4" with its bytes.
std::string ValueText(RegType type, std::span<const std::byte> data);

/// Reads data as a person gives it, in one or more words: REG_DWORD a signed, unsigned or 0x
/// number, REG_SZ the words with a blank between them, anything else pairs of hexadecimal digits.
/// Nothing when it isn't of that form.
std::optional<std::vector<std::byte>> ParseData(RegType type,
                                                const std::vector<std::string>& words);

/// Text as a kSz value holds it: with its closing NUL.
std::vector<std::byte> TextData(std::string_view text);

}  // namespace kestrune::platform
