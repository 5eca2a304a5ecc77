#include "clocks/cool_bits.h"

namespace kestrune::clocks {

namespace {

constexpr int kFirstCoolBitsAllDriver = 4041;

}  // namespace

std::int32_t CoolBitsOn(const detect::VersionState& versions) {
  const bool all =
      versions.OSFamily != detect::kWindows9x && versions.DrvVer >= kFirstCoolBitsAllDriver;
  return all ? kCoolBitsAll : kCoolBitsOld;
}

}  // namespace kestrune::clocks
