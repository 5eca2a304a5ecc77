#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "clocks/clock_state.h"
#include "controls/control_set.h"
#include "controls/controls.h"
#include "core/registry.h"
#include "detect/adapter.h"
#include "platform/clock_word.h"
#include "platform/dialog_api.h"
#include "platform/shell_api.h"

namespace kestrune::clocks {

/// What RefreshClocks fills on the overclocking page.
struct ClockControls {
  explicit ClockControls(const controls::ControlSet& controls);

  controls::Label& default_core;
  controls::Label& default_memory;
  controls::Label& current_core;
  controls::Label& current_memory;
  controls::TextBox& core_box;
  controls::TextBox& memory_box;
  controls::Slider& core_slider;
  controls::Slider& memory_slider;
};

/// What distinguishes the processors with one pair of clocks from those with a 2D and a 3D pair.
struct ClockVariant {
  bool follows_pair;      ///< its values are named by Clock3D, and its writes are REG_DWORD
  bool unlocks_on_set;    ///< a set writes CoolBits and the switches first
  bool unlocks_first;     ///< a read writes CoolBits before anything else
  bool keeps_on_request;  ///< a read deletes nothing while KeepClockValues is 1
};

/// Reads, sets and resets the clocks through the driver's values in the clock key, and makes the
/// driver reload them. Nothing waits for the driver, and no failure of the registry is reported.
///
/// To set clocks, put the requested pair into CoreMHz and MemoryMHz and call SetAndRead, then
/// RefreshClocks.
class Clocks {
 public:
  /// The most that a card's default clocks are taken for.
  static constexpr std::int16_t kMostPlausibleMHz = 2000;

  Clocks(core::basRegistry& registry, platform::ShellApi& shell, platform::DialogApi& dialog,
         const detect::VersionState& versions, detect::AdapterState& adapter,
         const lang::LangTable& lang_text, const controls::ControlSet& controls)
      : registry_(registry),
        shell_(shell),
        dialog_(dialog),
        versions_(versions),
        adapter_(adapter),
        LangText(lang_text),
        controls_(controls) {}

  /// Unlocks the driver's clock control.
  void WriteCoolBits();
  /// Removes the 2D clock values, so that the driver returns to its defaults.
  void ResetClocks();
  /// For processors with one pair: store the requested clocks, or restore the defaults when they
  /// are requested; decode the defaults and the clocks in force.
  void SetClocks() { Set(kOnePair); }
  void ReadClocks() { Read(kOnePair); }
  /// The same for processors with two pairs, of which Clock3D chooses one.
  void SetClocksFx5900() { Set(kTwoPairs); }
  void ReadClocksFx5900() { Read(kTwoPairs); }
  /// Sets the requested clocks on whatever processor this is.
  void SetRequested() { Set(Variant()); }
  /// Sets and reads the requested clocks.
  void SetAndRead();
  /// Raises the revision in HardwareKey by one: A1 becomes A2, A9 becomes A10. A key without a
  /// revision that ends in a digit stays.
  void BumpClockKeyRevision();
  /// Reads the clocks. Defaults of more than `most_mhz` mean a wrong clock key: it is tried with
  /// the next revision, five times at the most. `read` runs after each reading. False when none was
  /// plausible.
  bool ReadPlausible(std::int16_t most_mhz, const std::function<void()>& read = {});
  /// Reads the clocks and shows them, or says in a message that no plausible ones were read.
  void RefreshClocks();

  ClockState state;

 private:
  static constexpr ClockVariant kOnePair = {false, true, false, false};
  static constexpr ClockVariant kTwoPairs = {true, false, true, true};

  /// The value names of the pair in use.
  struct Names {
    std::string_view bart;
    std::string_view krusty;
  };
  Names NamesOf(const ClockVariant& variant) const;
  core::RegRoot SetRoot() const;
  core::RegRoot ReadRoot() const;
  bool IsOlderThan(int driver) const;
  const ClockVariant& Variant() const { return adapter_.CardVar == 1 ? kTwoPairs : kOnePair; }

  void Set(const ClockVariant& variant);
  void RestoreDefaults(const Names& names);
  void StoreRequested(const ClockVariant& variant, const Names& names);
  void Read(const ClockVariant& variant);
  void WriteSwitchesIfMissing();
  void ReloadForDefaults();
  void ReloadForRequested();
  void Show();
  void ShowRange(controls::Slider& slider, std::int16_t default_mhz, std::int16_t mhz);
  void Start(std::string_view command_line);
  core::RegValue ReadValue(core::RegRoot root, std::string_view name);
  void WriteValue(core::RegRoot root, std::string_view name, const core::RegInput& value);
  void DeleteValue(core::RegRoot root, std::string_view name);
  void DeleteAll(core::RegRoot root, std::initializer_list<std::string_view> names);

  core::basRegistry& registry_;
  platform::ShellApi& shell_;
  platform::DialogApi& dialog_;
  const detect::VersionState& versions_;
  detect::AdapterState& adapter_;
  const lang::LangTable& LangText;
  ClockControls controls_;
};

}  // namespace kestrune::clocks
