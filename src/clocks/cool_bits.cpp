#include "clocks/cool_bits.h"

namespace kestrune::clocks {

namespace {

constexpr std::int32_t kCoolBitsOld = 3;
constexpr std::int32_t kCoolBitsAll = -1;
constexpr int kFirstCoolBitsAllDriver = 4041;

}  // namespace

std::int32_t CoolBitsOn(const detect::VersionState& versions) {
  const bool all =
      versions.OSFamily != detect::kWindows9x && versions.DrvVer >= kFirstCoolBitsAllDriver;
  return all ? kCoolBitsAll : kCoolBitsOld;
}

bool IsCoolBitsOn(std::int32_t number) { return number == kCoolBitsOld || number == kCoolBitsAll; }

}  // namespace kestrune::clocks
