#include "ui/forms/overclocking_page.h"

#include <limits>

#include "core/number.h"
#include "core/options.h"
#include "core/outcome.h"
#include "lang/texts.h"
#include "platform/driver_keys.h"

namespace kestrune::forms {

namespace texts = lang::texts;

namespace {

using controls::Button;
using controls::CheckBox;
using controls::Label;
using controls::OptionButton;
using controls::Slider;
using controls::TextBox;
using core::RegRoot;

constexpr std::string_view kPage = "overclocking";

// Disabled until the page is prepared, when it is first shown.
constexpr ControlRow kRows[] = {
    Row(Kind::kCheck, "overclocking.enable-overclocking", kPage, {150, 345, 3510, 330}, 85)
        .Chosen(),
    Row(Kind::kCheck, "overclocking.apply-settings-at-startup", kPage, {3810, 345, 3690, 330}, 86)
        .Disabled(),
    Row(Kind::kHeading, "overclocking.settings", kPage, {150, 780, 2400, 270}, 89).Disabled(),
    Row(Kind::kOption, "overclocking.2d-speed", kPage, {2700, 750, 2220, 330}, 90).Disabled(),
    Row(Kind::kOption, "overclocking.3d-speed", kPage, {5010, 750, 2400, 330}, 91).Disabled(),
    Row(Kind::kLabel, "overclocking.default-core-speed", kPage, {150, 1200, 7260, 255}, 92)
        .Disabled(),
    Row(Kind::kLabel, "overclocking.current-core-speed", kPage, {150, 1485, 7260, 255}, 93)
        .Disabled(),
    Row(Kind::kSlider, "overclocking.core-clock-slider", kPage, {150, 1770, 5850, 390})
        .Tip(231)
        .Range(0, 1000, 370)
        .Disabled(),
    Row(Kind::kText, "overclocking.core-clock", kPage, {6150, 1770, 1260, 390})
        .Initial("370")
        .Enters("overclocking.apply")
        .Tip(231)
        .Disabled(),
    Row(Kind::kLabel, "overclocking.default-memory-speed", kPage, {150, 2340, 7260, 255}, 94)
        .Disabled(),
    Row(Kind::kLabel, "overclocking.current-memory-speed", kPage, {150, 2625, 7260, 255}, 95)
        .Disabled(),
    Row(Kind::kSlider, "overclocking.memory-clock-slider", kPage, {150, 2910, 5850, 390})
        .Tip(243)
        .Range(0, 2000, 760)
        .Disabled(),
    Row(Kind::kText, "overclocking.memory-clock", kPage, {6150, 2910, 1260, 390})
        .Initial("760")
        .Enters("overclocking.apply")
        .Tip(243)
        .Disabled(),
    Row(Kind::kButton, "overclocking.apply", kPage, {3210, 3600, 2025, 435}, 87).Disabled(),
    Row(Kind::kButton, "overclocking.default", kPage, {5385, 3600, 2025, 435}, 88).Disabled(),
};

constexpr std::string_view kStartupValue = "NvCplDaemon";
constexpr std::string_view kStartupCommand =
    "RUNDLL32.EXE C:\\WINDOWS\\System32\\NvCpl.dll,NvStartup";
constexpr std::string_view kPerformanceValue = "PerfLevel";
constexpr int kPerformance2D = 0;
constexpr int kPerformance3D = 2;

}  // namespace

const std::span<const ControlRow> kOverclockingControls = kRows;

OverclockingPage::OverclockingPage(const Shared& shared)
    : state_(shared.state),
      registry_(shared.registry),
      dialog_(shared.services.dialog),
      LangText(shared.LangText()),
      adapter_(shared.adapter),
      clocks_(shared.clocks),
      controls_(shared.controls),
      enable_(shared.controls.Get<CheckBox>("overclocking.enable-overclocking")),
      startup_(shared.controls.Get<CheckBox>("overclocking.apply-settings-at-startup")),
      speed_2d_(shared.controls.Get<OptionButton>("overclocking.2d-speed")),
      speed_3d_(shared.controls.Get<OptionButton>("overclocking.3d-speed")),
      settings_(shared.controls.Get<Label>("overclocking.settings")),
      apply_(shared.controls.Get<Button>("overclocking.apply")),
      default_(shared.controls.Get<Button>("overclocking.default")) {
  OptionButton::Group({&speed_2d_, &speed_3d_});
  enable_.on_change = [this] { OverclockingChanged(); };
  startup_.on_change = [this] { StartupChanged(); };
  speed_2d_.on_click = [this] { PairChosen(false); };
  speed_3d_.on_click = [this] { PairChosen(true); };
  const auto follow = [](Slider& slider, TextBox& box) {
    slider.on_change = [&slider, &box] { box.ShowText(std::to_string(slider.Value())); };
  };
  follow(controls_.core_slider, controls_.core_box);
  follow(controls_.memory_slider, controls_.memory_box);
  apply_.on_click = [this] { Apply(); };
  default_.on_click = [this] {
    controls_.core_box.ShowText(std::to_string(clocks_.state.DefaultCoreMHz));
    controls_.memory_box.ShowText(std::to_string(clocks_.state.DefaultMemoryMHz));
    Apply();
  };
}

void OverclockingPage::OfferPairs() {
  if (adapter_.CardVar != 1) return;
  speed_2d_.SetEnabled(true);
  speed_3d_.SetEnabled(true);
}

void OverclockingPage::PageShown() {
  if (!is_prepared_) EnableOC();
}

void OverclockingPage::SetUsable(bool usable) {
  for (controls::Control* control : std::initializer_list<controls::Control*>{
           &controls_.default_core, &controls_.default_memory, &controls_.current_core,
           &controls_.current_memory, &settings_, &startup_, &controls_.core_box,
           &controls_.memory_box, &controls_.core_slider, &controls_.memory_slider, &apply_,
           &default_}) {
    control->SetEnabled(usable);
  }
}

void OverclockingPage::SelectPair(bool is_3d) {
  clocks_.state.Clock3D = is_3d ? 1 : 0;
  // The memory runs at one clock for both pairs; it is set with the 2D pair.
  controls_.memory_box.SetEnabled(!is_3d);
  controls_.memory_slider.SetEnabled(!is_3d);
}

void OverclockingPage::EnableOC() {
  SetUsable(true);
  {
    const core::FlagScope starting(state_.IsStart);
    const bool at_startup =
        !registry_.ReadRegValue(RegRoot::kLocalMachine, core::kLogOnKey, kStartupValue).IsEmpty();
    startup_.Show(at_startup ? 1 : 0);
  }
  const bool is_3d =
      registry_.ReadRegValue(RegRoot::kCurrentUser, platform::kClockTweakKey, kPerformanceValue)
          .NumberOr(kPerformance2D) == kPerformance3D;
  (is_3d ? speed_3d_ : speed_2d_).Show(true);
  SelectPair(is_3d);
  clocks_.RefreshClocks();
  is_prepared_ = true;
}

void OverclockingPage::OverclockingChanged() {
  if (state_.IsStart == 1) return;
  if (enable_.Checked()) {
    EnableOC();
    OfferPairs();
    return;
  }
  clocks_.ResetClocks();
  SetUsable(false);
  speed_2d_.SetEnabled(false);
  speed_3d_.SetEnabled(false);
}

void OverclockingPage::StartupChanged() {
  if (state_.IsStart == 1) return;
  if (!startup_.Checked()) {
    registry_.DeleteRegValue(RegRoot::kLocalMachine, core::kLogOnKey, kStartupValue);
    return;
  }
  registry_.WriteAsBinary = 0;
  core::Ignore(registry_.WriteRegValue(RegRoot::kLocalMachine, core::kLogOnKey, kStartupValue,
                                       std::string(kStartupCommand)));
  core::Ignore(dialog_.ShowMessage(core::kProgramTitle, LangText[texts::kAppliedAtLogOn],
                                   platform::Buttons::kOk));
}

void OverclockingPage::PairChosen(bool is_3d) {
  if (state_.IsStart == 1) return;
  SelectPair(is_3d);
  clocks_.state.KeepClockValues = is_3d ? 1 : 0;
  core::Ignore(registry_.WriteRegValue(RegRoot::kCurrentUser, platform::kClockTweakKey,
                                       kPerformanceValue, is_3d ? kPerformance3D : kPerformance2D));
  clocks_.RefreshClocks();
}

std::optional<std::int16_t> OverclockingPage::ReadBox(TextBox& box, int name_text) {
  if (const std::optional<std::int16_t> mhz = TypedClock(box.Text())) return mhz;
  box.SetMarked(true);
  core::Ignore(dialog_.ShowMessage(
      core::kProgramTitle,
      LangText[name_text] + " \"" + box.Text() + "\": " + LangText[texts::kRefusedClock],
      platform::Buttons::kOk));
  return std::nullopt;
}

void OverclockingPage::Apply() {
  const std::optional<std::int16_t> core = ReadBox(controls_.core_box, texts::kCoreClock);
  if (!core) return;
  const std::optional<std::int16_t> memory = ReadBox(controls_.memory_box, texts::kMemoryClock);
  if (!memory) return;
  clocks_.state.CoreMHz = *core;
  clocks_.state.MemoryMHz = *memory;
  clocks_.SetAndRead();
  dialog_.RunPendingEvents();
  clocks_.RefreshClocks();
  MarkOdd(controls_.core_box, controls_.core_slider, *core);
  MarkOdd(controls_.memory_box, controls_.memory_slider, *memory);
}

std::optional<std::int16_t> TypedClock(std::string_view text) {
  using Limits = std::numeric_limits<std::int16_t>;
  const auto mhz = core::ParseWholeNumber(text, Limits::min(), Limits::max());
  return mhz ? std::optional(static_cast<std::int16_t>(mhz.Value())) : std::nullopt;
}

void OverclockingPage::MarkOdd(TextBox& box, const Slider& slider, std::int16_t mhz) {
  constexpr std::int16_t kLowestMHz = 1;
  if (mhz < kLowestMHz || !slider.Takes(mhz)) box.SetMarked(true);
}

}  // namespace kestrune::forms
