#pragma once

#include <string>
#include <string_view>

namespace kestrune::platform {

/// How a control character is written: \n, \r and \t by their letters and others as \xNN with the
/// number, or all of them by number.
enum class Escapes { kLetters, kNumbersOnly };

/// Text that moves no cursor wherever it is printed: control characters escaped, a byte that is no
/// UTF-8 as U+FFFD.
std::string PlainText(std::string_view text, Escapes escapes = Escapes::kLetters);

}  // namespace kestrune::platform
