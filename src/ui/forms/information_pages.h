#pragma once

#include <span>

#include "ui/forms/control_row.h"

namespace kestrune::forms {

extern const std::span<const ControlRow> kBasicInformationControls;

}  // namespace kestrune::forms
