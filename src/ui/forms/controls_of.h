#pragma once

#include "cpl/control_panel.h"
#include "d3d/overrides.h"
#include "d3d/preview.h"
#include "detect/versions.h"
#include "ogl/opengl_catalogue.h"
#include "ui/forms/main_form.h"

/// The main window's controls as each part of the logic takes them.
namespace kestrune::forms {

d3d::Direct3DControls Direct3DControlsOf(const MainForm& form);
ogl::OpenGLControls OpenGLControlsOf(const MainForm& form);
d3d::PreviewControls PreviewControlsOf(const MainForm& form);
d3d::OverrideControls OverrideControlsOf(const MainForm& form);
cpl::ControlPanelControls ControlPanelControlsOf(const MainForm& form);
detect::VersionControls VersionControlsOf(const MainForm& form);

}  // namespace kestrune::forms
