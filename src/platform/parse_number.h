#pragma once

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

namespace kestrune::platform {

/// The number that a whole text spells, without blanks or a plus sign; nothing for another text or
/// a number that doesn't fit.
template <class Number>
std::optional<Number> ParseWhole(std::string_view text, int base = 10) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number, base);
  if (error != std::errc() || rest != end) return std::nullopt;
  return number;
}

}  // namespace kestrune::platform
