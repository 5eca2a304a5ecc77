#pragma once

#include "d3d/d3d.h"
#include "ogl/ogl.h"
#include "ogl/option_lists.h"
#include "ui/forms/shared.h"

namespace kestrune::forms {

/// The driver's values on the Direct3D and OpenGL pages: their rows bound to their controls, the
/// readers, the writers and the lists. Each control stores a person's choice at once, by its row;
/// what takes more than the row is seen to by the pages.
class DriverSettings {
 public:
  explicit DriverSettings(const Shared& shared);
  DriverSettings(const DriverSettings&) = delete;
  DriverSettings& operator=(const DriverSettings&) = delete;

  /// Runs both readers, Direct3D first. The caller holds IsStart at 1.
  void Read();
  void ReadOpenGL() { opengl_reader_.ReadOpenGLSettings(); }
  /// Shows transparency and gamma correction as they are without a mode.
  void ShowNoModeFlags();
  /// A person's choice, by the code of a writer.
  void WriteDirect3D(int code, std::int32_t value = 0) {
    direct3d_writer_.WriteDirect3DSetting(code, value);
  }
  void WriteOpenGL(int operation, std::int32_t argument = 0) {
    opengl_writer_.WriteOpenGLSetting(operation, argument);
  }
  /// Makes the call of an OpenGL page's choice, which may be for the Direct3D writer.
  void WriteOpenGL(const settings::Call& call);
  bool HasSharedValues() const { return direct3d_context_.HasSharedValues(); }
  /// Whether the driver is above the release from which both pages show each other's choices.
  bool MirrorsTwins() const { return hardware_.versions.DrvVer > d3d::kFirstSharedDriver; }
  /// A handler that does nothing while IsStart is 1.
  template <typename F>
  auto Guarded(F handler) const {
    return [this, handler](auto... change) {
      if (hardware_.program.IsStart != 1) handler(change...);
    };
  }
  /// The choice that a control's text names, listed or not; null for another text.
  const settings::Choice* FindChoice(std::string_view id, std::string_view text) const;

  d3d::Direct3DState& State() { return direct3d_state_; }
  const d3d::Direct3DState& State() const { return direct3d_state_; }
  const d3d::Direct3DContext& Direct3D() const { return direct3d_context_; }
  d3d::Direct3DWriter& TheDirect3DWriter() { return direct3d_writer_; }
  ogl::OptionLists& Lists() { return lists_; }

 private:
  void Connect(const settings::Binding& binding);
  void Connect(const settings::Binding& binding, controls::Control& control);
  void BoxChanged(const settings::Setting& newest, const controls::CheckBox& box);
  void ComboChanged(const settings::Binding& binding, const controls::ComboBox& combo);
  void Write(const settings::Setting& row, const settings::Choice& choice);
  void WriteNumber(const settings::Setting& row, std::int32_t number);

  const lang::LangTable& LangText;
  const settings::Hardware& hardware_;
  const std::vector<settings::Binding> direct3d_bindings_;
  const std::vector<settings::Binding> opengl_bindings_;
  const settings::SettingsKey direct3d_key_;
  const settings::SettingsKey opengl_key_;
  d3d::Direct3DState direct3d_state_;
  const d3d::Direct3DContext direct3d_context_;
  d3d::Direct3DReader direct3d_reader_;
  d3d::Direct3DWriter direct3d_writer_;
  const ogl::OpenGLContext opengl_context_;
  ogl::OpenGLReader opengl_reader_;
  ogl::OpenGLWriter opengl_writer_;
  ogl::OptionLists lists_;
};

}  // namespace kestrune::forms
