#pragma once

#include "d3d/overrides.h"
#include "d3d/preview.h"
#include "ui/forms/control_row.h"
#include "ui/forms/driver_settings.h"

namespace kestrune::forms {

extern const std::span<const ControlRow> kDirect3DAntialiasingControls;
extern const std::span<const ControlRow> kDirect3DFilteringControls;
extern const std::span<const ControlRow> kDirect3DMiscControls;
extern const std::span<const ControlRow> kMultitexturingControls;
extern const std::span<const ControlRow> kShaderControls;

/// The Direct3D pages: what choosing a value stores beyond its row, the twins on the OpenGL pages,
/// the preview of antialiasing modes, and the capabilities that the driver reports.
class Direct3DPages {
 public:
  Direct3DPages(const Shared& shared, DriverSettings& driver);
  Direct3DPages(const Direct3DPages&) = delete;
  Direct3DPages& operator=(const Direct3DPages&) = delete;

  void ShowPreview() { preview_.ShowAaPreview(); }
  /// Sets the multitexturing and the shader page up from the stored values.
  void InitOverrides();
  /// Without a mode there are no flags: both are forgotten, and neither page shows one.
  void ForgetFlags();

 private:
  void ModeChanged(controls::ComboChange change);
  void SliChanged(controls::CheckBox& box, controls::CheckBox& twin);
  void AnisotropyChanged();

  core::ProgramState& state_;
  DriverSettings& driver_;
  controls::ComboBox& mode_;
  controls::ComboBox& opengl_mode_;
  controls::ComboBox& anisotropic_;
  controls::ComboBox& opengl_anisotropic_;
  d3d::AaPreview preview_;
  d3d::CapabilityOverrides overrides_;
};

}  // namespace kestrune::forms
