#include "ui/forms/help_window.h"

#include <algorithm>
#include <vector>

#include "core/outcome.h"
#include "ui/forms/pictures.h"
#include "ui/forms/windows.h"

namespace kestrune::forms {

namespace {

constexpr int kNoTopicShown = 999;

constexpr controls::Rect kWindowBounds = {0, 0, 4500, 5520};
constexpr controls::Rect kPanelBounds = {120, 120, 4260, 4695};
constexpr controls::Rect kTextBounds = {150, 375, 3960, 2850};
// Where something stands below the text.
constexpr controls::Rect kShortTextBounds = {150, 375, 3960, 1440};
constexpr controls::Rect kPictureBounds = {150, 2910, 3960, 1650};

/// A tick of the fade-in and what it adds to the opacity.
constexpr int kFadeMs = 10;
constexpr int kFadeStep = 5;
constexpr int kOpaque = 255;

constexpr ControlRow Panel(std::string_view id, std::string_view heading) {
  return Row(Kind::kFrame, id, "help", kPanelBounds).Design(heading).Hidden();
}

constexpr ControlRow Text(std::string_view id, std::string_view panel, std::string_view text) {
  return Row(Kind::kLabel, id, panel, kTextBounds).Design(text);
}

constexpr ControlRow ShortText(std::string_view id, std::string_view panel, std::string_view text) {
  return Row(Kind::kLabel, id, panel, kShortTextBounds).Design(text);
}

constexpr std::string_view kFilteringTool = "\\data\\rtaf.exe";

/// What level-of-detail bias does, as an option and the picture that it shows.
struct LodRow {
  std::string_view option;
  std::string_view picture;
};

constexpr LodRow kLodRows[] = {
    {"help.negative-values-quality", kLodPictures[0]},
    {"help.original-zero-value", kLodPictures[1]},
    {"help.high-values-performance", kLodPictures[2]},
};
constexpr const LodRow& kOriginalLod = kLodRows[1];

constexpr ControlRow kRows[] = {
    Panel("help.topic-0", "Anisotropic filtering"),
    Text(
        "help.topic-0-text", "help.topic-0",
        "Higher degree of anisotropy makes textures (which are far away from view) more detailed."),
    Row(Kind::kButton, "help.direct3d-texture-filtering-tool", "help.topic-0",
        {150, 4110, 3960, 435})
        .Design("Direct3D texture filtering tool"),
    Panel("help.topic-1", "Texture LOD bias"),
    ShortText("help.topic-1-text", "help.topic-1",
              "Texture Level of Detail make mipmap textures more smooth (high values) or sharp "
              "(negative values) from orginal (zero value)."),
    Row(Kind::kOption, kLodRows[0].option, "help.topic-1", {150, 1830, 3960, 330})
        .Design("Negative values - quality"),
    Row(Kind::kOption, kLodRows[1].option, "help.topic-1", {150, 2175, 3960, 330})
        .Design("Original (Zero value)")
        .Chosen(),
    Row(Kind::kOption, kLodRows[2].option, "help.topic-1", {150, 2520, 3960, 330})
        .Design("High values - performance"),
    Row(Kind::kPicture, "help.lod-picture", "help.topic-1", kPictureBounds),
    Panel("help.topic-2", "Force mipmaps"),
    Text("help.topic-2-text", "help.topic-2",
         "You can enable mipmaps for application that do not support it. Three options are for "
         "select - None if you dont want force mipmaps, Bilinear for better quality and good "
         "performance, Trilinear fot good quality and slow performance."),
    Panel("help.topic-3", "Image quality"),
    Text("help.topic-3-text", "help.topic-3",
         "In this option you can select performance and quality enhancements settings. Select HIGH "
         "PERFORMANCE for best performance, PERFORMANCE for optimal performance and good image "
         "quality, QUALITY for optimal image quality and HIGH QUALITY for best image quality."),
    Panel("help.topic-4", "Mipmap filtering"),
    ShortText("help.topic-4-text", "help.topic-4",
              "You can force mipmap filtering off for more sharpness textures."),
    Row(Kind::kPicture, "help.mipmap-picture", "help.topic-4", {150, 2145, 3960, 1650}),
    Row(Kind::kLabel, "help.mipmap-disabled", "help.topic-4", {150, 3870, 1950, 270})
        .Design("Disabled"),
    Row(Kind::kLabel, "help.mipmap-enabled", "help.topic-4", {2160, 3870, 1950, 270})
        .Design("Enabled"),
    Panel("help.topic-5", "Filtering optimizations"),
    Text("help.topic-5-text", "help.topic-5",
         "Filtering optimizations improves performance and have small impact on image quality."),
    Panel("help.topic-6", "Anisotropic filtering"),
    Text(
        "help.topic-6-text", "help.topic-6",
        "Higher degree of anisotropy makes textures (which are far away from view) more detailed."),
    Panel("help.topic-7", "Vertical synchronization"),
    Text("help.topic-7-text", "help.topic-7",
         "By enabling, remove image interference or horizontal banding effect caused by fast "
         "movements, but can decrease performace."),
    Panel("help.topic-8", "Prerender limit"),
    Text("help.topic-8-text", "help.topic-8",
         "This option specify number of frames prepared before processing by GPU. High limit can "
         "increase performance, but can make input lag effect."),
    Panel("help.topic-9", "Z-buffer compression"),
    Text("help.topic-9-text", "help.topic-9",
         "Z-buffer compression can save memory bandwidth wit 4 time Z-buffer data compression. "
         "This compression have no impact on image quality, because is lossless."),
    Panel("help.topic-10", "Fog-table emulation"),
    Text("help.topic-10-text", "help.topic-10",
         "Disabling can increase performance a bit (only with TNT/2 graphics processors), but can "
         "produce visual artifacts on some applications."),
    Panel("help.topic-11", "S3TC texture compression"),
    Text("help.topic-11-text", "help.topic-11",
         "This option forces texture compression alghoritm. By enabled gives better image quality "
         "in applications which use DXT1 compression, but can slightly reduce performance."),
    Panel("help.topic-12", "Dithering for DXT1 textures"),
    Text("help.topic-12-text", "help.topic-12",
         "By disabling speed up performance, but cost some of image quality."),
    Panel("help.topic-13", "Textures color depth"),
    Text("help.topic-13-text", "help.topic-13",
         "This option forced default bit depth for textures used in OpenGL applications."),
    Panel("help.topic-14", "Intellisample configuration"),
    Text("help.topic-14-text", "help.topic-14",
         "This options override trilinear filtering quality and texture compression settings "
         "defined by selected Intellisample mode."),
    Row(Kind::kButton, "help.close", "help", {2400, 4935, 1980, 435}).Design("Close"),
};

constexpr ShortcutRow kShortcuts[] = {{"Esc", {Action::Kind::kStepBack}}};

}  // namespace

const WindowRow kHelpWindow = {
    .window = Row(Kind::kWindow, "help", "", kWindowBounds).Design("Help System").Hidden(),
    .controls = kRows,
    .owner = "main",
    .shortcuts = kShortcuts};

HelpWindow::HelpWindow(const Shared& shared)
    : state_(shared.state),
      controls_(shared.controls),
      windows_(shared.windows),
      window_(shared.controls.Get<controls::Window>(kHelpWindow.window.id)),
      main_(shared.controls.Get<controls::Window>("main")),
      lod_picture_(shared.controls.Get<controls::PictureBox>("help.lod-picture")),
      fade_(shared.timers, kFadeMs) {
  fade_.on_tick = [this] { Fade(); };
  std::vector<controls::OptionButton*> options;
  for (const LodRow& row : kLodRows) {
    options.push_back(&controls_.Get<controls::OptionButton>(row.option));
    options.back()->on_click = [this, &row] { lod_picture_.ShowFile(HelpPicture(row.picture)); };
  }
  controls::OptionButton::Group(options);
  controls_.Get<controls::Button>("help.close").on_click = [this] { UseClose(); };
  controls_.Get<controls::Button>("help.direct3d-texture-filtering-tool").on_click = [&shared] {
    core::Ignore(shared.services.shell.StartCommand(
        shared.services.files.ProgramFolder().append(kFilteringTool),
        platform::WindowState::kNormal));
  };
}

void HelpWindow::TakeWindow() {
  window_.on_close = [this] {
    ForgetTopic();
    Close();
  };
  windows_.OnLoad(window_, [this] { Load(); });
}

void HelpWindow::Load() {
  state_.TranslucenceLevel = 0;
  window_.SetOpacity(state_.TranslucenceLevel);
  fade_.SetEnabled(true);
  lod_picture_.ShowFile(HelpPicture(kOriginalLod.picture));
  controls_.Get<controls::PictureBox>("help.mipmap-picture").ShowFile(HelpPicture(kMipmapPicture));
}

void HelpWindow::Fade() {
  state_.TranslucenceLevel = std::min(state_.TranslucenceLevel + kFadeStep, kOpaque);
  window_.SetOpacity(state_.TranslucenceLevel);
  if (state_.TranslucenceLevel == kOpaque) fade_.SetEnabled(false);
}

void HelpWindow::Connect(const Form& form) {
  for (const ControlRow& row : form.Rows()) {
    if (row.help != kNoTopic) topics_[form.Find(row.id)] = row.help;
  }
  for (const ControlRow& row : form.Rows()) {
    const auto found = topics_.find(form.Find(row.names.empty() ? row.id : row.names));
    if (found == topics_.end()) continue;
    form.Find(row.id)->on_hover = [this, topic = found->second] { ShowHelpTopic(topic); };
  }
}

void HelpWindow::Explain(const controls::Control* control) {
  if (state_.HelpSystemEnabled == 0) return;
  ForgetTopic();
  while (control != nullptr && !topics_.contains(control)) control = control->Parent();
  if (control != nullptr) ShowHelpTopic(topics_.at(control));
}

void HelpWindow::ForgetTopic() { state_.LastHelpTopic = kNoTopicShown; }

void HelpWindow::Close() {
  fade_.SetEnabled(false);
  windows_.Close(window_);
}

bool HelpWindow::UseClose() {
  if (!window_.Visible()) return false;
  window_.UseClose();
  return true;
}

void HelpWindow::ShowHelpTopic(int topic) {
  if (state_.HelpSystemEnabled == 0 || topic == state_.LastHelpTopic) return;
  const bool is_open = window_.Visible();
  if (!is_open) windows_.Load(window_);
  const controls::Rect& main = main_.Bounds();
  window_.SetBounds(
      {main.left + main.width, main.top, window_.Bounds().width, window_.Bounds().height});
  for (int each = 0; each < kTopicCount; ++each) {
    controls_.Get<controls::Frame>("help.topic-" + std::to_string(each)).SetVisible(each == topic);
  }
  state_.LastHelpTopic = topic;
  windows_.Show(window_);
}

}  // namespace kestrune::forms
