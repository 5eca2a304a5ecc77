#include "ui/forms/lower_panel.h"

#include <algorithm>

#include "ui/forms/pictures.h"

namespace kestrune::forms {

namespace {

using controls::Rect;

constexpr int kPanelStep = 100;
constexpr int kPanelInterval = 100;

/// Stands in for a remembered page that there isn't.
constexpr int kFallbackPage = 4;

}  // namespace

LowerPanel::LowerPanel(const MainForm& form, const Shared& shared, HelpWindow& help)
    : state_(shared.state),
      options_(shared.registry),
      files_(shared.services.files),
      language_(shared.language),
      help_(help),
      window_(form.TheWindow()),
      enable_help_(form.Get<controls::CheckBox>("main.enable-help-system")),
      remember_page_(form.Get<controls::CheckBox>("main.remember-last-visited-page")),
      languages_(form.Get<controls::ComboBox>("main.language")),
      language_header_(form.Get<controls::Label>("main.language-header")),
      help_picture_(form.Get<controls::PictureBox>("main.help-system-picture")),
      growing_(shared.timers, kPanelInterval),
      shrinking_(shared.timers, kPanelInterval) {
  ConnectPanel(form);
  enable_help_.on_change = [this] { HelpOptionChanged(); };
  remember_page_.on_change = [this] {
    if (state_.IsStart != 1) SaveVisitedPage();
  };
  languages_.on_change = [this](controls::ComboChange) {
    language_.ChooseLanguage(languages_.Position());
  };
}

void LowerPanel::ConnectPanel(const MainForm& form) {
  growing_.on_tick = [this] { Grow(); };
  shrinking_.on_tick = [this] { Shrink(); };
  form.Get<controls::Label>("main.lower-panel-edge").on_hover = [this] {
    growing_.SetEnabled(true);
  };
  for (int page = 0; page < PageCount(); ++page) {
    form.Page(page).on_hover = [this] { shrinking_.SetEnabled(true); };
  }
  window_.on_resize = [this] { RestoreSize(); };
}

void LowerPanel::ShowLanguageHeader() { language_header_.SetCaption(language_.HeaderText); }

void LowerPanel::OfferLanguages() {
  // Every one of their files has to be read, and few commands need the list.
  languages_.FindItems([this] { return language_.ListLanguages(); });
  languages_.SetPlaceholder(language_.DisplayName);
}

void LowerPanel::Grow() {
  shrinking_.SetEnabled(false);
  Rect bounds = window_.Bounds();
  bounds.height = std::min(bounds.height + kPanelStep, kFullHeight);
  if (bounds.height == kFullHeight) growing_.SetEnabled(false);
  window_.SetBounds(bounds);
}

void LowerPanel::Shrink() {
  growing_.SetEnabled(false);
  Rect bounds = window_.Bounds();
  bounds.height = std::max(bounds.height - kPanelStep, kLowHeight);
  if (bounds.height == kLowHeight) shrinking_.SetEnabled(false);
  window_.SetBounds(bounds);
}

void LowerPanel::RestoreSize() {
  window_.SetMaximised(false);
  Rect bounds = window_.Bounds();
  bounds.width = kMainWidth;
  window_.SetBounds(bounds);
}

void LowerPanel::HelpOptionChanged() {
  const int on = enable_help_.State();
  options_.Write(core::kHelpSystemValue, on);
  state_.HelpSystemEnabled = on;
  if (on == 0) help_.Close();
  help_picture_.SetVisible(on != 0);
}

void LowerPanel::SaveVisitedPage() {
  if (remember_page_.Checked()) {
    options_.Write(core::kLastVisitedPageValue, state_.ActivePage);
  } else {
    options_.Delete(core::kLastVisitedPageValue);
  }
}

bool LowerPanel::ReadOptions() {
  const platform::ReadScope view = options_.Reading();
  const int help = options_.Read(core::kHelpSystemValue).NumberOr(1);
  enable_help_.Show(help);
  state_.HelpSystemEnabled = help;
  help_.ForgetTopic();
  help_picture_.SetVisible(help != 0);

  const int page = options_.Read(core::kLastVisitedPageValue).NumberOr(-1);
  if (page == -1) return false;
  remember_page_.Show(1);
  state_.ActivePage = IsPage(page) ? page : kFallbackPage;
  return true;
}

void LowerPanel::LoadHelpPicture() {
  const std::string picture = HelpPicture(kPanelPicture);
  if (files_.IsPicture(picture)) help_picture_.ShowFile(picture);
}

}  // namespace kestrune::forms
