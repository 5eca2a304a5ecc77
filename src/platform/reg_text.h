#pragma once

#include <string_view>

#include "platform/registry_api.h"

/// What reading and writing registry text have in common.
namespace kestrune::platform {

inline constexpr std::string_view kRegVersion4 = "REGEDIT4";
inline constexpr std::string_view kRegVersion5 = "Windows Registry Editor Version 5.00";

/// REG_MULTI_SZ.
inline constexpr auto kMultiSz = static_cast<RegType>(7);
/// Whether the data of a type is text, UTF-8 with the NUL bytes that it has.
constexpr bool IsText(RegType type) {
  return type == RegType::kSz || type == RegType::kExpandSz || type == kMultiSz;
}

/// Whether a key is HARDWARE\DESCRIPTION or below it. The system makes what stands there, and
/// nobody changes it.
bool IsHardwareDescription(RegRoot root, std::string_view path);

}  // namespace kestrune::platform
