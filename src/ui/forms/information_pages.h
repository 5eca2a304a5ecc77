#pragma once

#include <span>

#include "ui/forms/control_row.h"
#include "ui/forms/shared.h"

namespace kestrune::forms {

extern const std::span<const ControlRow> kBasicInformationControls;

/// The information pages. Detection fills the lines that it finds out; the rest is said here.
class InformationPages {
 public:
  explicit InformationPages(const Shared& shared);
  InformationPages(const InformationPages&) = delete;
  InformationPages& operator=(const InformationPages&) = delete;

  /// Shows the program's own version, with the number of its last update where one is kept.
  void ShowVersion(int last_update);

 private:
  const lang::LangTable& LangText;
  controls::Label& version_line_;
};

}  // namespace kestrune::forms
