#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "clocks/clocks.h"
#include "ui/forms/control_row.h"
#include "ui/forms/shared.h"

namespace kestrune::forms {

extern const std::span<const ControlRow> kOverclockingControls;

/// The clock in MHz that a text of the page means, or nothing for what is no whole number of 16
/// bits.
std::optional<std::int16_t> TypedClock(std::string_view text);

/// The overclocking page: switches clock control, chooses the pair, edits and applies the clocks.
class OverclockingPage {
 public:
  explicit OverclockingPage(const Shared& shared);
  OverclockingPage(const OverclockingPage&) = delete;
  OverclockingPage& operator=(const OverclockingPage&) = delete;

  /// Offers the choice between the pairs on processors that have two.
  void OfferPairs();
  /// Prepares the page the first time it is shown.
  void PageShown();

 private:
  void EnableOC();
  void OverclockingChanged();
  void StartupChanged();
  void PairChosen(bool is_3d);
  void SelectPair(bool is_3d);
  void SetUsable(bool usable);
  void Apply();
  /// Marks the box of a clock that was set though the card is not meant for it.
  static void MarkOdd(controls::TextBox& box, const controls::Slider& slider, std::int16_t mhz);
  /// The whole number in a box, or nothing after marking the box and saying why.
  std::optional<std::int16_t> ReadBox(controls::TextBox& box, int name_text);

  core::ProgramState& state_;
  core::basRegistry& registry_;
  platform::DialogApi& dialog_;
  const lang::LangTable& LangText;
  const detect::AdapterState& adapter_;
  clocks::Clocks& clocks_;
  clocks::ClockControls controls_;
  controls::CheckBox& enable_;
  controls::CheckBox& startup_;
  controls::OptionButton& speed_2d_;
  controls::OptionButton& speed_3d_;
  controls::Label& settings_;
  controls::Button& apply_;
  controls::Button& default_;
  bool is_prepared_ = false;
};

}  // namespace kestrune::forms
