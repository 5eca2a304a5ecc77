#pragma once

#include "core/program_state.h"
#include "d3d/direct3d_state.h"
#include "detect/card_data.h"
#include "ogl/opengl_catalogue.h"

namespace kestrune::ogl {

/// Fills the lists of the Direct3D and OpenGL pages with what the card and the driver can do. A
/// list position means the same value everywhere.
class OptionLists {
 public:
  OptionLists(detect::CardData& cards, const detect::VersionState& versions,
              const detect::AdapterState& adapter, const core::ProgramState& program,
              const d3d::Direct3DState& direct3d, const lang::LangTable& lang_text,
              const d3d::Direct3DControls& direct3d_controls, const OpenGLControls& opengl_controls,
              controls::ComboBox* resolutions)
      : cards_(cards),
        versions_(versions),
        adapter_(adapter),
        program_(program),
        direct3d_(direct3d),
        LangText(lang_text),
        direct3d_controls_(direct3d_controls),
        opengl_controls_(opengl_controls),
        resolutions_(resolutions) {}

  /// Fills every list; the fixed ones only while IsStart is 1.
  void FillOptionLists();
  /// Rebuilds the four lists that depend on the card and on SliAaOn, with the texts that they
  /// showed, and enables the transparency and gamma controls where the processor has them.
  void FillCapabilityLists();

 private:
  std::vector<std::string> AnisotropicItems(bool for_opengl);
  std::vector<std::string> AntialiasingItems();

  detect::CardData& cards_;
  const detect::VersionState& versions_;
  const detect::AdapterState& adapter_;
  const core::ProgramState& program_;
  const d3d::Direct3DState& direct3d_;
  const lang::LangTable& LangText;
  const d3d::Direct3DControls& direct3d_controls_;
  const OpenGLControls& opengl_controls_;
  controls::ComboBox* resolutions_;
};

}  // namespace kestrune::ogl
