#pragma once

#include "ui/forms/form.h"

namespace kestrune::forms {

/// Form3: views and changes one by one the values that a database lists for the driver. What it
/// writes stands at once; the pages show it when they are read again.
extern const WindowRow kRegistryEditor;

}  // namespace kestrune::forms
