#pragma once

#include "controls/controls.h"
#include "lang/language.h"
#include "platform/files_api.h"

namespace kestrune::d3d {

/// The pictures that compare a scene without antialiasing with the chosen mode.
struct PreviewControls {
  controls::ComboBox* mode;
  controls::OptionButton* zoom;
  controls::PictureBox* no_antialiasing;
  controls::PictureBox* selected_antialiasing;
};

/// Shows both pictures for the Direct3D mode and the chosen size, from DATA\aa\1 (normal) or
/// DATA\aa\2 (zoomed). A frame keeps its picture when the file is missing or no picture.
void ShowAaPreview(const PreviewControls& controls, platform::FilesApi& files,
                   const lang::LangTable& lang_text);

}  // namespace kestrune::d3d
