#include "cpl/control_panel.h"

#include "clocks/cool_bits.h"
#include "core/outcome.h"
#include "platform/driver_keys.h"

namespace kestrune::cpl {

namespace {

using core::RegRoot;
using platform::kTweakKey;

/// What a switch's stored number says.
enum class Encoding {
  kNone,      ///< the box reads and writes nothing
  kCoolBits,  ///< a number that depends on the system and the driver
  kFlag,      ///< 1 checked, anything else cleared
  kState,     ///< the box's state
  kInverted,  ///< 1 cleared, any other number checked
};

struct OptionRow {
  std::string_view tag;  ///< of the picture
  std::string_view value;
  Encoding encoding;
  std::int32_t not_set;
};

constexpr int kCoolBitsIndex = 0;
constexpr int kAgpIndex = 1;
constexpr int kAppProfileIndex = 4;

/// By index of the box. The boxes without a value stand for temperature pages that no supported
/// driver switches this way.
constexpr OptionRow kOptions[kOptionCount] = {
    {"oc", clocks::kCoolBitsValue, Encoding::kCoolBits, 0},
    {"agp", "NvCplEnableAGPSettingsPage", Encoding::kFlag, 0},
    {"additional", "NvCplEnableAdditionalInfoPage", Encoding::kState, 0},
    {"debug", "NvCplEnableTroubleshootingPage", Encoding::kState, 0},
    {"app", "NvCplEnableAppProfilePage", Encoding::kState, 1},
    {"nview", "TwinViewCapsOverride", Encoding::kState, 0},
    {"ovl", "NvCplEnableOverlaySpanControl", Encoding::kState, 0},
    {"", "", Encoding::kNone, 0},
    {"", "", Encoding::kNone, 0},
    {"", "", Encoding::kNone, 0},
    {"refresh", "NvCplDisableRefreshRatePage", Encoding::kInverted, 0},
};

constexpr int kFirstAppProfileDriver = 5500;
/// From this release on the refresh rate page is hidden unless it is switched on.
constexpr int kFirstHiddenRefreshDriver = 7001;

}  // namespace

std::int32_t ControlPanelOptions::Read(std::string_view name, std::int32_t not_set) {
  return registry_.ReadRegValue(RegRoot::kLocalMachine, kTweakKey, name).NumberOr(not_set);
}

void ControlPanelOptions::Store(std::string_view key, std::string_view name, std::int32_t number) {
  registry_.WriteAsBinary = 0;
  core::Ignore(registry_.WriteRegValue(RegRoot::kLocalMachine, key, name, number));
}

void ControlPanelOptions::ReadControlPanelOptions() {
  const platform::ReadScope reading = registry_.Reading();
  for (int index = 0; index < kOptionCount; ++index) {
    const OptionRow& row = kOptions[index];
    controls::CheckBox& box = *controls_.options[static_cast<std::size_t>(index)];
    std::int32_t not_set = row.not_set;
    if (row.encoding == Encoding::kInverted) {
      not_set = versions_.DrvVer >= kFirstHiddenRefreshDriver ? 1 : 0;
    }
    const std::int32_t number = row.value.empty() ? 0 : Read(row.value, not_set);
    switch (row.encoding) {
      case Encoding::kNone:
        break;
      case Encoding::kCoolBits:
        box.Show(clocks::IsCoolBitsOn(number) ? 1 : 0);
        break;
      case Encoding::kFlag:
        box.Show(number == 1 ? 1 : 0);
        break;
      case Encoding::kState:
        box.Show(number);
        break;
      case Encoding::kInverted:
        box.Show(number == 1 ? 0 : 1);
        break;
    }
  }
  controls_.options[kAgpIndex]->SetEnabled(
      !adapter_.IsOneOf({"014", "016", "009"}, {"00FA", "00FB", "00FC", "00FD", "00FF"}));
  controls_.options[kAppProfileIndex]->SetEnabled(versions_.DrvVer >= kFirstAppProfileDriver);
}

void ControlPanelOptions::EnableCoolBits() {
  Store(kTweakKey, clocks::kCoolBitsValue, clocks::CoolBitsOn(versions_));
}

void ControlPanelOptions::DisableCoolBits() { Store(kTweakKey, clocks::kCoolBitsValue, 0); }

void ControlPanelOptions::StoreAgpPage(std::int32_t state) {
  // Windows 9x takes it from the clock key, below HKEY_LOCAL_MACHINE whatever the driver.
  const std::string_view key =
      versions_.OSFamily == detect::kWindows9x ? std::string_view(adapter_.HardwareKey) : kTweakKey;
  Store(key, kOptions[kAgpIndex].value, state);
}

void ControlPanelOptions::OptionChanged(int index) {
  if (program_.IsStart == 1) return;
  const OptionRow& row = kOptions[index];
  const controls::CheckBox& box = *controls_.options[static_cast<std::size_t>(index)];
  if (index == kCoolBitsIndex) {
    box.Checked() ? EnableCoolBits() : DisableCoolBits();
  } else if (index == kAgpIndex) {
    StoreAgpPage(box.State());
  } else if (row.encoding == Encoding::kState) {
    Store(kTweakKey, row.value, box.State());
  } else if (row.encoding == Encoding::kInverted) {
    Store(kTweakKey, row.value, box.Checked() ? 0 : 1);
  }
}

void ControlPanelOptions::OptionHovered(int index) {
  controls_.picture->SetVisible(true);
  const std::string_view tag = kOptions[index].tag;
  if (tag.empty() || tag == shown_tag_) return;
  shown_tag_ = tag;
  const std::string file = "DATA/cpl/" + std::string(tag) + ".jpg";
  if (files_.IsPicture(file)) controls_.picture->ShowFile(file);
}

}  // namespace kestrune::cpl
