#pragma once

#include "ui/forms/form.h"

namespace kestrune::forms {

/// Form4: sets Direct3D and OpenGL up from one slider, the card and the processor's clock.
extern const WindowRow kPerformanceWizard;

}  // namespace kestrune::forms
