#include "ui/forms/about_window.h"

#include <string>
#include <vector>

#include "core/options.h"
#include "lang/texts.h"
#include "ui/forms/shared.h"
#include "ui/forms/windows.h"

namespace kestrune::forms {

namespace {

constexpr std::string_view kWindow = "about";

constexpr ControlRow kRows[] = {
    Row(Kind::kLabel, "about.version", kWindow, {150, 150, 5700, 300}, kFilledText),
    Row(Kind::kLink, "about.page-link", kWindow, {150, 540, 5700, 300})
        .Design(core::kDocumentation)
        .Does(Action::Kind::kOpenDocument, core::kDocumentation),
    Row(Kind::kLabel, "about.licences-label", kWindow, {150, 1050, 5700, 270}, 267)
        .Names("about.licences"),
    Row(Kind::kList, "about.licences", kWindow, {150, 1365, 5700, 2175}),
    Row(Kind::kButton, "about.show-intro", kWindow, {150, 3690, 2700, 435}, 275)
        .Does(Action::Kind::kOpenWindow, "intro"),
    Row(Kind::kButton, "about.close", kWindow, {3600, 3690, 2250, 435}, 204),
};

constexpr LicenceRow kLicenceRows[] = {
    {"Qt 6", "LGPL-3.0", "Q"},
    {"SQLite 3", "public domain", "sqlite3"},
    {"toml++", "MIT", "toml++"},
    {"CLI11", "BSD-3-Clause", "CLI"},
    {"JSON for Modern C++", "MIT", "nlohmann"},
};

class AboutWindow : public WindowPart {
 public:
  explicit AboutWindow(const Shared& shared) : shared_(shared) {
    auto& window = shared.controls.Get<controls::Window>(kWindow);
    shared.controls.Get<controls::Button>("about.close").on_click = [this, &window] {
      shared_.windows.Close(window);
    };
  }

  void Load() override {
    shared_.controls.Get<controls::Label>("about.version")
        .SetCaption("Kestrune SE " + shared_.LangText()[lang::texts::kProgramVersion] +
                    core::VersionText());
    std::vector<std::string> lines;
    for (const LicenceRow& row : kLicences) {
      lines.push_back(std::string(row.library).append(": ").append(row.licence));
    }
    shared_.controls.Get<controls::ListBox>("about.licences").SetItems(std::move(lines));
  }

 private:
  const Shared& shared_;
};

}  // namespace

const std::span<const LicenceRow> kLicences = kLicenceRows;

const WindowRow kAboutWindow = {
    .window = Row(Kind::kWindow, kWindow, "", {0, 0, 6000, 4275}, 245).Hidden(),
    .controls = kRows,
    .owner = "main",
    .modal = true,
    .default_key = "about.close",
    .cancel_key = "about.close",
    .opened_by = "main.abouti",
    .make = [](const Shared& shared) -> std::unique_ptr<WindowPart> {
      return std::make_unique<AboutWindow>(shared);
    }};

}  // namespace kestrune::forms
