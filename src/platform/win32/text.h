#pragma once

#include <string>
#include <string_view>

namespace kestrune::platform::win32 {

/// The number of the system's code page for programs without Unicode (GetACP).
int SystemCodePage();

/// The text of the system's calls for Unicode. A byte that starts no UTF-8 becomes U+FFFD.
std::wstring Wide(std::string_view text);
std::string Narrow(std::wstring_view text);

/// Whether this is the family of Windows NT, whose calls take Unicode; Windows 9x has most of them
/// only to refuse.
bool IsNt();

/// What the system says of an error number, in its language and without a full stop.
std::string ErrorText(unsigned long error);

}  // namespace kestrune::platform::win32
