#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/control_set.h"
#include "controls/controls.h"
#include "lang/language.h"
#include "platform/files_api.h"

namespace kestrune::d3d {

inline constexpr std::string_view kPreviewFolders[] = {"DATA/aa/1/", "DATA/aa/2/"};
/// The file names, in either folder, of all pictures that a list of modes can ask for.
std::vector<std::string> PreviewPictures();

/// The pictures that compare a scene without antialiasing with the chosen Direct3D mode.
class AaPreview {
 public:
  AaPreview(const controls::ControlSet& controls, platform::FilesApi& files,
            const lang::LangTable& lang_text);

  /// Shows both pictures for the mode and the chosen size, from DATA\aa\1 (normal) or DATA\aa\2
  /// (zoomed). A frame keeps its picture when the file is missing or no picture.
  void ShowAaPreview();

 private:
  platform::FilesApi& files_;
  const lang::LangTable& LangText;
  controls::ComboBox& mode_;
  controls::OptionButton& zoom_;
  controls::PictureBox& no_antialiasing_;
  controls::PictureBox& selected_antialiasing_;
};

}  // namespace kestrune::d3d
