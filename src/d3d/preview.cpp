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
  const std::string none = folder + std::string(kUnfiltered) + ".jpg";
  const std::string selected = folder + PictureName(mode_.Text(), LangText) + ".jpg";
  const bool has_none = files_.IsPicture(none);
  if (has_none) no_antialiasing_.ShowFile(none);
  // Mostly it is the same file, which would be read as a whole once more.
  const bool has_selected = selected == none ? has_none : files_.IsPicture(selected);
  if (has_selected) selected_antialiasing_.ShowFile(selected);
}

}  // namespace kestrune::d3d
