#pragma once

#include <span>
#include <vector>

#include "ui/forms/control_row.h"
#include "ui/forms/shared.h"

namespace kestrune::forms {

extern const std::span<const ControlRow> kResolutionControls;

/// The page that lists the display's modes and changes them, for good or quickly for a while.
class ResolutionPage {
 public:
  explicit ResolutionPage(const Shared& shared);
  ResolutionPage(const ResolutionPage&) = delete;
  ResolutionPage& operator=(const ResolutionPage&) = delete;

  /// Lists every mode but that of number 0.
  void ListDisplayModes();
  /// Fills the list of sizes to choose quickly from.
  void FillList();

 private:
  void Apply();
  void ChooseQuickly();
  /// Changes the size until it is changed again, and says nothing of a failure.
  void SetResolution(int width, int height);
  /// Asks whether the changed mode can be seen, and puts the former one back otherwise.
  void Confirm(const platform::DisplayMode& former);
  platform::Answer Ask(int text, const platform::Question& question);

  platform::DisplayApi& display_;
  platform::DialogApi& dialog_;
  const lang::LangTable& LangText;
  controls::ListBox& list_;
  controls::ComboBox& quick_choice_;
  controls::Button& apply_;
  std::vector<platform::DisplayMode> modes_;  ///< number 0 first
};

}  // namespace kestrune::forms
