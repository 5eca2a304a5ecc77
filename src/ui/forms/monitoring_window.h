#pragma once

#include "ui/forms/form.h"

namespace kestrune::forms {

/// Form9: draws a recording, a page of up to 200 segments at a time, and discards it when a person
/// closes the window.
extern const WindowRow kMonitoringWindow;

}  // namespace kestrune::forms
