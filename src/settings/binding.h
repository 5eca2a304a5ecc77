#pragma once

#include <optional>
#include <span>
#include <vector>

#include "controls/control_set.h"
#include "controls/controls.h"
#include "settings/hardware.h"

namespace kestrune::settings {

/// A setting and its controls, found by id. Both outlive this.
struct Binding {
  const Setting* setting;
  controls::Control* control;
  controls::Control* twin;  ///< null where there is none, as the labels are
  controls::Control* label;
  controls::Control* twin_label;

  std::string_view Id() const { return setting->id; }
  /// The control and its twin, where it has one.
  std::vector<controls::Control*> Controls() const;
};

/// Finds the controls of all rows; a control that is missing is a fault of the program's tables.
std::vector<Binding> Bind(std::span<const Setting> settings, const controls::ControlSet& controls);

/// Shows a stored number, or that none is stored, on the control and its twin, by the row that
/// holds for the driver.
void ShowNumber(const Binding& binding, const Setting& row, std::optional<std::int32_t> number,
                const lang::LangTable& lang_text);
/// Shows what a writer's call stored, where the page doesn't show it already: the caption behind a
/// slider, a list's twin.
void ShowStored(const Binding& binding, const CodeMatch& match, std::int32_t argument,
                const lang::LangTable& lang_text);
/// Enables the controls as the machine at hand allows.
void ApplyNeeds(const Binding& binding, const Hardware& hardware);
/// Fills a list, and its twin's, with the texts of these choices.
void FillList(const Binding& binding, const std::vector<const Choice*>& offered,
              const lang::LangTable& lang_text);

}  // namespace kestrune::settings
