#pragma once

#include <functional>

#include "d3d/settings_key.h"
#include "ogl/opengl_catalogue.h"

namespace kestrune::ogl {

/// What the OpenGL reader and writer work with. All of it outlives them.
struct OpenGLContext {
  const d3d::SettingsKey& key;
  const detect::VersionState& versions;
  const lang::LangTable& lang_text;
  const OpenGLControls& controls;
  /// The Direct3D reader and writer, for the values that both interfaces share.
  std::function<void()> read_direct3d;
  std::function<void(int code)> write_direct3d;

  bool HasSharedValues() const { return versions.DrvVer >= d3d::kFirstSharedDriver; }
};

/// Shows the driver's OpenGL values on the pages. It writes nothing to the registry, but leaves
/// WriteAsBinary at 1 on the NT family and at 0 on Windows 9x.
class OpenGLReader {
 public:
  explicit OpenGLReader(OpenGLContext context) : context_(std::move(context)) {}

  /// A number that a row doesn't list leaves its control as it was, where the row says so. On the
  /// NT family with shared values it ends by running the Direct3D reader. The caller holds IsStart
  /// at 1.
  void ReadOpenGLSettings();

 private:
  void ReadAntialiasing();
  void ReadS3tc();
  void ReadTrilinearQuality();
  void ReadTextureCompression();
  void ReadVersionOverride();
  void ReadEmulation();
  void ReadOldEmulation();
  void ReadAnisotropy();
  std::optional<std::int32_t> Read(std::string_view name) const {
    return context_.key.Read(name, d3d::Place::kSettings);
  }
  std::string Text(const d3d::ShownText& text) const { return text.In(context_.lang_text); }

  OpenGLContext context_;
};

}  // namespace kestrune::ogl
