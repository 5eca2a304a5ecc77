#pragma once

#include <string>
#include <string_view>

namespace kestrune::platform {

/// Text that moves no cursor wherever it is printed: a control character as \n, \r, \t, or \xNN
/// with its number; a byte that is no UTF-8 as U+FFFD.
std::string PlainText(std::string_view text);

}  // namespace kestrune::platform
