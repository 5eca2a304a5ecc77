#include "settings/hardware.h"

namespace kestrune::settings {

bool Hardware::Meets(const Needs& needs) const {
  const auto is_among = [this](const Cards& cards) {
    return adapter.IsOneOf(cards.prefixes, cards.ids);
  };
  return versions.DrvVer >= needs.from_driver &&
         (needs.only_on == nullptr || is_among(*needs.only_on)) &&
         (needs.not_on == nullptr || !is_among(*needs.not_on)) &&
         (!needs.low_texture_units || program.LowTextureUnits == 1);
}

}  // namespace kestrune::settings
