#pragma once

#include "ui/forms/control_row.h"
#include "ui/forms/direct3d_pages.h"

namespace kestrune::forms {

extern const std::span<const ControlRow> kOpenGLAntialiasingControls;
extern const std::span<const ControlRow> kOpenGLFilteringControls;
extern const std::span<const ControlRow> kOpenGLMiscControls;
extern const std::span<const ControlRow> kOpenGLCompatibilityControls;

/// The OpenGL pages: what choosing a value stores beyond its row, and the values that these pages
/// share with those of Direct3D.
class OpenGLPages {
 public:
  OpenGLPages(const Shared& shared, DriverSettings& driver, Direct3DPages& direct3d);
  OpenGLPages(const OpenGLPages&) = delete;
  OpenGLPages& operator=(const OpenGLPages&) = delete;

 private:
  void ConnectTwins();
  void ConnectComposites();
  void ModeChanged(controls::ComboChange change);
  void TransparencyChanged(controls::ComboChange change);
  void GammaChanged();
  void AnisotropyChanged();
  void ManualTrilinearChanged();
  void ManualCompressionChanged();
  void S3tcChanged();

  DriverSettings& driver_;
  Direct3DPages& direct3d_;
  controls::ComboBox& mode_;
  controls::ComboBox& direct3d_mode_;
  controls::ComboBox& transparency_;
  controls::ComboBox& direct3d_transparency_;
  controls::CheckBox& gamma_;
  controls::CheckBox& direct3d_gamma_;
  controls::ComboBox& anisotropic_;
  controls::ComboBox& direct3d_anisotropic_;
  ogl::CompositeControls composites_;
};

}  // namespace kestrune::forms
