#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "controls/control_set.h"
#include "controls/controls.h"
#include "core/registry.h"
#include "detect/versions.h"
#include "lang/language.h"
#include "platform/display_api.h"

namespace kestrune::detect {

/// The adapter's identity and where its driver keeps its values.
struct AdapterState {
  /// The driver's key below HKEY_LOCAL_MACHINE; empty when there is no NVIDIA adapter.
  std::string PureKey;
  /// PCI identifiers, four hexadecimal digits each.
  std::string VendorId;
  std::string DeviceId;
  /// The first three digits of DeviceId.
  std::string DeviceIdPrefix;
  /// DeviceId as a number.
  std::int16_t DeviceIdNumber = 0;
  /// "Devices\" + the identifier part of the hardware identifier + "&INST00".
  std::string DeviceInstanceKey;
  /// The key of the clock values, without its root.
  std::string HardwareKey;
  /// Family of the graphics processor: 1 has separate 2D and 3D clocks, 2 and 0 have not.
  int CardVar = 0;
  /// The two characters after "REV_" in HardwareKey, such as A1.
  std::string GpuRevision;

  /// Whether DeviceIdPrefix is one of these, or DeviceId is.
  bool IsOneOf(std::span<const std::string_view> prefixes,
               std::span<const std::string_view> ids = {}) const;
  /// The same card with its identifiers in capitals, as tables and people have them.
  AdapterState InCapitals() const;
};

/// The device digits of a display device's hardware identifier, as they are spelled there; nothing
/// for a device that isn't NVIDIA's.
std::optional<std::string> NvidiaDeviceOf(std::string_view hardware_id);

/// Finds the NVIDIA display adapter, its driver's key and its processor family.
///
/// On a machine with several NVIDIA devices PureKey belongs to the first one and the identifiers
/// to the last: the devices of a card with two outputs share their identifier.
class Adapter {
 public:
  Adapter(platform::DisplayApi& display, core::basRegistry& registry, const VersionState& versions,
          const lang::LangTable& lang_text, const controls::ControlSet& controls)
      : display_(display),
        registry_(registry),
        versions_(versions),
        LangText(lang_text),
        card_line_(controls.Get<controls::Label>("info.basic.vga-device")) {}

  /// A first PureKey, from the operating-system family alone.
  void FindVideoKey();
  void FindDisplayAdapter();
  /// Shows the card's name as the driver's key gives it, or "Unknown card".
  void ReadCardName();
  void IdentifyGpu();
  void ReadGpuRevision();

  AdapterState state;

 private:
  void TakeIdentity(std::string_view hardware_id);
  std::string ClockKey() const;

  platform::DisplayApi& display_;
  core::basRegistry& registry_;
  const VersionState& versions_;
  const lang::LangTable& LangText;
  controls::Label& card_line_;
};

}  // namespace kestrune::detect
