#pragma once

#include "ui/forms/form.h"

namespace kestrune::forms {

/// Form8: introduces the program for three seconds, or until it is clicked or a key is pressed.
extern const WindowRow kIntroWindow;

}  // namespace kestrune::forms
