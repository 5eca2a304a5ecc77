#include "clocks/clocks.h"

#include <array>

#include "clocks/cool_bits.h"
#include "core/options.h"
#include "core/outcome.h"
#include "lang/texts.h"
#include "platform/driver_keys.h"

namespace kestrune::clocks {

namespace texts = lang::texts;

using core::RegInput;
using core::RegRoot;
using core::RegValue;
using platform::ClockPair;
using platform::kRevisionMark;

namespace {

constexpr std::string_view kInitializeValue = "NvInitialize";
constexpr std::string_view kInitializeCommand = "RUNDLL32.EXE NvQTwk.dll,NvXTInit";

/// The reload commands, with the spelling of the step that starts them.
constexpr std::string_view kStartUp = core::kReloadCommand;
constexpr std::string_view kStartUpBeforeSet = "rundll32 nvcpl.dll,NvStartup";
constexpr std::string_view kOldStartUp = "rundll32 NvQtwk,NvXTInit";
constexpr std::string_view kOldQuery = "rundll32 NvQtwk,NvHWCtl";
constexpr std::string_view kOldQueryBeforeSet = "rundll32 NvQTwk,NvHWCtl";

/// On Windows 9x this release changed the library that reloads.
constexpr int kFirstNvCplDriver = 2281;
/// Above this release a set needs the switches.
constexpr int kLastDriverWithoutSwitches = 5500;

constexpr int kMostAttempts = 5;

/// A fraction rounded to the nearest whole number, halves to the even one. Both are positive.
int RoundedQuotient(int dividend, int divisor) {
  const int quotient = dividend / divisor;
  const int twice_rest = 2 * (dividend % divisor);
  const bool up = twice_rest > divisor || (twice_rest == divisor && quotient % 2 != 0);
  return up ? quotient + 1 : quotient;
}

RegInput InputOf(const RegValue& value) {
  if (value.IsNumber()) return *value.Number();
  return value.Text();
}

}  // namespace

ClockControls::ClockControls(const controls::ControlSet& controls)
    : default_core(controls.Get<controls::Label>("overclocking.default-core-speed")),
      default_memory(controls.Get<controls::Label>("overclocking.default-memory-speed")),
      current_core(controls.Get<controls::Label>("overclocking.current-core-speed")),
      current_memory(controls.Get<controls::Label>("overclocking.current-memory-speed")),
      core_box(controls.Get<controls::TextBox>("overclocking.core-clock")),
      memory_box(controls.Get<controls::TextBox>("overclocking.memory-clock")),
      core_slider(controls.Get<controls::Slider>("overclocking.core-clock-slider")),
      memory_slider(controls.Get<controls::Slider>("overclocking.memory-clock-slider")) {}

Clocks::Names Clocks::NamesOf(const ClockVariant& variant) const {
  if (variant.follows_pair && state.Clock3D == 1) return {"Bart3D", "Krusty3D"};
  return {"Bart", "Krusty"};
}

bool Clocks::IsOlderThan(int driver) const {
  return versions_.OSFamily == detect::kWindows9x && versions_.DrvVer < driver;
}

RegRoot Clocks::SetRoot() const {
  return IsOlderThan(platform::kFirstInstanceClockDriver) ? RegRoot::kLocalMachine
                                                          : RegRoot::kCurrentUser;
}

RegRoot Clocks::ReadRoot() const {
  return versions_.OSFamily == detect::kWindows9x ? RegRoot::kLocalMachine : RegRoot::kCurrentUser;
}

RegValue Clocks::ReadValue(RegRoot root, std::string_view name) {
  return registry_.ReadRegValue(root, adapter_.HardwareKey, name);
}

void Clocks::WriteValue(RegRoot root, std::string_view name, const RegInput& value) {
  core::Ignore(registry_.WriteRegValue(root, adapter_.HardwareKey, name, value));
}

void Clocks::DeleteValue(RegRoot root, std::string_view name) {
  registry_.DeleteRegValue(root, adapter_.HardwareKey, name);
}

void Clocks::DeleteAll(RegRoot root, std::initializer_list<std::string_view> names) {
  for (const std::string_view name : names) DeleteValue(root, name);
}

void Clocks::Start(std::string_view command_line) {
  core::Ignore(shell_.StartCommand(command_line, platform::WindowState::kMinimised));
}

void Clocks::WriteCoolBits() {
  core::Ignore(registry_.WriteRegValue(RegRoot::kLocalMachine, platform::kTweakKey, kCoolBitsValue,
                                       CoolBitsOn(versions_)));
}

void Clocks::ReloadForDefaults() {
  if (!IsOlderThan(platform::kFirstInstanceClockDriver)) {
    Start(kStartUp);
    return;
  }
  Start(kOldStartUp);
  registry_.DeleteRegValue(SetRoot(), core::kLogOnKey, kInitializeValue);
}

void Clocks::ReloadForRequested() {
  if (!IsOlderThan(kFirstNvCplDriver)) {
    Start(kStartUp);
    return;
  }
  Start(kOldStartUp);
  registry_.WriteAsBinary = 0;
  core::Ignore(registry_.WriteRegValue(SetRoot(), core::kLogOnKey, kInitializeValue,
                                       std::string(kInitializeCommand)));
}

void Clocks::ResetClocks() {
  const RegRoot root = SetRoot();
  DeleteAll(root, {"Krusty", "Marge", "Bart", "Lisa", "Homer", "Geraklit", "Gesiod"});
  WriteValue(root, "Geraklit", 1);
  WriteValue(root, "Gesiod", 2);
  WriteValue(root, "Marge", 0);
  ReloadForDefaults();
}

void Clocks::WriteSwitchesIfMissing() {
  if (versions_.DrvVer <= kLastDriverWithoutSwitches) return;
  const RegRoot root = SetRoot();
  if (!ReadValue(root, "Geraklit").IsEmpty() && !ReadValue(root, "Gesiod").IsEmpty()) return;
  WriteValue(root, "Geraklit", 2);
  WriteValue(root, "Gesiod", 2);
}

void Clocks::Set(const ClockVariant& variant) {
  if (variant.unlocks_on_set) {
    WriteCoolBits();
    WriteSwitchesIfMissing();
  }
  const Names names = NamesOf(variant);
  if (state.CoreMHz == state.DefaultCoreMHz && state.MemoryMHz == state.DefaultMemoryMHz) {
    RestoreDefaults(names);
  } else {
    StoreRequested(variant, names);
  }
}

void Clocks::RestoreDefaults(const Names& names) {
  const RegRoot root = SetRoot();
  DeleteValue(root, names.krusty);
  WriteValue(root, names.krusty, ReadValue(root, names.bart).NumberOr(0));
  ReloadForDefaults();
  DeleteAll(root, {"Marge", names.krusty, names.bart, "Homer"});
}

void Clocks::StoreRequested(const ClockVariant& variant, const Names& names) {
  const RegRoot root = SetRoot();
  if (variant.follows_pair) registry_.WriteAsBinary = 0;
  WriteValue(root, "Marge", 1);
  const auto number = [&](std::string_view name) { return ReadValue(root, name).NumberOr(0); };
  if (number("Homer") == 0 || number(names.bart) == 0) {
    // Without the driver's own values nothing can be encoded, so it is asked for them.
    DeleteAll(root, {names.krusty, names.bart});
    Start(IsOlderThan(kFirstNvCplDriver) ? kOldQueryBeforeSet : kStartUpBeforeSet);
  }
  const std::int32_t homer = number("Homer");
  const std::int32_t bart = number(names.bart);
  if (variant.follows_pair) registry_.WriteAsBinary = 0;
  WriteValue(root, names.krusty,
             platform::EncodeClockWord({state.CoreMHz, state.MemoryMHz},
                                       {adapter_.DeviceIdNumber, homer}));
  ReloadForRequested();
  WriteValue(root, names.bart, bart);
  WriteValue(root, "Marge", 1);
}

void Clocks::Read(const ClockVariant& variant) {
  const RegRoot root = ReadRoot();
  const Names names = NamesOf(variant);
  if (variant.unlocks_first) WriteCoolBits();

  // What the driver answers is wanted alone, so what is stored steps aside meanwhile.
  const std::array<std::string_view, 4> saved_names = {"Homer", names.bart, names.krusty, "Marge"};
  std::array<RegValue, 4> saved;
  for (std::size_t i = 0; i < saved.size(); ++i) saved[i] = ReadValue(root, saved_names[i]);
  if (!variant.keeps_on_request || state.KeepClockValues == 0) {
    DeleteAll(root, {names.krusty, "Bart", "Bart3D", "Homer"});
  }
  if (!variant.unlocks_first) WriteCoolBits();
  Start(IsOlderThan(kFirstNvCplDriver) ? kOldQuery : kStartUp);

  const std::int32_t fresh_bart = ReadValue(root, names.bart).NumberOr(0);
  const std::int32_t fresh_homer = ReadValue(root, "Homer").NumberOr(0);
  const std::int32_t fresh_krusty = ReadValue(root, names.krusty).NumberOr(0);
  if (variant.follows_pair) registry_.WriteAsBinary = 0;
  for (std::size_t i = 0; i < saved.size(); ++i) {
    if (saved[i].IsEmpty()) {
      DeleteValue(root, saved_names[i]);
    } else {
      WriteValue(root, saved_names[i], InputOf(saved[i]));
    }
  }

  const bool has_saved = !saved[0].IsEmpty() && !saved[1].IsEmpty();
  const std::int32_t default_homer = has_saved ? saved[0].NumberOr(0) : fresh_homer;
  const std::int32_t default_word = has_saved ? saved[1].NumberOr(0) : fresh_bart;
  const std::int16_t device = adapter_.DeviceIdNumber;
  const ClockPair defaults = platform::DecodeClockWord(default_word, {device, default_homer});
  state.DefaultCoreMHz = defaults.core;
  state.DefaultMemoryMHz = defaults.memory;
  const std::int32_t word = fresh_krusty != 0 ? fresh_krusty : fresh_bart;
  const ClockPair in_force = platform::DecodeClockWord(word, {device, fresh_homer});
  state.CoreMHz = in_force.core;
  state.MemoryMHz = in_force.memory;
}

void Clocks::SetAndRead() {
  SetRequested();
  dialog_.RunPendingEvents();
  Read(Variant());
}

void Clocks::BumpClockKeyRevision() {
  std::string& key = adapter_.HardwareKey;
  const std::size_t mark = key.find(kRevisionMark);
  if (mark == std::string::npos) return;
  const std::size_t revision = mark + kRevisionMark.size();
  if (revision + 1 >= key.size()) return;
  const char digit = key[revision + 1];
  if (digit < '0' || digit > '9') return;
  key.replace(revision + 1, 1, std::to_string(digit - '0' + 1));
}

bool Clocks::ReadPlausible(std::int16_t most_mhz, const std::function<void()>& read) {
  for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
    Read(Variant());
    if (read) read();
    if (state.DefaultMemoryMHz <= most_mhz && state.DefaultCoreMHz <= most_mhz) return true;
    BumpClockKeyRevision();
  }
  return false;
}

void Clocks::RefreshClocks() {
  state.DefaultCoreMHz = state.DefaultMemoryMHz = state.CoreMHz = state.MemoryMHz = 0;
  state.KeepClockValues = 1;
  if (ReadPlausible(kMostPlausibleMHz, [this] { Show(); })) return;
  core::Ignore(dialog_.ShowMessage(core::kProgramTitle,
                                   LangText[texts::kImplausibleClocks] + adapter_.DeviceIdPrefix +
                                       LangText[texts::kImplausibleClocksEnd],
                                   platform::Buttons::kOk));
}

void Clocks::Show() {
  const auto show = [this](controls::Label& label, int text, std::int16_t mhz) {
    label.SetCaption(LangText[text] + std::to_string(mhz) + " MHz");
  };
  show(controls_.default_core, texts::kDefaultCore, state.DefaultCoreMHz);
  show(controls_.default_memory, texts::kDefaultMemory, state.DefaultMemoryMHz);
  show(controls_.current_core, texts::kCurrentCore, state.CoreMHz);
  show(controls_.current_memory, texts::kCurrentMemory, state.MemoryMHz);
  controls_.core_box.ShowText(std::to_string(state.CoreMHz));
  controls_.memory_box.ShowText(std::to_string(state.MemoryMHz));
  ShowRange(controls_.core_slider, state.DefaultCoreMHz, state.CoreMHz);
  ShowRange(controls_.memory_slider, state.DefaultMemoryMHz, state.MemoryMHz);
}

void Clocks::ShowRange(controls::Slider& slider, std::int16_t default_mhz, std::int16_t mhz) {
  // 30 per cent below and above the default; a default below 0 is no default.
  if (default_mhz >= 0) {
    slider.SetRange(RoundedQuotient(default_mhz * 10, 13), RoundedQuotient(default_mhz * 13, 10));
  }
  slider.Show(mhz);
}

}  // namespace kestrune::clocks
