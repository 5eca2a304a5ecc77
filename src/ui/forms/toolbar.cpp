#include "ui/forms/toolbar.h"

#include <algorithm>

#include "core/outcome.h"
#include "lang/texts.h"
#include "ui/forms/reasons.h"
#include "ui/forms/windows.h"

namespace kestrune::forms {

namespace {

int PageOfKey(std::string_view key) {
  const auto found = std::find_if(kPages.begin(), kPages.end(),
                                  [key](const PageRow& page) { return page.key == key; });
  return static_cast<int>(found - kPages.begin());
}

}  // namespace

void Toolbar::Connect(const Form& form) {
  controls::Window& window = form.TheWindow();
  for (const ControlRow& row : form.Rows()) {
    if (row.action.kind == Action::Kind::kNone) continue;
    form.Get<controls::Control>(row.id).on_click = [this, &row, &window] {
      row.kind == Kind::kKey ? PressKey(row, window) : Perform(row.action, row.id, window);
    };
  }
  for (const ShortcutRow& row : form.WindowsRow().shortcuts) {
    window.AddShortcut({.keys = std::string(row.keys),
                        .control = &window,
                        .act = [this, &row, &window] { Perform(row.action, {}, window); }});
  }
}

void Toolbar::DisableForVista() {
  for (const std::string_view key : {"main.oc", "main.basicdx"}) {
    auto& tool_key = controls_.Get<controls::ToolKey>(key);
    tool_key.SetEnabled(false);
    ExplainDisabled(tool_key, LangText[lang::texts::kNotOnThisSystem]);
  }
}

void Toolbar::GoToPage(int page) {
  help_.Close();
  state_.ActivePage = page;
  navigation_.ShowPage();
}

void Toolbar::PressKey(const ControlRow& row, controls::Window& window) {
  help_.Close();
  Perform(row.action, row.id, window);
  navigation_.ShowPage();
}

void Toolbar::StepBack(controls::Window& window) {
  if (help_.UseClose() || window.Id() == kMainWindow.window.id) return;
  window.UseClose();
}

void Toolbar::Perform(const Action& action, std::string_view key, controls::Window& window) {
  const std::string_view target = action.target;
  switch (action.kind) {
    case Action::Kind::kShowPage:
      state_.ActivePage = PageIndex(target);
      break;
    case Action::Kind::kShowOwnPage:
      state_.ActivePage = PageOfKey(key);
      break;
    case Action::Kind::kRunCommand:
      core::Ignore(shell_.StartCommand(target, platform::WindowState::kMinimised));
      break;
    case Action::Kind::kOpenControlPanelItem:
      core::Ignore(shell_.OpenControlPanelItem(target));
      break;
    case Action::Kind::kOpenDocument:
      if (const auto file = files_.Locate(target)) core::Ignore(shell_.OpenWebPage(*file));
      break;
    case Action::Kind::kOpenWindow:
      windows_.Open(target);
      break;
    case Action::Kind::kCloseWindow:
      window.UseClose();
      break;
    case Action::Kind::kShowPageBefore:
      GoToPage(navigation_.PageBeside(-1));
      break;
    case Action::Kind::kShowPageAfter:
      GoToPage(navigation_.PageBeside(1));
      break;
    case Action::Kind::kStepBack:
      StepBack(window);
      break;
    case Action::Kind::kExplain:
      help_.Explain(focus_.Where());
      break;
    case Action::Kind::kReadAgain:
      navigation_.ReadAgain();
      break;
    case Action::Kind::kNone:
      break;
  }
}

}  // namespace kestrune::forms
