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

/// A value's name as PlainText; "@" for the default value.
std::string ValueNameText(std::string_view name);

/// A type's name: "REG_SZ", "REG_BINARY", "REG_DWORD", otherwise "TYPE_n"; so too for a text
/// without its one closing NUL, and for a REG_DWORD that isn't four bytes long.
std::string TypeText(RegType type, std::span<const std::byte> data);
std::optional<RegType> ParseType(std::string_view text);

/// The text of a REG_SZ as it is; nothing for any other value.
std::optional<std::string> TextOf(RegType type, std::span<const std::byte> data);

/// The data of a value, by the name that its type has: REG_DWORD as a signed decimal number, REG_SZ
/// as its PlainText, anything else as pairs of hexadecimal digits.
std::string DataText(RegType type, std::span<const std::byte> data);
/// "TYPE DATA".
std::string ValueText(RegType type, std::span<const std::byte> data);

/// Reads data as a person gives it behind the name of a type, in one or more words: REG_DWORD a
/// signed, unsigned or 0x number, REG_SZ the words with a blank between them, anything else pairs
/// of hexadecimal digits. Nothing when it isn't of that form.
std::optional<std::vector<std::byte>> ParseData(std::string_view type,
                                                const std::vector<std::string>& words);

/// Text as a kSz value holds it: with its closing NUL.
std::vector<std::byte> TextData(std::string_view text);

}  // namespace kestrune::platform
