#pragma once

#include <cstddef>
#include <string>

#include "platform/result.h"

namespace kestrune::platform::portable {

/// What a data file, a description or a picture has at most, and registry text, in bytes.
inline constexpr std::size_t kLongestDataFile = 16 << 20;
inline constexpr std::size_t kLongestRegFile = 256 << 20;

enum class PipesToo { kNo, kYes };

/// The bytes of an ordinary file, or of a pipe where that is allowed. The reason of a failure is
/// what the system says of it ("No such file or directory"), that it is no ordinary file, or its
/// size when it is longer than `longest`.
Result<std::string> ReadWholeFile(const std::string& path, std::size_t longest = kLongestDataFile,
                                  PipesToo pipes = PipesToo::kNo);

}  // namespace kestrune::platform::portable
