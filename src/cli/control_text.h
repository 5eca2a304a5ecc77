#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "controls/controls.h"

namespace kestrune::cli {

using Json = nlohmann::ordered_json;

/// Text with its line ends and tabs as \n and \t.
std::string OneLine(std::string_view text);

/// Enabled, and so is everything that it stands in.
bool IsEnabled(const controls::Control& control);
/// Visible on its page or in its window, whether or not that page is the one shown.
bool IsVisible(const controls::Control& control);

/// A control's line: id, tab, value, and a tab with "hidden" or "disabled" where it is.
std::string ShowLine(const controls::Control& control);
Json ControlJson(controls::Control& control);

/// Does what a person does to set a control to a value. Gives the sentence that says why it can't
/// be done.
std::optional<std::string> UseValue(controls::Control& control, const std::string& value);
/// Does what a person does to press a control.
std::optional<std::string> Press(controls::Control& control);

}  // namespace kestrune::cli
