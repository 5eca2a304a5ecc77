#include "cli/control_text.h"

#include <algorithm>
#include <optional>

#include "platform/case_fold.h"
#include "platform/parse_number.h"
#include "ui/forms/main_form.h"

namespace kestrune::cli {

namespace {

using controls::Control;
using controls::ControlVisitor;
using platform::Fail;
using platform::Result;

/// The kind of a control as a script knows it, and what else there is to say of it.
class JsonMaker : public ControlVisitor {
 public:
  explicit JsonMaker(Json& json) : json_(json) {}

  void Visit(controls::CheckBox&) override { Kind("check"); }
  void Visit(controls::OptionButton&) override { Kind("option"); }
  void Visit(controls::ComboBox& combo) override {
    Kind("combo");
    Items(combo.Items(), combo.Position());
  }
  void Visit(controls::ListBox& list) override {
    Kind("list");
    Items(list.Items(), list.Position());
  }
  void Visit(controls::TextBox&) override { Kind("text"); }
  void Visit(controls::Slider& slider) override {
    Kind("slider");
    json_["value"] = slider.Value();
    json_["min"] = slider.Minimum();
    json_["max"] = slider.Maximum();
  }
  void Visit(controls::Label&) override { Kind("label"); }
  void Visit(controls::Button&) override { Kind("button"); }
  void Visit(controls::PictureBox& picture) override {
    Kind("picture");
    json_["picture"] = picture.File();
  }
  void Visit(controls::Graph& graph) override {
    Kind("graph");
    Size(graph);
    json_["shapes"] = Json::array();
    for (const controls::GraphShape& shape : graph.Shapes()) {
      json_["shapes"].push_back(
          std::visit([](const auto& each) { return ShapeJson(each); }, shape));
    }
  }
  void Visit(controls::Bar& bar) override {
    Kind("bar");
    Size(bar);
  }
  void Visit(controls::Frame&) override { Kind("frame"); }
  void Visit(controls::ToolKey&) override { Kind("key"); }
  void Visit(controls::Window& window) override {
    Kind("window");
    json_["left"] = window.Bounds().left;
    json_["top"] = window.Bounds().top;
    Size(window);
    json_["opacity"] = window.Opacity();
  }

 private:
  void Kind(std::string_view kind) { json_["kind"] = kind; }
  void Size(const Control& control) {
    json_["width"] = control.Bounds().width;
    json_["height"] = control.Bounds().height;
  }
  static Json ShapeJson(const controls::GraphLine& line) {
    return {"line", line.x1, line.y1, line.x2, line.y2, line.colour, line.width};
  }
  static Json ShapeJson(const controls::GraphPoint& point) {
    return {"point", point.x, point.y, point.colour, point.width};
  }
  void Items(const std::vector<std::string>& items, int position) {
    json_["items"] = items;
    json_["position"] = position;
  }

  Json& json_;
};

/// The number that a value names as "#n"; nothing for a value of another form.
std::optional<int> ParsePosition(const std::string& value) {
  if (!value.starts_with('#')) return std::nullopt;
  const auto position = platform::ParseWhole<int>(std::string_view(value).substr(1));
  return position && *position >= 0 ? position : std::nullopt;
}

/// The position in a list that a value names: an item, exactly or without regard to case, or "#n",
/// which the list may lack. -1 for a value that names none.
int FindItem(const std::vector<std::string>& items, const std::string& value) {
  const auto index = [&items](auto found) {
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
  };
  if (const int exact = index(std::find(items.begin(), items.end(), value)); exact >= 0) {
    return exact;
  }
  const int folded = index(std::find_if(items.begin(), items.end(), [&value](const auto& item) {
    return platform::SameWithoutCase(item, value);
  }));
  return folded >= 0 ? folded : ParsePosition(value).value_or(-1);
}

std::string Listed(const std::vector<std::string>& items) {
  if (items.empty()) return "it has no items";
  std::string text = "its items are";
  for (const std::string& item : items) {
    text += (&item == &items.front() ? " \"" : ", \"") + item + "\"";
  }
  return text;
}

class ValueUser : public ControlVisitor {
 public:
  explicit ValueUser(const std::string& value) : value_(value) {}

  void Visit(controls::CheckBox& box) override {
    if (value_ == "on" || value_ == "off") {
      (void)box.Use(value_ == "on" ? 1 : 0);
    } else {
      Refuse("it takes on or off");
    }
  }
  void Visit(controls::OptionButton& option) override {
    if (value_ == "on") {
      option.Use();
    } else {
      Refuse("an option takes only on");
    }
  }
  void Visit(controls::ComboBox& combo) override {
    const int position = FindItem(combo.Items(), value_);
    const bool taken = position >= 0 ? combo.Choose(position) : combo.Type(value_);
    if (!taken) Refuse(Listed(combo.Items()));
  }
  void Visit(controls::ListBox& list) override {
    if (!list.Choose(FindItem(list.Items(), value_))) Refuse(Listed(list.Items()));
  }
  void Visit(controls::TextBox& box) override {
    if (!box.Type(value_)) Refuse("it takes no typing");
  }
  void Visit(controls::Slider& slider) override {
    const auto number = platform::ParseWhole<int>(value_);
    if (!number || !slider.Use(*number)) {
      Refuse("it takes a number from " + std::to_string(slider.Minimum()) + " to " +
             std::to_string(slider.Maximum()));
    }
  }
  void Visit(controls::Label&) override { Refuse("a label takes no value"); }
  void Visit(controls::Button&) override { Refuse("a button is pressed"); }
  void Visit(controls::PictureBox&) override { Refuse("a picture takes no value"); }
  void Visit(controls::Graph&) override { Refuse("a graph takes no value"); }
  void Visit(controls::Bar&) override { Refuse("a bar takes no value"); }
  void Visit(controls::Frame&) override { Refuse("a frame takes no value"); }
  void Visit(controls::ToolKey&) override { Refuse("a key is pressed"); }
  void Visit(controls::Window&) override { Refuse("a window takes no value"); }

  Result<void> outcome;

 private:
  void Refuse(std::string why) { outcome = Fail(std::move(why)); }

  const std::string& value_;
};

/// Finds out whether a control is one that a person presses.
class Presser : public ControlVisitor {
 public:
  void Visit(controls::CheckBox&) override {}
  void Visit(controls::OptionButton&) override {}
  void Visit(controls::ComboBox&) override {}
  void Visit(controls::ListBox&) override {}
  void Visit(controls::TextBox&) override {}
  void Visit(controls::Slider&) override {}
  void Visit(controls::Label& label) override { PressWhereItActs(label); }
  void Visit(controls::Button& button) override { PressIt(button); }
  void Visit(controls::PictureBox& picture) override { PressWhereItActs(picture); }
  void Visit(controls::Graph&) override {}
  void Visit(controls::Bar&) override {}
  void Visit(controls::Frame&) override {}
  void Visit(controls::ToolKey& key) override { PressIt(key); }
  void Visit(controls::Window&) override {}

  bool pressed = false;

 private:
  void PressIt(Control& control) {
    pressed = true;
    control.Click();
  }
  void PressWhereItActs(Control& control) {
    if (control.on_click) PressIt(control);
  }
};

const Control& RootOf(const Control& control) {
  const Control* root = &control;
  while (root->Parent() != nullptr) root = root->Parent();
  return *root;
}

Result<void> CheckUsable(const Control& control) {
  if (const Control& window = RootOf(control); !window.Visible()) {
    return Fail(window.Id() + " isn't open, so " + control.Id() + " can't be used.");
  }
  if (!IsVisible(control)) return Fail(control.Id() + " is hidden.");
  if (!IsEnabled(control)) return Fail(control.Id() + " is disabled.");
  return {};
}

}  // namespace

std::string OneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    if (c == '\n') {
      line += "\\n";
    } else if (c == '\t') {
      line += "\\t";
    } else if (c != '\r') {
      line += c;
    }
  }
  return line;
}

bool IsEnabled(const Control& control) {
  for (const Control* each = &control; each != nullptr; each = each->Parent()) {
    if (!each->Enabled()) return false;
  }
  return true;
}

bool IsVisible(const Control& control) {
  if (!control.Visible()) return false;
  for (const Control* each = control.Parent(); each != nullptr; each = each->Parent()) {
    // Which page is shown, and whether a window is open, says nothing of the controls in it.
    const bool is_window = each->Parent() == nullptr;
    if (!is_window && !forms::IsPageId(each->Id()) && !each->Visible()) return false;
  }
  return true;
}

std::string ShowLine(const Control& control) {
  std::string line = control.Id() + "\t" + OneLine(control.ValueText());
  if (!IsVisible(control)) return line + "\thidden";
  return IsEnabled(control) ? line : line + "\tdisabled";
}

Json ControlJson(Control& control) {
  Json json = {{"id", control.Id()},
               {"kind", ""},
               {"caption", control.Caption()},
               {"value", control.ValueText()},
               {"enabled", IsEnabled(control)},
               {"visible", IsVisible(control)}};
  if (!control.ToolTip().empty()) json["tip"] = control.ToolTip();
  JsonMaker maker(json);
  control.Accept(maker);
  return json;
}

Result<void> UseValue(Control& control, const std::string& value) {
  if (Result<void> usable = CheckUsable(control); !usable) return usable;
  ValueUser user(value);
  control.Accept(user);
  if (user.outcome) return {};
  return Fail(control.Id() + " can't be set to \"" + OneLine(value) +
              "\": " + user.outcome.Reason() + ".");
}

Result<void> Press(Control& control) {
  if (Result<void> usable = CheckUsable(control); !usable) return usable;
  Presser presser;
  control.Accept(presser);
  if (presser.pressed) return {};
  return Fail(control.Id() + " is nothing that can be pressed.");
}

}  // namespace kestrune::cli
