#pragma once

#include "ui/forms/form.h"

namespace kestrune::forms {

/// Form7: looks for the application that goes with a speed profile, in all folders of the machine.
extern const WindowRow kAssociatedApplication;

}  // namespace kestrune::forms
