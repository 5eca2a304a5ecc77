#include "ui/forms/main_form.h"

#include "core/options.h"
#include "ui/forms/page_groups.h"
#include "ui/forms/pages.h"

namespace kestrune::forms {

namespace {

using enum Action::Kind;

constexpr controls::Rect kItem = {0, 0, 0, 0};

constexpr ControlRow kToolbar[] = {
    Row(Kind::kKey, "main.nvcpl", "main", {90, 60, 960, 735})
        .Design("nVidia")
        .Does(kShowPage, "control-panel.settings"),
    Row(Kind::kKey, "main.nvcpl1", "main.nvcpl", kItem, 0).Does(kShowOwnPage),
    Row(Kind::kKey, "main.nvcpl2", "main.nvcpl", kItem, 1).Does(kShowOwnPage),
    Row(Kind::kKey, "main.nvcpl3", "main.nvcpl", kItem, 2).Does(kOpenControlPanelItem, "desk.cpl"),
    Row(Kind::kKey, "main.nvcpl4", "main.nvcpl", kItem, 3)
        .Does(kRunCommand, "rundll32.exe nvcpl.dll, launchoverlayapplet"),
    Row(Kind::kKey, "main.nvcpl5", "main.nvcpl", kItem, 4)
        .Does(kRunCommand, "rundll32.exe nvcpl.dll, launchtvapplet"),
    Row(Kind::kKey, "main.regedit", "main.nvcpl", kItem, 5).Does(kOpenWindow, "registry-editor"),
    Row(Kind::kKey, "main.pedit", "main.nvcpl", kItem, 6).Does(kOpenWindow, "profile-manager"),
    Row(Kind::kKey, "main.abouti", "main.nvcpl", kItem, 245).Does(kOpenWindow, "about"),
    Row(Kind::kKey, "main.dx", "main", {1050, 60, 1080, 735})
        .Design("Direct3D")
        .Does(kShowPage, "direct3d.antialiasing"),
    Row(Kind::kKey, "main.aa2", "main.dx", kItem, 10).Does(kShowOwnPage),
    Row(Kind::kKey, "main.tf2", "main.dx", kItem, 11).Does(kShowOwnPage),
    Row(Kind::kKey, "main.ms2", "main.dx", kItem, 12).Does(kShowOwnPage),
    Row(Kind::kKey, "main.mt", "main.dx", kItem, 13).Does(kShowOwnPage),
    Row(Kind::kKey, "main.psvs", "main.dx", kItem, 14).Does(kShowOwnPage),
    Row(Kind::kKey, "main.ogl", "main", {2130, 60, 1050, 735})
        .Design("OpenGL")
        .Does(kShowPage, "opengl.antialiasing"),
    Row(Kind::kKey, "main.aa", "main.ogl", kItem, 18).Does(kShowOwnPage),
    Row(Kind::kKey, "main.tf", "main.ogl", kItem, 19).Does(kShowOwnPage),
    Row(Kind::kKey, "main.ms", "main.ogl", kItem, 20).Does(kShowOwnPage),
    Row(Kind::kKey, "main.oglcs", "main.ogl", kItem, 21).Does(kShowOwnPage),
    Row(Kind::kKey, "main.oc", "main", {3180, 60, 1215, 735}, 34).Does(kShowOwnPage),
    Row(Kind::kKey, "main.info", "main", {4395, 60, 840, 735})
        .Design("Info")
        .Does(kShowPage, "info.basic"),
    Row(Kind::kKey, "main.basic", "main.info", kItem, 25).Does(kShowOwnPage),
    Row(Kind::kKey, "main.basicdx", "main.info", kItem, 26).Does(kShowOwnPage),
    Row(Kind::kKey, "main.sys", "main.info", kItem, 27).Does(kShowOwnPage),
    Row(Kind::kKey, "main.proc", "main.info", kItem, 254).Does(kShowOwnPage),
    Row(Kind::kKey, "main.pw", "main", {5235, 60, 2100, 735}, 207)
        .Does(kOpenWindow, "performance-wizard"),
    Row(Kind::kKey, "main.qorv", "main", {7335, 60, 750, 735})
        .Design("Web")
        .Does(kOpenDocument, core::kDocumentation),
    Row(Kind::kScrollBar, "main.group-scroll-bar", "main", {7755, 840, 270, 4260})
        .Range(1, 1, 1)
        .Hidden(),
};

constexpr ControlRow kLowerPanel[] = {
    Row(Kind::kEdge, "main.lower-panel-edge", "main", {120, 5190, 7905, 330}, 56),
    Row(Kind::kCheck, "main.enable-help-system", "main", {150, 5640, 3690, 330}, 54).Chosen(),
    Row(Kind::kCheck, "main.remember-last-visited-page", "main", {150, 5955, 3690, 420}, 55),
    Row(Kind::kLabel, "main.language-label", "main", {3930, 5670, 1425, 270}, 53)
        .Names("main.language"),
    Row(Kind::kCombo, "main.language", "main", {5445, 5640, 1680, 375}),
    Row(Kind::kLabel, "main.language-header", "main", {3930, 6045, 3195, 270}, kFilledText),
    Row(Kind::kPicture, "main.help-system-picture", "main", {7275, 5640, 720, 720}),
};

constexpr ShortcutRow kShortcuts[] = {{"Ctrl+PageUp", {kShowPageBefore}},
                                      {"Ctrl+PageDown", {kShowPageAfter}},
                                      {"Esc", {kStepBack}},
                                      {"F1", {kExplain}},
                                      {"F5", {kReadAgain}}};

}  // namespace

const WindowRow kMainWindow = {
    .window = Row(Kind::kWindow, "main", "", {0, 0, kMainWidth, kLowHeight}).Design("Kestrune SE"),
    .controls = kToolbar,
    .shortcuts = kShortcuts};

std::vector<ControlRow> PagesAndPanel() {
  std::vector<ControlRow> rows;
  for (const PageRow& page : kPages) {
    rows.push_back(page.Frame());
    rows.insert(rows.end(), page.controls.begin(), page.controls.end());
  }
  rows.insert(rows.end(), std::begin(kLowerPanel), std::end(kLowerPanel));
  return rows;
}

MainForm::MainForm() : Form(kMainWindow) { Add(PagesAndPanel()); }

const controls::Control* MainForm::WayTo(int page) const {
  const PageRow& wanted = kPages[static_cast<std::size_t>(page)];
  const controls::Control* way = nullptr;
  for (const PageRow& row : kPages) {
    const controls::Control* key = Find(row.key);
    if (!key->Usable()) continue;
    if (row.id == wanted.id) return key;
    const bool is_beside = row.group == wanted.group && row.group != Group::kNone;
    if (is_beside && way == nullptr) way = key;
  }
  return way;
}

controls::Frame& MainForm::Page(int index) const {
  return Get<controls::Frame>(kPages[static_cast<std::size_t>(index)].id);
}

}  // namespace kestrune::forms
