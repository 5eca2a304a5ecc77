#pragma once

#include <span>
#include <string>

#include "ui/forms/control_row.h"
#include "ui/forms/shared.h"

namespace kestrune::forms {

extern const std::span<const ControlRow> kDirectXControls;

/// The page that shows what a program of its own reports of the graphics. That program runs the
/// first time the page is shown, and what it leaves behind is shown whether it could be started or
/// not.
class DirectXPage {
 public:
  explicit DirectXPage(const Shared& shared);
  DirectXPage(const DirectXPage&) = delete;
  DirectXPage& operator=(const DirectXPage&) = delete;

  void PageShown();

 private:
  void FillDirectXReport();
  /// False when the program had to be given up.
  bool MakeReport();

  const platform::Services& services_;
  const lang::LangTable& LangText;
  controls::ListBox& report_;
  bool was_shown_ = false;
};

}  // namespace kestrune::forms
