#pragma once

#include <string>
#include <vector>

#include "controls/control.h"

namespace kestrune::controls {

/// A box with the states 0 (cleared), 1 (checked) and 2 (mixed).
class CheckBox : public Control {
 public:
  using Control::Control;

  int State() const { return state_; }
  bool Checked() const { return state_ == 1; }
  /// A person ticks or clears it. False when it can't take the state.
  bool Use(int state);
  void PassOn(int state) { (void)Use(state); }
  /// A state other than 0, 1 and 2 leaves the box as it was.
  void Show(int state);

  std::string ValueText() const override;
  void Accept(ControlVisitor& visitor) override;

  std::function<void()> on_change;

 private:
  int state_ = 0;
};

/// One of several choices. Choosing it clears the others of its group.
class OptionButton : public Control {
 public:
  using Control::Control;

  bool Chosen() const { return chosen_; }
  /// A person chooses it; the handler runs also when it was chosen before.
  void Use();
  void Show(bool chosen);
  /// Puts the options into one group; each then knows the others.
  static void Group(const std::vector<OptionButton*>& options);

  std::string ValueText() const override { return chosen_ ? "on" : "off"; }
  void Accept(ControlVisitor& visitor) override;

 private:
  bool chosen_ = false;
  std::vector<OptionButton*> others_;
};

/// What happened to a combo: an item was chosen from its list, or its text was changed.
enum class ComboChange { kChosen, kText };

/// A list with a text that needs not be one of its items. Its position is that of the first item
/// that equals the text, else -1.
class ComboBox : public Control {
 public:
  using Control::Control;

  const std::vector<std::string>& Items() const { return items_; }
  const std::string& Text() const { return text_; }
  int Position() const { return position_; }
  bool TakesTyping() const { return takes_typing_; }
  void SetTakesTyping(bool takes) { takes_typing_ = takes; }

  /// A person chooses an item; the handler runs also when it was chosen before. False when there
  /// is no such position.
  bool Choose(int position);
  /// A person types. False when the combo takes no typing.
  bool Type(std::string text);
  void PassOn(int position);
  void ShowText(std::string text);
  /// A position outside the list leaves the combo as it was.
  void ShowPosition(int position);
  /// Replaces the items and keeps the text.
  void SetItems(std::vector<std::string> items);

  std::string ValueText() const override { return text_; }
  void Accept(ControlVisitor& visitor) override;

  std::function<void(ComboChange)> on_change;

 private:
  int PositionOf(const std::string& text) const;
  bool HasPosition(int position) const;

  std::vector<std::string> items_;
  std::string text_;
  int position_ = -1;
  bool takes_typing_ = false;
};

/// Lines of which one may be chosen; position -1 is none.
class ListBox : public Control {
 public:
  using Control::Control;

  const std::vector<std::string>& Items() const { return items_; }
  int Position() const { return position_; }
  bool Choose(int position);
  void SetItems(std::vector<std::string> items);

  std::string ValueText() const override;
  void Accept(ControlVisitor& visitor) override;

  std::function<void()> on_change;

 private:
  std::vector<std::string> items_;
  int position_ = -1;
};

/// A line of text that a person types.
class TextBox : public Control {
 public:
  using Control::Control;

  const std::string& Text() const { return text_; }
  /// A person types; the handler runs when the text changes.
  void Type(std::string text);
  void ShowText(std::string text) { Assign(text_, std::move(text)); }
  /// Whether the text was refused and the box is marked for it.
  bool Marked() const { return marked_; }
  void SetMarked(bool marked) { Assign(marked_, marked); }

  std::string ValueText() const override { return text_; }
  void Accept(ControlVisitor& visitor) override;

  std::function<void()> on_change;

 private:
  std::string text_;
  bool marked_ = false;
};

/// A slider or a scroll bar: a whole number in a range, both ends included.
class Slider : public Control {
 public:
  using Control::Control;

  int Minimum() const { return minimum_; }
  int Maximum() const { return maximum_; }
  int Value() const { return value_; }
  bool Takes(int value) const { return value >= minimum_ && value <= maximum_; }
  /// A person moves it. False when the value lies outside the range.
  bool Use(int value);
  void PassOn(int value) { (void)Use(value); }
  /// A value outside the range leaves the slider as it was.
  void Show(int value);
  /// A new range moves a slider that lies outside to the nearest end, as shown. A range whose
  /// ends are the wrong way round is ignored.
  void SetRange(int minimum, int maximum);

  std::string ValueText() const override { return std::to_string(value_); }
  void Accept(ControlVisitor& visitor) override;

  std::function<void()> on_change;

 private:
  int minimum_ = 0;
  int maximum_ = 0;
  int value_ = 0;
};

/// Text on a page. A heading stands above several controls.
class Label : public Control {
 public:
  Label(std::string id, Control* parent, bool heading = false)
      : Control(std::move(id), parent), heading_(heading) {}

  bool IsHeading() const { return heading_; }
  void Accept(ControlVisitor& visitor) override;

 private:
  bool heading_;
};

/// A button; Click() presses it.
class Button : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override;
};

/// A picture from the program folder.
class PictureBox : public Control {
 public:
  using Control::Control;

  /// The file shown, relative to the program folder; empty shows nothing.
  const std::string& File() const { return file_; }
  void ShowFile(std::string file) { Assign(file_, std::move(file)); }

  std::string ValueText() const override { return file_; }
  void Accept(ControlVisitor& visitor) override;

 private:
  std::string file_;
};

/// A frame that holds other controls. A page is a frame that holds a whole page.
class Frame : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override;
};

/// A toolbar button, or an item of its menu (then its parent is that button). Click() presses it.
class ToolKey : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override;
};

/// A window. Its bounds are its place on the screen.
class Window : public Control {
 public:
  using Control::Control;

  bool Maximised() const { return maximised_; }
  void SetMaximised(bool maximised) { Assign(maximised_, maximised); }
  /// A person changes the window's place or state with the window system's own means.
  void UseResized(const Rect& bounds, bool maximised);
  /// A person closes it with its own close box.
  void UseClose() {
    if (on_close) on_close();
  }

  /// 0 is invisible, 255 opaque.
  int Opacity() const { return opacity_; }
  void SetOpacity(int opacity) { Assign(opacity_, opacity); }

  void Accept(ControlVisitor& visitor) override;

  std::function<void()> on_resize;
  std::function<void()> on_close;
  std::function<void()> on_activate;

 private:
  bool maximised_ = false;
  int opacity_ = 255;
};

/// One operation over every kind of control. A kind that is not handled doesn't compile.
class ControlVisitor {
 public:
  virtual ~ControlVisitor() = default;
  virtual void Visit(CheckBox& box) = 0;
  virtual void Visit(OptionButton& option) = 0;
  virtual void Visit(ComboBox& combo) = 0;
  virtual void Visit(ListBox& list) = 0;
  virtual void Visit(TextBox& box) = 0;
  virtual void Visit(Slider& slider) = 0;
  virtual void Visit(Label& label) = 0;
  virtual void Visit(Button& button) = 0;
  virtual void Visit(PictureBox& picture) = 0;
  virtual void Visit(Frame& frame) = 0;
  virtual void Visit(ToolKey& key) = 0;
  virtual void Visit(Window& window) = 0;
};

}  // namespace kestrune::controls
