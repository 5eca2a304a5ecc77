#pragma once

#include "d3d/d3ddet.h"

namespace kestrune::d3d {

/// Stores the choices of the Direct3D pages, and of the OpenGL pages where the driver shares the
/// value. It never reads the registry.
class Direct3DWriter {
 public:
  Direct3DWriter(const Direct3DContext& context, const controls::ControlSet& controls)
      : context_(context), opengl_(controls) {}

  /// Stores what a code (0 to 128) stands for; `value` is the number of the codes that store one
  /// that the user chose. An unknown code stores nothing. Then it sets the captions and lists that
  /// follow from the code. WriteAsBinary is 0 afterwards.
  void WriteDirect3DSetting(int code, std::int32_t value);

 private:
  void WriteLegacy(int code) const;
  void WriteOldAntialiasingSwitch(int code) const;
  void Write(const settings::CodeMatch& match, std::int32_t value) const;
  void WriteMode(const settings::CodeMatch& match) const;
  void ShowAnisotropy(const settings::CodeMatch& match) const;
  const settings::Binding& BindingOf(const settings::Setting& row) const;
  std::int32_t FlagWord() const;

  Direct3DContext context_;
  OpenGLTwins opengl_;
};

}  // namespace kestrune::d3d
