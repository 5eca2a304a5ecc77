#pragma once

#include <functional>

#include "ogl/opengl_settings.h"
#include "settings/binding.h"
#include "settings/settings_key.h"

namespace kestrune::ogl {

/// What the OpenGL reader and writer work with. All of it outlives them.
struct OpenGLContext {
  const settings::SettingsKey& key;
  const settings::Hardware& hardware;
  const lang::LangTable& lang_text;
  std::span<const settings::Binding> bindings;  ///< of kOpenGLSettings
  /// The Direct3D reader and writer, for the values that both interfaces share.
  std::function<void()> read_direct3d;
  std::function<void(int code)> write_direct3d;

  int Driver() const { return hardware.versions.DrvVer; }
  bool HasSharedValues() const { return Driver() >= d3d::kFirstSharedDriver; }
  bool IsWindows9x() const { return hardware.versions.OSFamily == detect::kWindows9x; }
};

/// The controls whose values are told by more than one row.
struct CompositeControls {
  explicit CompositeControls(const controls::ControlSet& controls);

  controls::CheckBox& s3tc;
  controls::CheckBox& no_dxt1_dithering;
  controls::CheckBox& manual_trilinear;
  controls::Slider& trilinear_quality;
  controls::Label& trilinear_quality_label;
  controls::CheckBox& manual_compression;
  controls::OptionButton& compression_by_application;
  controls::OptionButton& compression_enabled;
};

/// Shows the driver's OpenGL values on the pages. It writes nothing to the registry, but leaves
/// WriteAsBinary at 1 on the NT family and at 0 on Windows 9x.
class OpenGLReader {
 public:
  OpenGLReader(OpenGLContext context, const controls::ControlSet& controls)
      : context_(std::move(context)), controls_(controls) {}

  /// A number that a row doesn't list leaves its control as it was, where the row says so. On the
  /// NT family with shared values it ends by running the Direct3D reader. The caller holds IsStart
  /// at 1.
  void ReadOpenGLSettings();

 private:
  void Show(const settings::Binding& binding);
  void ShowS3tc(const settings::Binding& binding);
  void ShowTrilinearQuality(const settings::Binding& binding);
  void ShowCompression(const settings::Binding& binding);
  void ShowOldEmulation(const settings::Binding& binding, const settings::Setting& row);
  std::optional<std::int32_t> Read(const settings::Setting& row) const {
    return context_.key.Read(row.name, row.place);
  }

  OpenGLContext context_;
  CompositeControls controls_;
};

}  // namespace kestrune::ogl
