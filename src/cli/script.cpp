#include "cli/script.h"

#include "ui/forms/main_form.h"

namespace kestrune::cli {

using controls::Control;
using platform::Fail;
using platform::Result;

Status Script::Run(const std::vector<Step>& steps) {
  for (const Step& step : steps) {
    if (const Result<void> done = Do(step); !done) {
      streams_.Complain(done.Reason());
      return Status::kImpossible;
    }
  }
  return Status::kDone;
}

Result<void> Script::Do(const Step& step) {
  if (step.kind == Step::Kind::kWait)
    return program_.Timers().Advance(step.wait_ms), Result<void>();
  if (step.kind == Step::Kind::kShow) return Show(step.id), Result<void>();
  if (program_.Ended()) return Fail("the program has ended, so " + step.id + " can't be used.");
  if (step.kind == Step::Kind::kOpen) return Open(step.id);
  if (step.kind == Step::Kind::kClose) return Close(step.id);
  Control& control = *program_.Find(step.id);
  GoTo(control);
  switch (step.kind) {
    case Step::Kind::kPrint:
      out_.Item(ControlJson(control));
      out_.Line(OneLine(control.ValueText()));
      return {};
    case Step::Kind::kHover:
      control.Hover();
      return {};
    case Step::Kind::kSet:
      return UseValue(control, step.value);
    case Step::Kind::kPress:
      return Press(control);
    default:
      return {};
  }
}

void Script::GoTo(const Control& control) {
  const int page = program_.PageOf(control);
  if (page >= 0 && page != program_.ActivePage()) program_.GoToPage(page);
}

Result<void> Script::Open(const std::string& window) {
  if (program_.Find(window)->Visible()) return {};
  return Fail(window + " can't be opened by name; it opens when the mouse moves over a setting.");
}

Result<void> Script::Close(const std::string& window) {
  auto& target = dynamic_cast<controls::Window&>(*program_.Find(window));
  if (!target.Visible()) return Fail(window + " isn't open.");
  target.UseClose();
  return {};
}

/// Prints the controls of a page or window, or of all pages.
void Script::Show(const std::string& id) {
  const auto print = [this](const forms::Form& form, int page) {
    for (const auto& control : form.Controls()) {
      if (program_.PageOf(*control) != page) continue;
      out_.Item(ControlJson(*control));
      out_.Line(ShowLine(*control));
    }
  };
  if (IsWindow(program_.Find(id))) {
    constexpr int kOnNoPage = -1;
    for (const forms::Form* form : program_.Forms()) {
      if (form->Controls().front()->Id() == id) print(*form, kOnNoPage);
    }
    return;
  }
  if (!id.empty()) GoTo(*program_.Find(id));
  for (int page = 0; page < forms::kPageCount; ++page) {
    if (id.empty() || page == program_.ActivePage()) print(program_.Main(), page);
  }
}

}  // namespace kestrune::cli
