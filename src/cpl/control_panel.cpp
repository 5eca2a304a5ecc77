#include "cpl/control_panel.h"

#include "clocks/cool_bits.h"
#include "core/outcome.h"
#include "platform/driver_keys.h"

namespace kestrune::cpl {

namespace {

using namespace settings;
using core::RegRoot;

/// The stored number is the box's state.
constexpr Choice kState[] = {{kOff, 0}, {kOn, 1}};
/// What unlocks clock control depends on the system; each of both shows as unlocked.
constexpr Choice kCoolBits[] = {
    {kOff, 0}, {kOn, clocks::kCoolBitsAll}, {kOn, clocks::kCoolBitsOld}};
/// The value hides the page. From release 70.01 on it is hidden unless it is switched on.
constexpr Choice kHidden[] = {{kOff, 1}, {kOn, 0}};
constexpr int kFirstHiddenRefreshDriver = 7001;

/// Cards without AGP.
constexpr std::string_view kNoAgpPrefixes[] = {"014", "016", "009"};
constexpr std::string_view kNoAgpIds[] = {"00FA", "00FB", "00FC", "00FD", "00FF"};
constexpr Cards kNoAgpCards = {kNoAgpPrefixes, kNoAgpIds};

constexpr Setting Switch(std::string_view id, std::string_view name, std::int32_t not_set) {
  return {.id = id,
          .writer = Writer::kControlPanel,
          .shape = Shape::kBox,
          .name = name,
          .place = Place::kTweakKey,
          .not_set = not_set,
          .choices = kState,
          .otherwise = Otherwise::kState};
}

constexpr Setting RefreshRate(std::int32_t not_set) {
  Setting row = Switch("control-panel.settings.enable-direct3d-refreh-rate-page",
                       "NvCplDisableRefreshRatePage", not_set);
  row.choices = kHidden;
  row.otherwise = Otherwise::kText;
  row.otherwise_text = kOn;
  return row;
}
constexpr Setting kOldRefreshRate = RefreshRate(0);

constexpr Setting kRows[] = {
    {.id = "control-panel.settings.enable-coolbits-overclocking",
     .writer = Writer::kControlPanel,
     .shape = Shape::kBox,
     .name = clocks::kCoolBitsValue,
     .place = Place::kTweakKey,
     .not_set = 0,
     .choices = kCoolBits,
     .otherwise = Otherwise::kText,
     .otherwise_text = kOff,
     .special = Special::kCoolBits},
    {.id = "control-panel.settings.enable-agp-settings-page",
     .writer = Writer::kControlPanel,
     .shape = Shape::kBox,
     .name = "NvCplEnableAGPSettingsPage",
     .place = Place::kTweakKey,
     .not_set = 0,
     .choices = kState,
     .otherwise = Otherwise::kText,
     .otherwise_text = kOff,
     .needs = {.not_on = &kNoAgpCards},
     .special = Special::kAgpPage},
    Switch("control-panel.settings.enable-additional-info-page", "NvCplEnableAdditionalInfoPage",
           0),
    Switch("control-panel.settings.enable-troubleshooting-page", "NvCplEnableTroubleshootingPage",
           0),
    [] {
      Setting row = Switch("control-panel.settings.enable-application-profile-page",
                           "NvCplEnableAppProfilePage", 1);
      row.needs = {.from_driver = 5500};
      return row;
    }(),
    Switch("control-panel.settings.override-nview-capable", "TwinViewCapsOverride", 0),
    Switch("control-panel.settings.enable-overlay-control-in-span-mode",
           "NvCplEnableOverlaySpanControl", 0),
    [] {
      Setting row = RefreshRate(1);
      row.from_driver = kFirstHiddenRefreshDriver;
      row.older = &kOldRefreshRate;
      return row;
    }(),
};

}  // namespace

const std::span<const Setting> kControlPanelSettings = kRows;

std::string ControlPanelOptions::KeyFor(const Setting& row) const {
  // Windows 9x takes the AGP page from the clock key, below HKEY_LOCAL_MACHINE whatever the driver.
  const bool is_agp_9x =
      row.special == Special::kAgpPage && hardware_.versions.OSFamily == detect::kWindows9x;
  return is_agp_9x ? hardware_.adapter.HardwareKey : std::string(platform::kTweakKey);
}

void ControlPanelOptions::ReadControlPanelOptions() {
  const platform::ReadScope reading = registry_.Reading();
  for (const Binding& binding : bindings_) {
    const Setting& row = hardware_.RowOf(*binding.setting);
    const std::optional<std::int32_t> number =
        registry_.ReadRegValue(RegRoot::kLocalMachine, platform::kTweakKey, row.name).Number();
    ShowNumber(binding, row, number, LangText);
    ApplyNeeds(binding, hardware_);
  }
}

void ControlPanelOptions::OptionChanged(const Binding& binding) {
  if (hardware_.program.IsStart == 1) return;
  const Setting& row = *binding.setting;
  const bool on = dynamic_cast<const controls::CheckBox&>(*binding.control).Checked();
  const bool unlocks = on && row.special == Special::kCoolBits;
  const std::int32_t number =
      unlocks ? clocks::CoolBitsOn(hardware_.versions) : *row.choices[on ? 1 : 0].number;
  registry_.WriteAsBinary = 0;
  core::Ignore(registry_.WriteRegValue(RegRoot::kLocalMachine, KeyFor(row), row.name, number));
}

}  // namespace kestrune::cpl
