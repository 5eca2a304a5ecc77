#pragma once

#include "d3d/d3ddet.h"

namespace kestrune::d3d {

/// Stores the choices of the Direct3D pages, and of the OpenGL pages where the driver shares the
/// value. It never reads the registry.
class Direct3DWriter {
 public:
  explicit Direct3DWriter(const Direct3DContext& context) : context_(context) {}

  /// Stores what a code (0 to 128) stands for; `value` is the number of the codes that store one
  /// that the user chose. An unknown code stores nothing. Then it sets the captions and lists that
  /// follow from the code. WriteAsBinary is 0 afterwards.
  void WriteDirect3DSetting(int code, std::int32_t value);

 private:
  void WriteLegacy(int code) const;
  void WriteOldAntialiasingSwitch(int code) const;
  bool WriteAntialiasing(int code) const;
  bool WriteSli(int code, std::int32_t value) const;
  bool WriteAnisotropy(int code) const;
  bool WriteShader(int code) const;
  void ShowAnisotropy(const ShownText& text, const ShownText& old_text) const;
  std::int32_t FlagWord() const;

  Direct3DContext context_;
};

}  // namespace kestrune::d3d
