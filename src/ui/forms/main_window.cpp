#include "ui/forms/main_window.h"

#include <algorithm>

#include "core/options.h"
#include "core/outcome.h"

namespace kestrune::forms {

namespace {

using controls::CheckBox;
using controls::Rect;
using core::RegRoot;

/// A page's group on the toolbar and its place in that group, from 1.
struct PageRow {
  char group;
  int position;
};

constexpr char kNoGroup = '-';
/// By page: c control panel, d Direct3D, o OpenGL, i information.
constexpr std::array<PageRow, kPageCount> kPages = {{{'c', 1},
                                                     {'d', 1},
                                                     {'o', 1},
                                                     {kNoGroup, 0},
                                                     {'i', 1},
                                                     {'o', 2},
                                                     {'d', 2},
                                                     {'o', 3},
                                                     {'d', 3},
                                                     {'i', 2},
                                                     {'c', 2},
                                                     {'d', 4},
                                                     {'d', 5},
                                                     {'o', 4},
                                                     {'i', 3},
                                                     {'i', 4}}};

constexpr int kFallbackPage = 4;
constexpr int kControlPanelPage = 0;
constexpr int kOverclockingPage = 3;

const PageRow& RowOf(int page) { return kPages[static_cast<std::size_t>(page)]; }

bool IsPage(int page) { return page >= 0 && page < kPageCount; }

enum class KeyAction {
  kPage,
  kCommand,
  kControlPanelItem,
  kWebPage,
  kNothing,  ///< the key's window isn't part of the program yet
};

struct KeyRow {
  std::string_view id;
  KeyAction action;
  int page = -1;
  std::string_view text = {};
};

constexpr KeyRow kKeys[] = {
    {"main.nvcpl", KeyAction::kPage, 0},
    {"main.nvcpl1", KeyAction::kPage, 0},
    {"main.nvcpl2", KeyAction::kPage, 10},
    {"main.nvcpl3", KeyAction::kControlPanelItem, -1, "desk.cpl"},
    {"main.nvcpl4", KeyAction::kCommand, -1, "rundll32.exe nvcpl.dll, launchoverlayapplet"},
    {"main.nvcpl5", KeyAction::kCommand, -1, "rundll32.exe nvcpl.dll, launchtvapplet"},
    {"main.regedit", KeyAction::kNothing},
    {"main.pedit", KeyAction::kNothing},
    {"main.abouti", KeyAction::kNothing},
    {"main.dx", KeyAction::kPage, 1},
    {"main.aa2", KeyAction::kPage, 1},
    {"main.tf2", KeyAction::kPage, 6},
    {"main.ms2", KeyAction::kPage, 8},
    {"main.mt", KeyAction::kPage, 11},
    {"main.psvs", KeyAction::kPage, 12},
    {"main.ogl", KeyAction::kPage, 2},
    {"main.aa", KeyAction::kPage, 2},
    {"main.tf", KeyAction::kPage, 5},
    {"main.ms", KeyAction::kPage, 7},
    {"main.oglcs", KeyAction::kPage, 13},
    {"main.oc", KeyAction::kPage, 3},
    {"main.info", KeyAction::kPage, 4},
    {"main.basic", KeyAction::kPage, 4},
    {"main.basicdx", KeyAction::kPage, 9},
    {"main.sys", KeyAction::kPage, 14},
    {"main.proc", KeyAction::kPage, 15},
    {"main.pw", KeyAction::kNothing},
    {"main.qorv", KeyAction::kWebPage, -1, "https://www.nvidia.com/"},
};

struct HelpRow {
  std::string_view id;
  int topic;
};

constexpr HelpRow kHelpRows[] = {
    {"opengl.filtering.filtering-optimizations-frame", 5},
    {"opengl.filtering.anisotropic-filtering", 6},
    {"opengl.filtering.image-settings", 3},
    {"opengl.filtering.texture-lod-bias", 1},
    {"opengl.filtering.texture-lod-bias-label", 1},
    {"opengl.filtering.force-mipmaps", 2},
    {"opengl.filtering.manual-intellisample-trilinear-configuration", 14},
    {"opengl.filtering.manual-intellisample-texture-compression-configuration", 14},
    {"direct3d.filtering.trilinear-optimization", 5},
    {"direct3d.filtering.aniso-mip-filter-optimization", 5},
    {"direct3d.filtering.aniso-sample-optimization", 5},
    {"direct3d.filtering.disable-mipmap-filtering", 4},
    {"direct3d.filtering.anisotropic-filtering", 0},
    {"direct3d.filtering.intellisample-image-settings", 3},
    {"direct3d.filtering.force-mipmaps", 2},
    {"direct3d.filtering.texture-lod-bias", 1},
    {"direct3d.filtering.texture-lod-bias-label", 1},
    {"opengl.misc.enable-s3tc-texture-compression", 11},
    {"opengl.misc.disable-dithering-for-dxt1-textures", 12},
    {"opengl.misc.textures-color-depth", 13},
    {"opengl.misc.synchronization-mode", 7},
    {"opengl.misc.prerender-limit", 8},
    {"direct3d.misc.enable-z-buffer-compression", 9},
    {"direct3d.misc.enable-fog-table-emulation", 10},
    {"direct3d.misc.synchronization-mode", 7},
    {"direct3d.misc.prerender-limit", 8},
};

constexpr int kPanelStep = 100;
constexpr int kPanelInterval = 100;

constexpr std::string_view kHelpPicture = "DATA/hs/pic/ps.jpg";
constexpr int kNoTopic = 999;

}  // namespace

MainWindow::MainWindow(MainForm& form, HelpForm& help, core::ProgramState& state,
                       core::basRegistry& registry, platform::ShellApi& shell,
                       platform::FilesApi& files, controls::Scheduler& scheduler, Hooks hooks)
    : form_(form),
      help_(help),
      state_(state),
      registry_(registry),
      shell_(shell),
      files_(files),
      hooks_(std::move(hooks)),
      growing_(scheduler, kPanelInterval),
      shrinking_(scheduler, kPanelInterval) {
  ConnectKeys();
  ConnectHelp();
  ConnectPanel();
  ConnectOptions();
}

void MainWindow::ConnectKeys() {
  for (const KeyRow& row : kKeys) {
    form_.Get<controls::ToolKey>(row.id).on_click = [this, &row] { PressKey(row.id); };
  }
  form_.Get<controls::Slider>("main.group-scroll-bar").on_change = [this] { GroupScrolled(); };
}

void MainWindow::ConnectHelp() {
  for (const HelpRow& row : kHelpRows) {
    form_.Get<controls::Control>(row.id).on_hover = [this, &row] { ShowHelpTopic(row.topic); };
  }
  help_.TheWindow().on_close = [this] {
    state_.LastHelpTopic = kNoTopic;
    CloseHelp();
  };
}

void MainWindow::ConnectPanel() {
  growing_.on_tick = [this] { Grow(); };
  shrinking_.on_tick = [this] { Shrink(); };
  form_.Get<controls::Label>("main.lower-panel-edge").on_hover = [this] {
    growing_.SetEnabled(true);
  };
  for (int page = 0; page < kPageCount; ++page) {
    form_.Page(page).on_hover = [this] { shrinking_.SetEnabled(true); };
  }
  controls::Window& window = form_.TheWindow();
  window.on_resize = [this] { RestoreSize(); };
  window.on_close = [this] { Close(); };
}

void MainWindow::ConnectOptions() {
  form_.Get<CheckBox>("main.enable-help-system").on_change = [this] { HelpOptionChanged(); };
  form_.Get<CheckBox>("main.remember-last-visited-page").on_change = [this] {
    RememberOptionChanged();
  };
}

void MainWindow::ShowPage() {
  for (int page = 0; page < kPageCount; ++page) {
    form_.Page(page).SetVisible(page == state_.ActivePage);
  }
  if (!IsPage(state_.ActivePage)) return;
  if (state_.ActivePage == kControlPanelPage) hooks_.read_control_panel();
  if (state_.ActivePage == kOverclockingPage) hooks_.overclocking_shown();
  auto& bar = form_.Get<controls::Slider>("main.group-scroll-bar");
  const PageRow& row = RowOf(state_.ActivePage);
  if (row.group != kNoGroup) {
    const auto in_group = [&row](const PageRow& each) { return each.group == row.group; };
    bar.SetRange(1, static_cast<int>(std::count_if(kPages.begin(), kPages.end(), in_group)));
    bar.Show(row.position);
  }
  bar.SetVisible(row.group != kNoGroup);
}

void MainWindow::GoToPage(int page) {
  CloseHelp();
  state_.ActivePage = page;
  ShowPage();
}

void MainWindow::PressKey(std::string_view id) {
  CloseHelp();
  const KeyRow& row = *std::find_if(std::begin(kKeys), std::end(kKeys),
                                    [id](const KeyRow& each) { return each.id == id; });
  switch (row.action) {
    case KeyAction::kPage:
      state_.ActivePage = row.page;
      break;
    case KeyAction::kCommand:
      core::Ignore(shell_.StartCommand(row.text, platform::WindowState::kMinimised));
      break;
    case KeyAction::kControlPanelItem:
      core::Ignore(shell_.OpenControlPanelItem(row.text));
      break;
    case KeyAction::kWebPage:
      core::Ignore(shell_.OpenWebPage(row.text));
      break;
    case KeyAction::kNothing:
      break;
  }
  ShowPage();
}

void MainWindow::GroupScrolled() {
  const int position = form_.Get<controls::Slider>("main.group-scroll-bar").Value();
  const char group = RowOf(state_.ActivePage).group;
  for (int page = 0; page < kPageCount; ++page) {
    if (RowOf(page).group != group || RowOf(page).position != position) continue;
    state_.ActivePage = page;
    ShowPage();
    return;
  }
}

void MainWindow::ShowHelpTopic(int topic) {
  if (state_.HelpSystemEnabled == 0 || topic == state_.LastHelpTopic) return;
  const Rect& main = form_.TheWindow().Bounds();
  controls::Window& window = help_.TheWindow();
  window.SetBounds(
      {main.left + main.width, main.top, window.Bounds().width, window.Bounds().height});
  help_.ShowTopic(topic);
  state_.LastHelpTopic = topic;
  window.SetVisible(true);
}

void MainWindow::Grow() {
  shrinking_.SetEnabled(false);
  Rect bounds = form_.TheWindow().Bounds();
  bounds.height = std::min(bounds.height + kPanelStep, kFullHeight);
  if (bounds.height == kFullHeight) growing_.SetEnabled(false);
  form_.TheWindow().SetBounds(bounds);
}

void MainWindow::Shrink() {
  growing_.SetEnabled(false);
  Rect bounds = form_.TheWindow().Bounds();
  bounds.height = std::max(bounds.height - kPanelStep, kLowHeight);
  if (bounds.height == kLowHeight) shrinking_.SetEnabled(false);
  form_.TheWindow().SetBounds(bounds);
}

void MainWindow::RestoreSize() {
  controls::Window& window = form_.TheWindow();
  window.SetMaximised(false);
  Rect bounds = window.Bounds();
  bounds.width = kMainWidth;
  window.SetBounds(bounds);
}

void MainWindow::HelpOptionChanged() {
  const int on = form_.Get<CheckBox>("main.enable-help-system").State();
  registry_.WriteAsBinary = 0;
  core::Ignore(registry_.WriteRegValue(RegRoot::kCurrentUser, core::kOptionsKey,
                                       core::kHelpSystemValue, on));
  state_.HelpSystemEnabled = on;
  if (on == 0) CloseHelp();
  form_.Get<controls::PictureBox>("main.help-system-picture").SetVisible(on != 0);
}

void MainWindow::RememberOptionChanged() {
  if (state_.IsStart == 1) return;
  SaveVisitedPage();
}

void MainWindow::SaveVisitedPage() {
  if (!form_.Get<CheckBox>("main.remember-last-visited-page").Checked()) {
    registry_.DeleteRegValue(RegRoot::kCurrentUser, core::kOptionsKey, core::kLastVisitedPageValue);
    return;
  }
  registry_.WriteAsBinary = 0;
  core::Ignore(registry_.WriteRegValue(RegRoot::kCurrentUser, core::kOptionsKey,
                                       core::kLastVisitedPageValue, state_.ActivePage));
}

void MainWindow::ReadOptions() {
  const auto read = [this](std::string_view name) {
    return registry_.ReadRegValue(RegRoot::kCurrentUser, core::kOptionsKey, name);
  };
  const int help = read(core::kHelpSystemValue).NumberOr(1);
  form_.Get<CheckBox>("main.enable-help-system").Show(help);
  state_.HelpSystemEnabled = help;
  state_.LastHelpTopic = kNoTopic;
  form_.Get<controls::PictureBox>("main.help-system-picture").SetVisible(help != 0);

  const int page = read(core::kLastVisitedPageValue).NumberOr(-1);
  if (page == -1) return;
  form_.Get<CheckBox>("main.remember-last-visited-page").Show(1);
  state_.ActivePage = IsPage(page) ? page : kFallbackPage;
  ShowPage();
}

void MainWindow::LoadHelpPicture() {
  if (files_.IsPicture(kHelpPicture)) {
    form_.Get<controls::PictureBox>("main.help-system-picture").ShowFile(std::string(kHelpPicture));
  }
}

void MainWindow::DisableForVista() {
  form_.Get<controls::ToolKey>("main.oc").SetEnabled(false);
  form_.Get<controls::ToolKey>("main.basicdx").SetEnabled(false);
}

void MainWindow::Close() {
  if (closed_) return;
  closed_ = true;
  SaveVisitedPage();
  CloseHelp();
  form_.TheWindow().SetVisible(false);
}

}  // namespace kestrune::forms
