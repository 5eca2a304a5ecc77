#include "cli/script.h"

#include "platform/plain_text.h"
#include "ui/forms/main_form.h"
#include "ui/forms/windows.h"

namespace kestrune::cli {

using controls::Control;
using controls::Refusal;
using platform::Fail;
using platform::Result;

Status Script::Run(const std::vector<Step>& steps) {
  for (const Step& step : steps) {
    if (const Result<void> done = Do(step); !done) {
      streams_.Complain(done.Reason());
      return Status::kImpossible;
    }
    if (has_failed_()) return Status::kImpossible;
  }
  return Status::kDone;
}

Result<void> Script::Do(const Step& step) {
  if (step.kind == Step::Kind::kWait)
    return program_.Timers().Advance(step.wait_ms), Result<void>();
  if (step.kind == Step::Kind::kShow && step.id.empty()) return Show(step.id), Result<void>();
  if (program_.Ended()) return Fail("the program has ended, so " + step.id + " can't be used.");
  if (step.kind == Step::Kind::kOpen) return Open(step.id);
  if (step.kind == Step::Kind::kClose) return Close(step.id);
  Control& control = *program_.Find(step.id);
  if (step.opens_window) {
    if (Result<void> opened = OpenFor(control); !opened) return opened;
  }
  return Use(step, control);
}

Result<void> Script::Use(const Step& step, Control& control) {
  const bool only_looks = step.kind == Step::Kind::kPrint || step.kind == Step::Kind::kHover;
  const bool is_behind = program_.Gate().Check(control.Root()) == Refusal::kBehindModal;
  // No page is turned behind a modal window; what is there can be looked at all the same.
  if (!only_looks || !is_behind) {
    if (Result<void> shown = GoTo(control); !shown) return shown;
  }
  switch (step.kind) {
    case Step::Kind::kPrint:
      return Print(control), Result<void>();
    case Step::Kind::kHover:
      return control.Hover(), Result<void>();
    case Step::Kind::kSet: {
      const Result<std::string> used = UseValue(program_.Gate(), control, step.value);
      if (!used) return Fail(used.Reason());
      if (!used.Value().empty()) streams_.Note(used.Value());
      return {};
    }
    case Step::Kind::kPress:
      return Press(program_.Gate(), control);
    case Step::Kind::kShow:
      return Show(step.id), Result<void>();
    default:
      return {};
  }
}

void Script::Print(Control& control) {
  out_.Item(ControlJson(control));
  out_.Line(platform::PlainText(control.ValueText()));
}

/// Shows the page on which a control stands.
Result<void> Script::GoTo(const Control& control) {
  const int page = program_.PageOf(control);
  if (page < 0) return {};
  const bool is_there = page == program_.ActivePage();
  const Control* way = is_there ? &control.Root() : program_.Main().WayTo(page);
  if (way == nullptr) {
    return Fail("the window can't reach " + program_.Main().Page(page).Id() +
                ": no key that is enabled leads there.");
  }
  controls::Gate& gate = program_.Gate();
  return ToResult(gate, control, gate.Act(*way, [this, page, is_there] {
    if (!is_there) program_.GoToPage(page);
    return true;
  }));
}

/// Opens the window in which a control stands, if there is something that opens it.
Result<void> Script::OpenFor(const Control& control) {
  const Control& window = control.Root();
  const forms::WindowRow& row = program_.FormOf(window.Id()).WindowsRow();
  const bool has_way = !row.opened_by.empty() || !row.opened_beside.empty();
  return window.Visible() || !has_way ? Result<void>() : Open(window.Id());
}

Result<void> Script::Open(const std::string& window) {
  controls::Gate& gate = program_.Gate();
  auto& target = dynamic_cast<controls::Window&>(*program_.Find(window));
  // An open one comes to the front, which is nothing to see in a terminal.
  if (target.Visible()) return ToResult(gate, target, gate.Act(target, [] { return true; }));
  const forms::WindowRow& row = program_.FormOf(window).WindowsRow();
  const bool by_key = !row.opened_by.empty();
  if (!by_key && row.opened_beside.empty()) {
    return Fail(window + " can't be opened by name; it opens when the mouse moves over a setting.");
  }
  Control& key = *program_.Find(by_key ? row.opened_by : row.opened_beside);
  if (Result<void> opened = OpenFor(key); !opened) return opened;
  if (Result<void> shown = GoTo(key); !shown) return shown;
  if (by_key) return Press(gate, key);
  return ToResult(gate, key, gate.Act(key, [this, &target] {
    program_.TheWindows().Open(target);
    return true;
  }));
}

Result<void> Script::Close(const std::string& window) {
  auto& target = dynamic_cast<controls::Window&>(*program_.Find(window));
  controls::Gate& gate = program_.Gate();
  const Refusal refusal = gate.Act(target, [&target] {
    target.UseClose();
    return true;
  });
  if (refusal == Refusal::kWindowClosed) return Fail(window + " isn't open.");
  return ToResult(gate, target, refusal);
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
  for (const forms::Form* form : program_.Forms()) {
    constexpr int kOnNoPage = -1;
    if (form->TheWindow().Id() == id) return print(*form, kOnNoPage);
  }
  for (int page = 0; page < forms::PageCount(); ++page) {
    if (id.empty() || page == program_.ActivePage()) print(program_.Main(), page);
  }
}

}  // namespace kestrune::cli
