#pragma once

#include <string>
#include <string_view>

#include "cli/output.h"
#include "controls/gate.h"
#include "platform/result.h"

namespace kestrune::cli {

/// Enabled, and so is everything that it stands in.
bool IsEnabled(const controls::Control& control);
/// Visible on its page or in its window, whether or not that page is the one shown.
bool IsVisible(const controls::Control& control);

/// A control's line: id, tab, value, and a tab with "hidden" or "disabled" where it is.
std::string ShowLine(const controls::Control& control);
Json ControlJson(controls::Control& control);

/// What the gate said to an act on a control: where it refused, the sentence that says why.
platform::Result<void> ToResult(const controls::Gate& gate, const controls::Control& control,
                                controls::Refusal refusal);
/// Does what a person does to set a control to a value. What it gives is a sentence to say of the
/// value although it was taken; empty for none.
platform::Result<std::string> UseValue(controls::Gate& gate, controls::Control& control,
                                       const std::string& value);
/// Does what a person does to press a control.
platform::Result<void> Press(controls::Gate& gate, controls::Control& control);

}  // namespace kestrune::cli
