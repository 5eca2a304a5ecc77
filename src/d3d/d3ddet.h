#pragma once

#include "core/program_state.h"
#include "d3d/direct3d_catalogue.h"
#include "d3d/direct3d_state.h"
#include "d3d/settings_key.h"

namespace kestrune::d3d {

/// What the Direct3D reader and writer work with. All of it outlives them.
struct Direct3DContext {
  const SettingsKey& key;
  const detect::VersionState& versions;
  const detect::AdapterState& adapter;
  const core::ProgramState& program;
  const lang::LangTable& lang_text;
  const Direct3DControls& controls;
  Direct3DState& state;

  /// Windows 9x with a driver up to 22.80, which takes worded values and shows none.
  bool IsLegacyDriver() const {
    return versions.OSFamily == detect::kWindows9x && versions.DrvVer <= kLastLegacyDriver;
  }
  bool HasSharedValues() const { return versions.DrvVer >= kFirstSharedDriver; }
};

/// Shows the driver's Direct3D values on the pages. It writes nothing to the registry.
class Direct3DReader {
 public:
  explicit Direct3DReader(const Direct3DContext& context) : context_(context) {}

  /// A number that a row doesn't list leaves its control as it was, where the row says so. The
  /// caller holds IsStart at 1.
  void ReadDirect3DSettings();

 private:
  void ReadSliAntialiasing();
  void ReadSharedAntialiasing();
  void ReadOldAntialiasing();
  void ReadSharedAnisotropy();
  void ReadOldAnisotropy();
  void ReadShader(const ShaderRow& row, controls::Label& label, std::string& version_text);
  void ShowTransparency(int mode);
  std::optional<std::int32_t> Read(std::string_view name) const {
    return context_.key.Read(name, Place::kSettings);
  }
  std::string Text(const ShownText& text) const { return text.In(context_.lang_text); }

  Direct3DContext context_;
};

}  // namespace kestrune::d3d
