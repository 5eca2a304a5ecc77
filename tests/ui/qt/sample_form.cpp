#include "sample_form.h"

#include <QTest>

namespace kestrune::qt {

namespace {

using forms::ControlRow;
using forms::Kind;
using forms::Row;

constexpr ControlRow kControls[] = {
    Row(Kind::kKey, "main.dx", "main", {60, 60, 1100, 750}).Design("Tools"),
    Row(Kind::kKey, "main.one", "main.dx", {}).Design("Save & close"),
    Row(Kind::kKey, "main.two", "main.dx", {}).Design("Send").Disabled(),
    Row(Kind::kScrollBar, "main.group-scroll-bar", "main", {7800, 900, 255, 600}).Range(1, 5, 1),
    Row(Kind::kFrame, "page", "main", {120, 900, 7600, 2000}).Design("Page"),
    Row(Kind::kLabel, "page.mode-label", "page", {120, 300, 1800, 255})
        .Design("Mode:")
        .Names("page.mode"),
    Row(Kind::kEditableCombo, "page.mode", "page", {2000, 300, 1800, 330}).Initial("Auto"),
    Row(Kind::kCombo, "page.limit", "page", {4000, 300, 1800, 330}).Initial("Unknown"),
    Row(Kind::kCheck, "page.gamma", "page", {120, 700, 1800, 255}).Design("Gamma"),
    Row(Kind::kOption, "page.normal", "page", {2000, 700, 1800, 255}).Design("Normal").Chosen(),
    Row(Kind::kOption, "page.zoom", "page", {4000, 700, 1800, 255}).Design("Zoom"),
    Row(Kind::kSlider, "page.lod", "page", {120, 1100, 1800, 400}).Range(-10, 10, 0),
    Row(Kind::kText, "page.clock", "page", {2000, 1100, 1800, 330}).Initial("350"),
    Row(Kind::kButton, "page.apply", "page", {4000, 1100, 1800, 375}).Design("Apply"),
    Row(Kind::kFrame, "other", "main", {120, 900, 7600, 2000}).Design("Other").Hidden(),
    Row(Kind::kList, "other.lines", "other", {120, 300, 1800, 1500}),
    Row(Kind::kLabel, "other.note", "other", {2000, 300, 1800, 255}).Design("Note"),
    Row(Kind::kReadOnlyText, "other.path", "other", {2000, 700, 1800, 330}).Initial("fixed"),
    Row(Kind::kLink, "other.link", "other", {120, 1650, 1800, 255}).Design("More"),
    Row(Kind::kPicture, "other.picture", "other", {2000, 1500, 1800, 300}),
    Row(Kind::kBar, "other.bar", "other", {2000, 1100, 0, 255}),
    Row(Kind::kGraph, "other.graph", "other", {4000, 300, 3000, 1500}),
    Row(Kind::kCheck, "main.help", "main", {120, 5300, 3000, 255}),
};

constexpr forms::WindowRow kWindow = {
    .window = Row(Kind::kWindow, "main", "", {300, 300, 8175, 5625}).Design("Sample"),
    .controls = kControls,
    .resizable = true,
    .default_key = "page.apply",
    .cancel_key = "main.one"};

}  // namespace

SampleForm::SampleForm() : Form(kWindow) {
  Get<controls::ComboBox>("page.mode").SetItems({"Auto", "2x", "4x"});
  Get<controls::ComboBox>("page.limit").SetItems({"0", "1", "2"});
  Get<controls::ListBox>("other.lines").SetItems({"first", "second", "third"});
  TheWindow().AddShortcut({"Ctrl+PageDown", Find("page.apply")});
  controls::OptionButton::Group(
      {&Get<controls::OptionButton>("page.normal"), &Get<controls::OptionButton>("page.zoom")});
}

SampleWindow::SampleWindow(double pixels_per_twip)
    : context_(face::Scale(pixels_per_twip), files_, gate_, nullptr),
      view_(std::make_unique<FormView>(form_, context_, nullptr)) {
  view_->FollowWindow();
  view_->activateWindow();
  (void)QTest::qWaitForWindowActive(view_.get());
}

}  // namespace kestrune::qt
