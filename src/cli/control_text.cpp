#include "cli/control_text.h"

#include <optional>

#include "platform/parse_number.h"
#include "platform/plain_text.h"
#include "ui/forms/main_form.h"

namespace kestrune::cli {

namespace {

using controls::Control;
using controls::ControlVisitor;
using controls::Refusal;
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
  void Visit(controls::Frame& frame) override {
    Kind("frame");
    Size(frame);
  }
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
    const std::optional<int> position = PositionIn(combo);
    if (position ? !combo.Choose(*position) : !TakesText(combo)) Refuse(Listed(combo.Items()));
  }
  void Visit(controls::ListBox& list) override {
    const int position = PositionIn(list).value_or(list.ItemFor(value_));
    if (!list.Choose(position)) Refuse(Listed(list.Items()));
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

  bool Taken() const { return why_.empty(); }
  /// Why the control can't take the value.
  const std::string& Why() const { return why_; }
  /// Whether the value was typed into a combo that has no such item.
  bool Typed() const { return typed_; }

 private:
  void Refuse(std::string why) { why_ = std::move(why); }
  /// The position that the value names by its number, unless there is an item of that text.
  template <typename List>
  std::optional<int> PositionIn(const List& list) const {
    return list.ItemFor(value_) >= 0 ? std::nullopt : ParsePosition(value_);
  }
  bool TakesText(controls::ComboBox& combo) {
    const controls::TextUse use = combo.UseText(value_);
    typed_ = use == controls::TextUse::kTyped;
    return use != controls::TextUse::kRefused;
  }

  const std::string& value_;
  std::string why_;
  bool typed_ = false;
};

/// Presses a control if it is one that a person presses.
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

}  // namespace

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
  std::string line = control.Id() + "\t" + platform::PlainText(control.ValueText());
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

Result<void> ToResult(const controls::Gate& gate, const Control& control, Refusal refusal) {
  switch (refusal) {
    case Refusal::kNone:
      return {};
    case Refusal::kWindowClosed:
      return Fail(control.Root().Id() + " isn't open, so " + control.Id() + " can't be used.");
    case Refusal::kBehindModal:
      return Fail(control.Id() + " can't be used while " + gate.Modal()->Id() + " is open.");
    case Refusal::kHidden:
      return Fail(control.Id() + " is hidden.");
    case Refusal::kDisabled:
      return Fail(control.Id() + " is disabled.");
    case Refusal::kBusy:
      return Fail(control.Id() + " can't be used while another control's act is being done.");
    case Refusal::kNotTaken:
      return Fail(control.Id() + " can't take that.");
  }
  return {};
}

Result<std::string> UseValue(controls::Gate& gate, Control& control, const std::string& value) {
  ValueUser user(value);
  const Refusal refusal = gate.Act(control, [&] {
    control.Accept(user);
    return user.Taken();
  });
  if (!user.Taken()) {
    return Fail(control.Id() + " can't be set to \"" + value + "\": " + user.Why() + ".");
  }
  if (const Result<void> done = ToResult(gate, control, refusal); !done) return Fail(done.Reason());
  if (!user.Typed()) return std::string();
  return '"' + value + "\" is none of the items of " + control.Id();
}

Result<void> Press(controls::Gate& gate, Control& control) {
  Presser presser;
  const Refusal refusal = gate.Act(control, [&] {
    control.Accept(presser);
    return presser.pressed;
  });
  if (refusal == Refusal::kNotTaken) return Fail(control.Id() + " is nothing that can be pressed.");
  return ToResult(gate, control, refusal);
}

}  // namespace kestrune::cli
