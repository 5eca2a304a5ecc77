#include "d3d/preview.h"

namespace kestrune::d3d {

namespace {

constexpr std::string_view kUnfiltered = "auto";

/// The name of a mode's picture: its text without what stands in brackets behind it.
std::string PictureName(const std::string& mode, const lang::LangTable& lang_text) {
  if (mode == lang_text[137]) return std::string(kUnfiltered);
  if (const std::size_t bracket = mode.find('('); bracket != std::string::npos) {
    return mode.substr(0, bracket > 0 ? bracket - 1 : 0);
  }
  return mode == lang_text[145] ? "Disabled" : mode;
}

}  // namespace

void ShowAaPreview(const PreviewControls& controls, platform::FilesApi& files,
                   const lang::LangTable& lang_text) {
  const std::string folder = controls.zoom->Chosen() ? "DATA/aa/2/" : "DATA/aa/1/";
  const auto show = [&](controls::PictureBox& frame, const std::string& name) {
    const std::string file = folder + name + ".jpg";
    if (files.IsPicture(file)) frame.ShowFile(file);
  };
  show(*controls.no_antialiasing, std::string(kUnfiltered));
  show(*controls.selected_antialiasing, PictureName(controls.mode->Text(), lang_text));
}

}  // namespace kestrune::d3d
