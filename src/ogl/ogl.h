#pragma once

#include "ogl/ogldet.h"

namespace kestrune::ogl {

/// Stores the choices of the OpenGL pages by numbered operations. What the driver shares with
/// Direct3D it hands to the Direct3D writer.
class OpenGLWriter {
 public:
  explicit OpenGLWriter(OpenGLContext context) : context_(std::move(context)) {}

  /// Performs one operation; `argument` counts for those that store a number. An unknown
  /// operation stores nothing. WriteAsBinary is 0 afterwards.
  void WriteOpenGLSetting(int operation, std::int32_t argument);

 private:
  void Write(int operation, std::int32_t argument) const;
  void WriteMatch(const settings::CodeMatch& match, int operation, std::int32_t argument) const;
  void ShowWritten(const settings::CodeMatch& match, std::int32_t argument) const;
  void WriteOldEmulation(int operation) const;
  void WriteAnisotropy(int operation) const;
  void WriteQualityFlags(int operation) const;
  void RelayToDirect3D(int operation) const;

  OpenGLContext context_;
};

}  // namespace kestrune::ogl
