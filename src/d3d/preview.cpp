#include "d3d/preview.h"

#include "d3d/direct3d_settings.h"
#include "lang/texts.h"

namespace kestrune::d3d {

namespace texts = lang::texts;

namespace {

constexpr std::string_view kUnfiltered = "auto";
constexpr std::string_view kNoMode = "Disabled";
constexpr std::string_view kEnding = ".jpg";

/// The picture of a mode: its text without what stands in brackets behind it.
std::string PictureOf(std::string_view mode) {
  if (const std::size_t bracket = mode.find('('); bracket != mode.npos) {
    mode = mode.substr(0, bracket > 0 ? bracket - 1 : 0);
  }
  return std::string(mode).append(kEnding);
}

std::string PictureOf(const std::string& mode, const lang::LangTable& lang_text) {
  if (mode == lang_text[texts::kAuto]) return PictureOf(kUnfiltered);
  return PictureOf(mode == lang_text[texts::kDisabled] ? kNoMode : std::string_view(mode));
}

}  // namespace

std::vector<std::string> PreviewPictures() {
  std::vector<std::string> names = {PictureOf(kUnfiltered), PictureOf(kNoMode)};
  for (const AaMode& mode : kAaModes) {
    if (mode.card_level == settings::kNeverListed) continue;
    for (const std::string_view text : {mode.text.word, mode.sli}) {
      if (!text.empty()) names.push_back(PictureOf(text));
    }
  }
  return names;
}

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
  const std::string folder(kPreviewFolders[zoom_.Chosen() ? 1 : 0]);
  const std::string none = folder + PictureOf(kUnfiltered);
  const std::string selected = folder + PictureOf(mode_.Text(), LangText);
  const bool has_none = files_.IsPicture(none);
  if (has_none) no_antialiasing_.ShowFile(none);
  // Mostly it is the same file, which would be read as a whole once more.
  const bool has_selected = selected == none ? has_none : files_.IsPicture(selected);
  if (has_selected) selected_antialiasing_.ShowFile(selected);
}

}  // namespace kestrune::d3d
