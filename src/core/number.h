#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

#include "platform/result.h"

namespace kestrune::core {

/// Text without its leading and trailing blanks.
std::string_view TrimBlanks(std::string_view text);

/// The number that a text reads as, or nothing when it reads as none.
///
/// Blanks around it are allowed, then an optional sign and decimal digits with an optional
/// fraction and exponent, or "&H" with hexadecimal digits. Up to eight of those are a 32-bit
/// pattern, so "&HFFFFFFFF" is -1; more are a number beyond 32 bits. A number too large for a
/// double comes back as an infinity.
std::optional<double> ParseNumber(std::string_view text);

/// The nearest whole number, a half going to the even neighbour; nothing outside 32 bits.
std::optional<std::int32_t> RoundToInt32(double number);

/// Reads a text as a whole 32-bit number by the two rules above.
std::optional<std::int32_t> ParseInt32(std::string_view text);

/// Why a text is no whole number of a range.
enum class NumberFault {
  kNoWholeNumber,
  kOverflow,  ///< a whole number outside the range
};

/// The whole number that a text spells: blanks around it, an optional sign and decimal digits
/// alone, or "&H" as above. A fraction, even of 0, makes it none.
platform::Result<std::int32_t, NumberFault> ParseWholeNumber(
    std::string_view text, std::int32_t lowest = std::numeric_limits<std::int32_t>::min(),
    std::int32_t highest = std::numeric_limits<std::int32_t>::max());

}  // namespace kestrune::core
