#include "d3d/preview.h"

#include "lang/texts.h"

namespace kestrune::d3d {

namespace texts = lang::texts;

namespace {

constexpr std::string_view kUnfiltered = "auto";

/// The name of a mode's picture: its text without what stands in brackets behind it.
std::string PictureName(const std::string& mode, const lang::LangTable& lang_text) {
  if (mode == lang_text[texts::kAuto]) return std::string(kUnfiltered);
  if (const std::size_t bracket = mode.find('('); bracket != std::string::npos) {
    return mode.substr(0, bracket > 0 ? bracket - 1 : 0);
  }
  return mode == lang_text[texts::kDisabled] ? "Disabled" : mode;
}

}  // namespace

AaPreview::AaPreview(const controls::ControlSet& controls, platform::FilesApi& files,
                     const lang::LangTable& lang_text)
    : files_(files),
      LangText(lang_text),
      mode_(controls.Get<controls::ComboBox>("direct3d.antialiasing.antialiasing-mode")),
      zoom_(controls.Get<controls::OptionButton>("direct3d.antialiasing.zoom")),
      no_antialiasing_(controls.Get<controls::PictureBox>("direct3d.antialiasing.no-antialiasing")),
      selected_antialiasing_(
          controls.Get<controls::PictureBox>("direct3d.antialiasing.selected-antialiasing")) {}

void AaPreview::ShowAaPreview() {
  const std::string folder = zoom_.Chosen() ? "DATA/aa/2/" : "DATA/aa/1/";
  const auto show = [&](controls::PictureBox& frame, const std::string& name) {
    const std::string file = folder + name + ".jpg";
    if (files_.IsPicture(file)) frame.ShowFile(file);
  };
  show(no_antialiasing_, std::string(kUnfiltered));
  show(selected_antialiasing_, PictureName(mode_.Text(), LangText));
}

}  // namespace kestrune::d3d
