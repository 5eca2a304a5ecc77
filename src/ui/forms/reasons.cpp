#include "ui/forms/reasons.h"

#include <cstdio>

#include "catalogue/catalogue.h"
#include "lang/texts.h"

namespace kestrune::forms {

namespace texts = lang::texts;

namespace {

/// A release times 100 as it is written on drivers.
std::string ReleaseText(int release) {
  char text[16];
  (void)std::snprintf(text, sizeof(text), "%d.%02d", release / 100, release % 100);
  return text;
}

}  // namespace

void ExplainDisabled(controls::Control& control, const std::string& reason) {
  const std::string& tip = control.ToolTip();
  control.SetToolTip(tip.empty() ? reason : tip + "\n" + reason);
}

void ExplainDisabled(const controls::ControlSet& controls, const settings::Hardware& hardware,
                     const lang::LangTable& lang_text) {
  for (const settings::Setting* setting : catalogue::AllSettings()) {
    const settings::Needs& needs = setting->needs;
    if (hardware.Meets(needs)) continue;
    const bool is_old = hardware.versions.DrvVer < needs.from_driver;
    const std::string reason = is_old
                                   ? lang_text[texts::kFromDriver] + ReleaseText(needs.from_driver)
                                   : lang_text[texts::kNotOnThisCard];
    for (const std::string_view id :
         {setting->id, setting->twin, setting->label, setting->twin_label}) {
      controls::Control* control = controls.Find(id);
      if (control != nullptr && !control->Enabled()) ExplainDisabled(*control, reason);
    }
  }
}

}  // namespace kestrune::forms
