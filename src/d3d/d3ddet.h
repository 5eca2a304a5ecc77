#pragma once

#include "d3d/direct3d_settings.h"
#include "d3d/direct3d_state.h"
#include "settings/binding.h"
#include "settings/settings_key.h"

namespace kestrune::d3d {

/// What the Direct3D reader and writer work with. All of it outlives them.
struct Direct3DContext {
  const settings::SettingsKey& key;
  const settings::Hardware& hardware;
  const lang::LangTable& lang_text;
  std::span<const settings::Binding> bindings;  ///< of kDirect3DSettings
  Direct3DState& state;

  int Driver() const { return hardware.versions.DrvVer; }
  /// Windows 9x with a driver up to 22.80, which takes worded values and shows none.
  bool IsLegacyDriver() const {
    return hardware.versions.OSFamily == detect::kWindows9x && Driver() <= kLastLegacyDriver;
  }
  bool HasSharedValues() const { return Driver() >= kFirstSharedDriver; }
};

/// The OpenGL page's controls that show values of the Direct3D rows: the twins of those whose
/// entries differ from page to page.
struct OpenGLTwins {
  explicit OpenGLTwins(const controls::ControlSet& controls);

  controls::ComboBox& mode;
  controls::ComboBox& anisotropic;
};

/// Shows the driver's Direct3D values on the pages. It writes nothing to the registry.
class Direct3DReader {
 public:
  Direct3DReader(const Direct3DContext& context, const controls::ControlSet& controls)
      : context_(context), opengl_(controls) {}

  /// A number that a row doesn't list leaves its control as it was, where the row says so. The
  /// caller holds IsStart at 1.
  void ReadDirect3DSettings();

 private:
  using Binding = settings::Binding;
  using Setting = settings::Setting;

  void Show(const Binding& binding);
  void ShowSli(const Binding& binding);
  void ShowSharedMode(const Binding& binding, const Setting& row);
  void ShowFlags(const Binding& binding);
  void ShowOldMode(const Binding& binding, const Setting& row);
  void ShowAnisotropy(const Binding& binding, const Setting& row);
  void ShowShader(const Binding& binding);
  std::optional<std::int32_t> Read(const Setting& row) const {
    return context_.key.Read(row.name, row.place);
  }
  std::string Text(int number) const { return context_.lang_text[number]; }

  Direct3DContext context_;
  OpenGLTwins opengl_;
  const AaFlagRow* flags_ = nullptr;  ///< those of the mode's number as last read
};

}  // namespace kestrune::d3d
