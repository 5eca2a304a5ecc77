#pragma once

#include "ui/forms/form.h"

namespace kestrune::forms {

/// Form6: saves the driver's settings under a name, applies what was saved, and sees to the log-on
/// entry of the speed-profile starter.
extern const WindowRow kProfileManager;

}  // namespace kestrune::forms
