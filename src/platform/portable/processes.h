#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/system_api.h"

namespace kestrune::platform::portable {

/// The processes of the running machine: that of number 0, the programs by identifier, then what
/// the kernel runs for itself. `folder` is /proc, or what looks like it; nothing when it can't be
/// listed. One that ends while they are read is left out.
std::optional<std::vector<ProcessRecord>> ReadProcesses(const std::string& folder);

/// The process that every snapshot begins with.
ProcessRecord IdleProcess();

/// A process's name as it can stand in a line: control characters as \xNN, bytes that are no UTF-8
/// as U+FFFD.
std::string ProcessName(std::string_view bytes);

}  // namespace kestrune::platform::portable
