#pragma once

#include <string>
#include <string_view>

/// UTF-16 with the lower byte first, from UTF-8 and back.
namespace kestrune::platform {

/// Half a pair of surrogates stays as it is; an odd byte at the end is dropped.
std::string FromUtf16(std::string_view bytes);
/// A byte that starts no character becomes U+FFFD.
std::string ToUtf16(std::string_view text);

}  // namespace kestrune::platform
