#include "ui/forms/performance_wizard.h"

#include <string>
#include <vector>

#include "ui/forms/page_groups.h"
#include "ui/forms/pages.h"
#include "ui/forms/windows.h"
#include "wizard/preview.h"
#include "wizard/tuning.h"

namespace kestrune::forms {

namespace {

constexpr std::string_view kWindow = "performance-wizard";

constexpr ControlRow kRows[] = {
    Row(Kind::kLabel, "performance-wizard.auto-settings-for-label", kWindow, {150, 150, 5325, 270},
        208)
        .Names("performance-wizard.auto-settings-for"),
    Row(Kind::kCombo, "performance-wizard.auto-settings-for", kWindow, {150, 450, 5325, 390})
        .Initial(wizard::kDefaultEntry),
    Row(Kind::kLabel, "performance-wizard.quality-low", kWindow, {150, 1050, 3975, 270}, 209),
    Row(Kind::kLabel, "performance-wizard.quality-high", kWindow, {4275, 1050, 1200, 270}, 210)
        .Names("performance-wizard.quality"),
    Row(Kind::kSlider, "performance-wizard.quality", kWindow, {150, 1320, 5325, 390})
        .Range(0, 9, 2),
    Row(Kind::kCheck, "performance-wizard.fine-adjust", kWindow, {150, 1890, 5325, 330}, 211),
    Row(Kind::kLabel, "performance-wizard.antialiasing-label", kWindow, {5775, 150, 5325, 270}, 212)
        .Names("performance-wizard.antialiasing"),
    Row(Kind::kLabel, "performance-wizard.antialiasing-low", kWindow, {5775, 420, 3975, 270}, 209)
        .Disabled(),
    Row(Kind::kLabel, "performance-wizard.antialiasing-high", kWindow, {9900, 420, 1200, 270}, 210)
        .Disabled(),
    Row(Kind::kSlider, "performance-wizard.antialiasing", kWindow, {5775, 690, 5325, 390})
        .Range(0, 4, 0)
        .Disabled(),
    Row(Kind::kLabel, "performance-wizard.texture-filtering-label", kWindow,
        {5775, 1260, 5325, 270}, 213)
        .Names("performance-wizard.texture-filtering"),
    Row(Kind::kLabel, "performance-wizard.texture-filtering-low", kWindow, {5775, 1530, 3975, 270},
        209)
        .Disabled(),
    Row(Kind::kLabel, "performance-wizard.texture-filtering-high", kWindow, {9900, 1530, 1200, 270},
        210)
        .Disabled(),
    Row(Kind::kSlider, "performance-wizard.texture-filtering", kWindow, {5775, 1800, 5325, 390})
        .Range(0, 4, 2)
        .Disabled(),
    Row(Kind::kLabel, "performance-wizard.preview-label", kWindow, {150, 2430, 10950, 270}, 266)
        .Names("performance-wizard.preview"),
    Row(Kind::kList, "performance-wizard.preview", kWindow, {150, 2730, 10950, 3600}),
    Row(Kind::kButton, "performance-wizard.optimize", kWindow, {6450, 6540, 2250, 435}, 214),
    Row(Kind::kButton, "performance-wizard.close", kWindow, {8850, 6540, 2250, 435}, 204),
};

/// What the fine adjustment enables.
constexpr std::string_view kFineControls[] = {
    "performance-wizard.antialiasing-low",       "performance-wizard.antialiasing-high",
    "performance-wizard.antialiasing",           "performance-wizard.texture-filtering-low",
    "performance-wizard.texture-filtering-high", "performance-wizard.texture-filtering",
};

/// A caption without its colon, and without the no-break space that French has before one.
std::string WithoutColon(const std::string& caption) {
  constexpr std::string_view kNoBreakSpace = "\u00A0";
  std::string name = caption.substr(0, caption.find_last_of(':'));
  if (name.ends_with(kNoBreakSpace)) name.resize(name.size() - kNoBreakSpace.size());
  return name;
}

const std::string& PageCaption(const controls::Control& control) {
  const controls::Control* page = &control;
  while (!IsPageId(page->Id())) page = page->Parent();
  return page->Caption();
}

class PerformanceWizard : public WindowPart {
 public:
  explicit PerformanceWizard(const Shared& shared);

  void Load() override;

 private:
  void Changed();
  void FineAdjustTicked();
  void Optimize();
  void ShowPreview();
  void TakeFactors(wizard::Factors& factors) const;
  std::vector<wizard::WriterCall> Calls(const wizard::Factors& factors) const;
  std::string LineOf(const wizard::ShownValue& shown) const;

  const Shared& shared_;
  controls::ComboBox& entry_;
  controls::Slider& quality_;
  controls::CheckBox& fine_adjust_;
  controls::Slider& antialiasing_;
  controls::Slider& filtering_;
  controls::ListBox& preview_;
  controls::Button& optimize_;
  wizard::Factors factors_;  ///< as they were last read for writing
};

PerformanceWizard::PerformanceWizard(const Shared& shared)
    : shared_(shared),
      entry_(shared.controls.Get<controls::ComboBox>("performance-wizard.auto-settings-for")),
      quality_(shared.controls.Get<controls::Slider>("performance-wizard.quality")),
      fine_adjust_(shared.controls.Get<controls::CheckBox>("performance-wizard.fine-adjust")),
      antialiasing_(shared.controls.Get<controls::Slider>("performance-wizard.antialiasing")),
      filtering_(shared.controls.Get<controls::Slider>("performance-wizard.texture-filtering")),
      preview_(shared.controls.Get<controls::ListBox>("performance-wizard.preview")),
      optimize_(shared.controls.Get<controls::Button>("performance-wizard.optimize")) {
  entry_.on_change = [this](controls::ComboChange) { Changed(); };
  for (controls::Slider* slider : {&quality_, &antialiasing_, &filtering_}) {
    slider->on_change = [this] { Changed(); };
  }
  fine_adjust_.on_change = [this] { FineAdjustTicked(); };
  optimize_.on_click = [this] { Optimize(); };
  shared.controls.Get<controls::Button>("performance-wizard.close").on_click = [this] {
    shared_.windows.Close(shared_.controls.Get<controls::Window>(kWindow));
  };
}

void PerformanceWizard::Load() {
  factors_ = {};
  entry_.SetItems(wizard::ReadIndex(shared_.services.files).value_or(std::vector<std::string>()));
  ShowPreview();
}

void PerformanceWizard::Changed() {
  optimize_.SetEnabled(true);
  ShowPreview();
}

void PerformanceWizard::FineAdjustTicked() {
  for (const std::string_view id : kFineControls) {
    shared_.controls.Get<controls::Control>(id).SetEnabled(fine_adjust_.Checked());
  }
  Changed();
}

void PerformanceWizard::TakeFactors(wizard::Factors& factors) const {
  wizard::ReadFactors(shared_.services.files, entry_.Text(), shared_.adapter.DeviceId, factors);
}

std::vector<wizard::WriterCall> PerformanceWizard::Calls(const wizard::Factors& factors) const {
  return wizard::Optimize({.quality = quality_.Value(),
                           .antialiasing = antialiasing_.Value(),
                           .filtering = filtering_.Value(),
                           .fine_adjust = fine_adjust_.Checked()},
                          wizard::ProcessorClass(shared_.state.Mhz), factors);
}

void PerformanceWizard::Optimize() {
  TakeFactors(factors_);
  DriverSettings& driver = shared_.pages->driver;
  for (const wizard::WriterCall& call : Calls(factors_)) {
    if (call.writer == settings::Writer::kDirect3D) {
      driver.WriteDirect3D(call.code, call.argument);
    } else {
      driver.WriteOpenGL(call.code, call.argument);
    }
  }
  driver.Read();
  shared_.pages->direct3d.ShowPreview();
  optimize_.SetEnabled(false);
}

void PerformanceWizard::ShowPreview() {
  std::vector<std::string> lines;
  if (!shared_.adapter.PureKey.empty()) {
    wizard::Factors factors = factors_;
    TakeFactors(factors);
    for (const wizard::WriterCall& call : Calls(factors)) {
      const auto shown = ShownAfter(call, shared_.pages->driver.Direct3D());
      if (shown) lines.push_back(LineOf(*shown));
    }
  }
  preview_.SetItems(std::move(lines));
}

std::string PerformanceWizard::LineOf(const wizard::ShownValue& shown) const {
  const auto& control = shared_.controls.Get<controls::Control>(shown.id);
  const controls::Control* label = shared_.controls.Find(std::string(shown.id) + "-label");
  const std::string& caption = !shown.caption.empty() ? shown.caption
                               : label != nullptr     ? label->Caption()
                                                      : control.Caption();
  return PageCaption(control) + ": " + WithoutColon(caption) + " = " + shown.choice;
}

}  // namespace

const WindowRow kPerformanceWizard = {
    .window = Row(Kind::kWindow, kWindow, "", {0, 0, 11250, 7125}, 207).Hidden(),
    .controls = kRows,
    .owner = "main",
    .modal = true,
    .cancel_key = "performance-wizard.close",
    .opened_by = "main.pw",
    .make = [](const Shared& shared) -> std::unique_ptr<WindowPart> {
      return std::make_unique<PerformanceWizard>(shared);
    }};

}  // namespace kestrune::forms
