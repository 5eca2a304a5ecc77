#pragma once

#include "cpl/control_panel.h"
#include "ui/forms/control_row.h"
#include "ui/forms/shared.h"

namespace kestrune::forms {

extern const std::span<const ControlRow> kControlPanelControls;

inline constexpr std::string_view kRevealedFolder = "DATA/cpl/";
/// The file names of the pictures of what the switches reveal.
std::vector<std::string> RevealedPictures();

/// The page of the control panel's switches, with the picture of what they reveal.
class ControlPanelPages {
 public:
  explicit ControlPanelPages(const Shared& shared);
  ControlPanelPages(const ControlPanelPages&) = delete;
  ControlPanelPages& operator=(const ControlPanelPages&) = delete;

  /// Shows what is stored for the switches.
  void ReadOptions();

 private:
  void ShowRevealed(std::string_view tag);

  core::ProgramState& state_;
  platform::FilesApi& files_;
  cpl::ControlPanelOptions options_;
  controls::PictureBox& picture_;
  std::string_view shown_tag_;
};

}  // namespace kestrune::forms
