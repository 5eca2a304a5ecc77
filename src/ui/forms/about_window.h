#pragma once

#include <span>
#include <string_view>

#include "ui/forms/form.h"

namespace kestrune::forms {

/// Form2: the program's version, its documentation and what it is built on.
extern const WindowRow kAboutWindow;

/// A library that the programs use, and the licence that they use it under.
struct LicenceRow {
  std::string_view library;
  std::string_view licence;
  std::string_view headers;  ///< how the names of its headers begin
};

/// In the order of the list.
extern const std::span<const LicenceRow> kLicences;

}  // namespace kestrune::forms
