#include "ui/forms/intro_window.h"

#include "core/options.h"
#include "ui/forms/shared.h"
#include "ui/forms/windows.h"

namespace kestrune::forms {

namespace {

constexpr std::string_view kWindow = "intro";
constexpr int kShownMs = 3000;

constexpr ControlRow kRows[] = {
    Row(Kind::kPicture, "intro.picture", kWindow, {300, 300, 1440, 1440})
        .Does(Action::Kind::kCloseWindow),
    Row(Kind::kLink, "intro.text", kWindow, {1950, 300, 3750, 1440})
        .Design("Kestrune SE\n\nEvery switch that your display driver has, and exactly what a "
                "click writes.")
        .Does(Action::Kind::kCloseWindow),
};

constexpr ShortcutRow kShortcuts[] = {{"Return", {Action::Kind::kCloseWindow}},
                                      {"Space", {Action::Kind::kCloseWindow}},
                                      {"Esc", {Action::Kind::kCloseWindow}}};

class IntroWindow : public WindowPart {
 public:
  explicit IntroWindow(const Shared& shared)
      : picture_(shared.controls.Get<controls::PictureBox>("intro.picture")),
        timer_(shared.timers, kShownMs) {
    auto& window = shared.controls.Get<controls::Window>(kWindow);
    timer_.on_tick = [this, &window, &windows = shared.windows] {
      timer_.SetEnabled(false);
      windows.Close(window);
    };
  }

  void Load() override {
    picture_.ShowFile("DATA/hs/pic/ps.jpg");
    timer_.SetEnabled(true);
  }

 private:
  controls::PictureBox& picture_;
  controls::Timer timer_;
};

}  // namespace

const WindowRow kIntroWindow = {
    .window = Row(Kind::kWindow, kWindow, "", {0, 0, 6000, 2040}).Design("Kestrune SE").Hidden(),
    .controls = kRows,
    .owner = "main",
    .modal = true,
    .opened_by = "about.show-intro",
    .shortcuts = kShortcuts,
    .make = [](const Shared& shared) -> std::unique_ptr<WindowPart> {
      return std::make_unique<IntroWindow>(shared);
    }};

}  // namespace kestrune::forms
