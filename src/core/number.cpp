#include "core/number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace kestrune::core {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t CountDigits(std::string_view text) {
  return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsDigit) -
                                  text.begin());
}

std::optional<double> ParseHexadecimal(std::string_view digits) {
  std::uint64_t pattern = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), pattern, 16);
  if (digits.empty() || end != digits.data() + digits.size()) return std::nullopt;
  if (error == std::errc::result_out_of_range) return kInfinity;
  if (digits.size() > 8) return static_cast<double>(pattern);
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(pattern));
}

/// Whether the text has the form digits [. digits] [e [sign] digits] with a digit before the
/// exponent.
bool IsDecimal(std::string_view text) {
  const std::size_t whole = CountDigits(text);
  text.remove_prefix(whole);
  std::size_t fraction = 0;
  if (text.starts_with('.')) {
    text.remove_prefix(1);
    fraction = CountDigits(text);
    text.remove_prefix(fraction);
  }
  if (whole + fraction == 0) return false;
  if (text.empty()) return true;
  if (text.front() != 'e' && text.front() != 'E') return false;
  text.remove_prefix(1);
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
  const std::size_t exponent = CountDigits(text);
  return exponent > 0 && exponent == text.size();
}

/// Whether a decimal that no double holds is too small rather than too large.
bool Vanishes(std::string_view text) {
  const std::size_t exponent = text.find_first_of("eE");
  if (exponent != std::string_view::npos) return text.substr(exponent + 1).starts_with('-');
  return text.substr(0, text.find('.')).find_first_not_of('0') == std::string_view::npos;
}

}  // namespace

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::optional<double> ParseNumber(std::string_view text) {
  text = TrimBlanks(text);
  if (text.starts_with("&H") || text.starts_with("&h")) return ParseHexadecimal(text.substr(2));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  if (!IsDecimal(text)) return std::nullopt;
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc::result_out_of_range) number = Vanishes(text) ? 0 : kInfinity;
  return negative ? -number : number;
}

std::optional<std::int32_t> RoundToInt32(double number) {
  const double rounded = std::nearbyint(number);
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
        rounded <= std::numeric_limits<std::int32_t>::max())) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(rounded);
}

std::optional<std::int32_t> ParseInt32(std::string_view text) {
  const std::optional<double> number = ParseNumber(text);
  return number ? RoundToInt32(*number) : std::nullopt;
}

platform::Result<std::int32_t, NumberFault> ParseWholeNumber(std::string_view text,
                                                             std::int32_t lowest,
                                                             std::int32_t highest) {
  std::string_view digits = TrimBlanks(text);
  if (digits.starts_with('-') || digits.starts_with('+')) digits.remove_prefix(1);
  const bool is_whole = digits.starts_with('&') || CountDigits(digits) == digits.size();
  const std::optional<double> number = ParseNumber(text);
  if (!number || !is_whole) {
    return platform::FailWith(NumberFault::kNoWholeNumber);
  }
  if (*number < lowest || *number > highest) return platform::FailWith(NumberFault::kOverflow);
  return static_cast<std::int32_t>(*number);
}

}  // namespace kestrune::core
