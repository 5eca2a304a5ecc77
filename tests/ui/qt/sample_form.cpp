#include "sample_form.h"

#include <QTest>

namespace kestrune::qt {

namespace {

using forms::ControlSpec;
using forms::Kind;

constexpr ControlSpec kControls[] = {
    {Kind::kWindow, "main", "", {300, 300, 8175, 5625}, "Sample"},
    {Kind::kKey, "main.dx", "main", {60, 60, 1100, 750}, "Tools"},
    {Kind::kKey, "main.one", "main.dx", {}, "Save & close"},
    {Kind::kKey, "main.two", "main.dx", {}, "Send", {}, 0, 0, 0, false},
    {Kind::kSlider, "main.group-scroll-bar", "main", {7800, 900, 255, 600}, "", {}, 1, 5, 1},
    {Kind::kFrame, "page", "main", {120, 900, 7600, 2000}, "Page"},
    {Kind::kLabel, "page.mode-label", "page", {120, 300, 1800, 255}, "Mode:"},
    {Kind::kEditableCombo, "page.mode", "page", {2000, 300, 1800, 330}, "", "Auto"},
    {Kind::kCombo, "page.limit", "page", {4000, 300, 1800, 330}, "", "Unknown"},
    {Kind::kCheck, "page.gamma", "page", {120, 700, 1800, 255}, "Gamma"},
    {Kind::kOption, "page.normal", "page", {2000, 700, 1800, 255}, "Normal", {}, 0, 0, 1},
    {Kind::kOption, "page.zoom", "page", {4000, 700, 1800, 255}, "Zoom"},
    {Kind::kSlider, "page.lod", "page", {120, 1100, 1800, 400}, "", {}, -10, 10, 0},
    {Kind::kText, "page.clock", "page", {2000, 1100, 1800, 330}, "", "350"},
    {Kind::kButton, "page.apply", "page", {4000, 1100, 1800, 375}, "Apply"},
    {Kind::kFrame, "other", "main", {120, 900, 7600, 2000}, "Other", {}, 0, 0, 0, true, false},
    {Kind::kList, "other.lines", "other", {120, 300, 1800, 1500}, ""},
    {Kind::kLabel, "other.note", "other", {2000, 300, 1800, 255}, "Note"},
    {Kind::kCheck, "main.help", "main", {120, 5300, 3000, 255}, ""},
};

}  // namespace

SampleForm::SampleForm() {
  Add(kControls);
  Get<controls::ComboBox>("page.mode").SetItems({"Auto", "2x", "4x"});
  Get<controls::ComboBox>("page.limit").SetItems({"0", "1", "2"});
  Get<controls::ListBox>("other.lines").SetItems({"first", "second", "third"});
  controls::OptionButton::Group(
      {&Get<controls::OptionButton>("page.normal"), &Get<controls::OptionButton>("page.zoom")});
}

SampleWindow::SampleWindow()
    : context_(Scale(1.0 / 15), files_, nullptr),
      view_(std::make_unique<FormView>(form_, context_, nullptr)) {
  view_->FollowWindow();
  view_->activateWindow();
  (void)QTest::qWaitForWindowActive(view_.get());
}

}  // namespace kestrune::qt
