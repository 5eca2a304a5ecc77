#pragma once

#include <string_view>

namespace kestrune::test {

/// The user's key that tells the driver's stand-in what it drives: HardwareId as a text, and as
/// numbers Release (times 100), Core, Memory, Core3D, Memory3D (MHz) and Homer, each of which may
/// be absent. A subkey holds the clocks in force.
inline constexpr std::string_view kDriverKey = R"(Software\KestruneTests\Driver)";

}  // namespace kestrune::test
