#pragma once

#include <string>

#include "controls/control_set.h"
#include "lang/language.h"
#include "settings/hardware.h"

namespace kestrune::forms {

/// Says in a control's tip why it is disabled, behind the tip that it has.
void ExplainDisabled(controls::Control& control, const std::string& reason);

/// Says so of every control of a setting that the machine doesn't allow, with its label, by what
/// the setting's row needs. To be called once: what it needs doesn't change while a program runs.
void ExplainDisabled(const controls::ControlSet& controls, const settings::Hardware& hardware,
                     const lang::LangTable& lang_text);

}  // namespace kestrune::forms
