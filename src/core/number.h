#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

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

/// The whole 32-bit number that a text spells: blanks around it, an optional sign and decimal
/// digits alone, or "&H" as above. Nothing for any other text, also one with a fraction.
std::optional<std::int32_t> ParseWholeNumber(std::string_view text);

}  // namespace kestrune::core
