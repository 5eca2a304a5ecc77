#pragma once

#include <functional>

#include "core/program_state.h"
#include "d3d/d3d.h"
#include "ogl/ogl.h"

namespace kestrune::forms {

/// What runs when a person changes a control of the Direct3D or OpenGL pages: each change is
/// stored at once, and the twin on the other interface's page follows. Nothing is stored while
/// IsStart is 1.
class SettingHandlers {
 public:
  /// What a change asks of the rest of the program.
  struct Hooks {
    std::function<void()> fill_capability_lists;
    /// Runs both readers while IsStart is 1.
    std::function<void()> read_settings;
    std::function<void()> show_preview;
  };

  /// Connects the handlers to the controls. All of it outlives the handlers.
  SettingHandlers(const core::ProgramState& program, const detect::VersionState& versions,
                  const lang::LangTable& lang_text, d3d::Direct3DState& state,
                  const d3d::Direct3DControls& direct3d_controls,
                  const ogl::OpenGLControls& opengl_controls, d3d::Direct3DWriter& direct3d,
                  ogl::OpenGLWriter& opengl, Hooks hooks);

 private:
  void ConnectTwins();
  void ConnectOpenGLOnly();
  void Direct3DModeChanged(controls::ComboChange change);
  void OpenGLModeChanged(controls::ComboChange change);
  void WriteOpenGLMode(const d3d::AaMode& mode);
  void OpenGLTransparencyChanged(controls::ComboChange change);
  void OpenGLGammaChanged();
  void SliChanged(controls::CheckBox& box, controls::CheckBox& twin);
  void Direct3DAnisotropyChanged();
  void OpenGLAnisotropyChanged();
  void ManualTrilinearChanged();
  void ManualCompressionChanged();
  void S3tcChanged();
  void VersionOverrideChanged();
  void EmulationChanged();
  void ForgetFlags();
  bool MirrorsTwins() const { return versions_.DrvVer > d3d::kFirstSharedDriver; }
  void WriteDirect3D(int code, std::int32_t value = 0) {
    direct3d_.WriteDirect3DSetting(code, value);
  }
  void WriteOpenGL(int operation, std::int32_t argument = 0) {
    opengl_.WriteOpenGLSetting(operation, argument);
  }
  /// A handler that does nothing while IsStart is 1.
  template <typename F>
  auto Guarded(F handler) {
    return [this, handler](auto... change) {
      if (program_.IsStart != 1) handler(change...);
    };
  }
  template <typename C, typename Write>
  void ConnectCatalogue(const d3d::Catalogue<C>& catalogue, const C& controls, Write write);

  const core::ProgramState& program_;
  const detect::VersionState& versions_;
  const lang::LangTable& LangText;
  d3d::Direct3DState& state_;
  const d3d::Direct3DControls& direct3d_controls_;
  const ogl::OpenGLControls& opengl_controls_;
  d3d::Direct3DWriter& direct3d_;
  ogl::OpenGLWriter& opengl_;
  Hooks hooks_;
};

}  // namespace kestrune::forms
