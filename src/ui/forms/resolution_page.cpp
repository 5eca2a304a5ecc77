#include "ui/forms/resolution_page.h"

#include "core/options.h"
#include "core/outcome.h"
#include "lang/texts.h"

namespace kestrune::forms {

namespace texts = lang::texts;

namespace {

using platform::Answer;
using platform::Buttons;
using platform::DisplayMode;
using platform::ModeChange;

constexpr std::string_view kPage = "control-panel.resolution";
constexpr int kSecondsToConfirm = 15;

constexpr ControlRow kRows[] = {
    Row(Kind::kLabel, "control-panel.resolution.select-resolution-label", kPage,
        {150, 375, 3600, 255}, 239)
        .Names("control-panel.resolution.select-resolution"),
    Row(Kind::kList, "control-panel.resolution.select-resolution", kPage, {150, 660, 3600, 3450}),
    Row(Kind::kButton, "control-panel.resolution.apply", kPage, {3960, 3675, 2025, 435}, 87)
        .Disabled(),
    Row(Kind::kLabel, "control-panel.resolution.select-from-list-label", kPage,
        {3960, 375, 3450, 255}, 240)
        .Names("control-panel.resolution.select-from-list"),
    Row(Kind::kCombo, "control-panel.resolution.select-from-list", kPage, {3960, 660, 3450, 390}),
};

struct Size {
  int width;
  int height;
};

constexpr Size kQuickSizes[] = {{640, 480},  {800, 600},   {1024, 768},
                                {1152, 864}, {1280, 1024}, {1600, 1200}};

std::string SizeText(int width, int height) {
  return std::to_string(width) + "x" + std::to_string(height);
}

std::string ModeText(const DisplayMode& mode) {
  return SizeText(mode.width, mode.height) + "x" + std::to_string(mode.depth) + " " +
         std::to_string(mode.refresh) + "Hz";
}

}  // namespace

const std::span<const ControlRow> kResolutionControls = kRows;

ResolutionPage::ResolutionPage(const Shared& shared)
    : display_(shared.services.display),
      dialog_(shared.services.dialog),
      LangText(shared.LangText()),
      list_(shared.controls.Get<controls::ListBox>("control-panel.resolution.select-resolution")),
      quick_choice_(
          shared.controls.Get<controls::ComboBox>("control-panel.resolution.select-from-list")),
      apply_(shared.controls.Get<controls::Button>("control-panel.resolution.apply")) {
  list_.on_change = [this] { apply_.SetEnabled(true); };
  apply_.on_click = [this] { Apply(); };
  quick_choice_.on_change = [this](controls::ComboChange) { ChooseQuickly(); };
}

void ResolutionPage::ListDisplayModes() {
  std::vector<std::string> lines;
  while (const auto mode = display_.ModeAt(static_cast<int>(modes_.size()))) {
    if (!modes_.empty()) lines.push_back(ModeText(*mode));
    modes_.push_back(*mode);
  }
  list_.SetItems(std::move(lines));
}

void ResolutionPage::FillList() {
  std::vector<std::string> sizes;
  for (const Size& size : kQuickSizes) sizes.push_back(SizeText(size.width, size.height));
  quick_choice_.SetItems(std::move(sizes));
}

void ResolutionPage::Apply() {
  if (list_.Position() < 0) return;
  const DisplayMode& mode = modes_[static_cast<std::size_t>(list_.Position()) + 1];
  const auto former = display_.MustConfirm() ? display_.ModeAt(0) : std::nullopt;
  const platform::ModeRequest request = {
      .width = mode.width, .height = mode.height, .depth = mode.depth, .is_saved = true};
  switch (display_.ChangeMode(request)) {
    case ModeChange::kDone:
      if (former) Confirm(*former);
      break;
    case ModeChange::kRestartNeeded:
      if (Ask(texts::kModeNeedsRestart, {Buttons::kOkCancel, Answer::kCancel}) == Answer::kOk) {
        display_.RestartComputer();
      }
      break;
    case ModeChange::kFailed:
      core::Ignore(Ask(texts::kModeRefused, {}));
      break;
  }
}

void ResolutionPage::Confirm(const DisplayMode& former) {
  if (Ask(texts::kKeepMode, {Buttons::kOkCancel, Answer::kOk, kSecondsToConfirm}) == Answer::kOk) {
    return;
  }
  core::Ignore(display_.ChangeMode({.width = former.width,
                                    .height = former.height,
                                    .depth = former.depth,
                                    .refresh = former.refresh,
                                    .is_saved = true}));
}

Answer ResolutionPage::Ask(int text, const platform::Question& question) {
  return dialog_.Ask(core::kProgramTitle, LangText[text], question);
}

void ResolutionPage::ChooseQuickly() {
  const int position = quick_choice_.Position();
  if (position < 0) return;
  const Size& size = kQuickSizes[position];
  SetResolution(size.width, size.height);
}

void ResolutionPage::SetResolution(int width, int height) {
  core::Ignore(display_.ChangeMode({.width = width, .height = height}));
}

}  // namespace kestrune::forms
