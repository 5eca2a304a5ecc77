#pragma once

#include <memory>

#include "platform/system_api.h"

namespace kestrune::platform::win32 {

/// The system's performance counters: those of PDH on the family of Windows NT, where it is
/// installed, and those under HKEY_DYN_DATA on Windows 9x, which count one processor.
std::unique_ptr<LoadCounters> OpenCounters();

}  // namespace kestrune::platform::win32
