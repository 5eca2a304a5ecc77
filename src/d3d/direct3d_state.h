#pragma once

#include <string>

#include "lang/texts.h"
#include "settings/setting.h"

namespace kestrune::d3d {

/// What the Direct3D reader keeps for the writers and pages.
struct Direct3DState {
  /// 1 while SLI antialiasing is on.
  int SliAaOn = 0;
  /// 1 while gamma-correct antialiasing is on.
  int AaGammaOn = 0;
  /// Transparency antialiasing: 0 none, 1 multisampling, 2 supersampling.
  int AaTransparencyMode = 0;
  /// The page's text of the current antialiasing mode.
  std::string CurrentAaModeText;
  /// 1 while the reader runs.
  int D3dReaderBusy = 0;
  /// Textures that a pass may combine; -1 when the driver decides.
  int MaxSimultaneousTextures = -1;
  /// Highest shader version told to programs, or interface text 146 when the driver decides.
  std::string PixelShaderVersionText;
  std::string VertexShaderVersionText;

  /// The version text that goes with a shader's row.
  std::string& VersionText(const settings::Setting& row) {
    const bool is_pixel = row.prefix == settings::Ui(lang::texts::kPixelShader);
    return is_pixel ? PixelShaderVersionText : VertexShaderVersionText;
  }
};

}  // namespace kestrune::d3d
