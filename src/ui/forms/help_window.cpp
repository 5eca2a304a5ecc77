#include "ui/forms/help_window.h"

#include "ui/forms/windows.h"

namespace kestrune::forms {

namespace {

constexpr int kNoTopicShown = 999;

constexpr controls::Rect kWindowBounds = {0, 0, 4500, 3600};
constexpr controls::Rect kPanelBounds = {120, 120, 4260, 3360};
constexpr controls::Rect kTextBounds = {150, 375, 3960, 2850};

constexpr ControlRow Panel(std::string_view id, std::string_view heading) {
  return Row(Kind::kFrame, id, "help", kPanelBounds).Design(heading).Hidden();
}

constexpr ControlRow Text(std::string_view id, std::string_view panel, std::string_view text) {
  return Row(Kind::kLabel, id, panel, kTextBounds).Design(text);
}

constexpr ControlRow kRows[] = {
    Panel("help.topic-0", "Anisotropic filtering"),
    Text(
        "help.topic-0-text", "help.topic-0",
        "Higher degree of anisotropy makes textures (which are far away from view) more detailed."),
    Panel("help.topic-1", "Texture LOD bias"),
    Text("help.topic-1-text", "help.topic-1",
         "Texture Level of Detail make mipmap textures more smooth (high values) or sharp "
         "(negative values) from orginal (zero value)."),
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
    Text("help.topic-4-text", "help.topic-4",
         "You can force mipmap filtering off for more sharpness textures."),
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
      main_(shared.controls.Get<controls::Window>("main")) {}

void HelpWindow::TakeCloseBox() {
  window_.on_close = [this] {
    ForgetTopic();
    Close();
  };
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

void HelpWindow::Close() { windows_.Close(window_); }

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
