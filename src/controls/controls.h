#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <variant>
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
  void PassOn() {
    if (!chosen_) Use();
  }
  void Show(bool chosen);
  /// Puts the options into one group; each then knows the others.
  static void Group(const std::vector<OptionButton*>& options);
  /// All options of its group in their order, itself included; none where it stands alone.
  const std::vector<OptionButton*>& GroupMembers() const { return group_; }

  std::string ValueText() const override { return chosen_ ? "on" : "off"; }
  void Accept(ControlVisitor& visitor) override;

 private:
  bool chosen_ = false;
  std::vector<OptionButton*> group_;
};

/// What happened to a combo: an item was chosen from its list, or its text was changed.
enum class ComboChange { kChosen, kText };

/// What a text given to a combo turned out to be.
enum class TextUse { kRefused, kItem, kTyped };

/// A list with a text that needs not be one of its items. Its position is that of the first item
/// that equals the text, else -1.
class ComboBox : public Control {
 public:
  using Control::Control;

  const std::vector<std::string>& Items() const;
  const std::string& Text() const { return text_; }
  int Position() const;
  bool TakesTyping() const { return takes_typing_; }
  void SetTakesTyping(bool takes) { takes_typing_ = takes; }

  /// A person chooses an item; the handler runs also when it was chosen before. False when there
  /// is no such position.
  bool Choose(int position);
  /// A person types. False when the combo takes no typing.
  bool Type(std::string text);
  /// A person gives a text: an item, exactly or else without regard to case, is chosen; any other
  /// text is typed where the combo takes typing.
  TextUse UseText(const std::string& text);
  /// The position of the item that a given text means; -1 for none.
  int ItemFor(std::string_view text) const;
  void PassOn(int position);
  void ShowText(std::string text);
  /// A position outside the list leaves the combo as it was.
  void ShowPosition(int position);
  /// Replaces the items and keeps the text.
  void SetItems(std::vector<std::string> items);
  /// Has the items found once, when they are first needed. Observers aren't told.
  void FindItems(std::function<std::vector<std::string>()> find) { find_items_ = std::move(find); }
  /// Whether nobody has needed the items yet.
  bool HasItemsToFind() const { return find_items_ != nullptr; }

  /// What a face draws, greyed, and tells as the value while the text is empty.
  const std::string& Placeholder() const { return placeholder_; }
  void SetPlaceholder(std::string text) { Assign(placeholder_, std::move(text)); }

  std::string ValueText() const override { return text_; }
  void Accept(ControlVisitor& visitor) override;

  std::function<void(ComboChange)> on_change;
  /// Whether a typed text that is no item stands for something; without it none does.
  std::function<bool(const std::string& text)> knows;

 private:
  bool HasPosition(int position) const;

  mutable std::function<std::vector<std::string>()> find_items_;  ///< null once they are there
  mutable std::vector<std::string> items_;
  std::string text_;
  std::string placeholder_;
  mutable int position_ = -1;
  bool takes_typing_ = false;
};

/// Lines of which one may be chosen; position -1 is none.
class ListBox : public Control {
 public:
  using Control::Control;

  const std::vector<std::string>& Items() const { return items_; }
  int Position() const { return position_; }
  bool Choose(int position);
  /// The position of the line that a given text means, as for a combo; -1 for none.
  int ItemFor(std::string_view text) const;
  /// -1 chooses none; any other position outside the list leaves it as it was.
  void ShowPosition(int position);
  /// Replaces the lines; none is chosen then.
  void SetItems(std::vector<std::string> items);
  /// Replaces the lines; the chosen one stays chosen where there is one like it, at its place
  /// rather than elsewhere.
  void RefreshItems(std::vector<std::string> items);
  /// How often the lines were replaced, so that whoever draws them knows without a look at each.
  int Edition() const { return edition_; }
  /// Whether the lines replaced earlier ones of the same list, so that its view stays in place.
  bool IsRefreshed() const { return is_refreshed_; }
  /// Whether a line is a place that choosing it goes to, so that a keyboard first looks for it and
  /// chooses by Enter. Said before it is drawn.
  bool LeadsElsewhere() const { return leads_elsewhere_; }
  void SetLeadsElsewhere(bool leads) { leads_elsewhere_ = leads; }

  std::string ValueText() const override;
  void Accept(ControlVisitor& visitor) override;

  std::function<void()> on_change;

 private:
  void Replace(std::vector<std::string> items, bool is_refreshed);

  std::vector<std::string> items_;
  int edition_ = 0;
  bool is_refreshed_ = false;
  int position_ = -1;
  bool leads_elsewhere_ = false;
};

/// A line of text that a person types, or only reads where it takes no typing. Which of the two it
/// is, is said before it is drawn.
class TextBox : public Control {
 public:
  using Control::Control;

  const std::string& Text() const { return text_; }
  bool TakesTyping() const { return takes_typing_; }
  void SetTakesTyping(bool takes) { takes_typing_ = takes; }
  /// A person types; the handler runs when the text changes. False when the box takes no typing.
  bool Type(std::string text);
  void PassOn(std::string text);
  void ShowText(std::string text) { (void)Take(std::move(text)); }
  /// What Enter presses while the focus is here; null leaves it to the window.
  Control* DefaultKey() const { return default_key_; }
  void SetDefaultKey(Control* key) { default_key_ = key; }
  /// Whether the text was refused and the box is marked for it. Another text takes the mark away.
  bool Marked() const { return marked_; }
  void SetMarked(bool marked) { Assign(marked_, marked); }

  std::string ValueText() const override { return text_; }
  void Accept(ControlVisitor& visitor) override;

  std::function<void()> on_change;

 private:
  bool Take(std::string text);

  std::string text_;
  bool takes_typing_ = true;
  bool marked_ = false;
  Control* default_key_ = nullptr;
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
  /// Whether it scrolls through something rather than setting a value. Said before it is drawn.
  bool IsScrollBar() const { return is_scroll_bar_; }
  void SetScrollBar(bool is_scroll_bar) { is_scroll_bar_ = is_scroll_bar; }

  std::string ValueText() const override { return std::to_string(value_); }
  void Accept(ControlVisitor& visitor) override;

  std::function<void()> on_change;

 private:
  int minimum_ = 0;
  int maximum_ = 0;
  int value_ = 0;
  bool is_scroll_bar_ = false;
};

/// What a label is for, beyond being read.
enum class LabelRole {
  kText,
  kHeading,  ///< stands above several controls
  kLink,     ///< is clicked; a keyboard reaches and presses it
  kEdge,     ///< reacts to the mouse over it; a keyboard reaches it
};

/// Text on a page. Its role is said before it is drawn.
class Label : public Control {
 public:
  Label(std::string id, Control* parent, LabelRole role = LabelRole::kText)
      : Control(std::move(id), parent), role_(role) {}

  LabelRole Role() const { return role_; }
  void SetRole(LabelRole role) { role_ = role; }

  void Accept(ControlVisitor& visitor) override;

 private:
  LabelRole role_;
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
  /// Whether it is clicked, so that a keyboard must reach it. Said before it is drawn.
  bool IsLink() const { return is_link_; }
  void SetLink(bool is_link) { is_link_ = is_link; }

  std::string ValueText() const override { return file_; }
  void Accept(ControlVisitor& visitor) override;

 private:
  std::string file_;
  bool is_link_ = false;
};

/// What a graph shows, in twips from its upper left corner. A colour is "#rrggbb".
struct GraphLine {
  int x1 = 0;
  int y1 = 0;
  int x2 = 0;
  int y2 = 0;
  std::string colour;
  int width = 0;

  bool operator==(const GraphLine&) const = default;
};
struct GraphPoint {
  int x = 0;
  int y = 0;
  std::string colour;
  int width = 0;

  bool operator==(const GraphPoint&) const = default;
};
using GraphShape = std::variant<GraphLine, GraphPoint>;

/// An area that code draws on. It remembers what was drawn since the last clearing, in order; what
/// lies outside is cut off by whoever shows it.
class Graph : public Control {
 public:
  using Control::Control;

  const std::vector<GraphShape>& Shapes() const { return shapes_; }
  void Draw(GraphShape shape);
  void Clear();

  void Accept(ControlVisitor& visitor) override;

 private:
  std::vector<GraphShape> shapes_;
};

/// A filled area whose width in twips is its value.
class Bar : public Control {
 public:
  using Control::Control;

  /// A negative width counts as 0.
  void ShowWidth(int width);

  std::string ValueText() const override { return std::to_string(Bounds().width); }
  void Accept(ControlVisitor& visitor) override;
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

/// A key combination and what it does while its window takes acts.
struct Shortcut {
  /// Modifiers in the order Ctrl, Alt, Shift and a key's name: "F1", "Ctrl+PageUp".
  std::string keys;
  /// The control that acts; the gate asks whether it can.
  Control* control = nullptr;
  /// What happens; where it is empty the control is clicked.
  std::function<void()> act = {};
};

/// A window. Its bounds are its place on the screen. What kind of window it is, and its shortcuts,
/// are said before it is drawn.
class Window : public Control {
 public:
  using Control::Control;

  /// The window that it stands over, whatever is clicked; null for none.
  Window* Owner() const { return owner_; }
  void SetOwner(Window* owner) { owner_ = owner; }
  /// Whether only it takes acts while it is open.
  bool Modal() const { return modal_; }
  void SetModal(bool modal) { modal_ = modal; }
  bool Resizable() const { return resizable_; }
  void SetResizable(bool resizable) { resizable_ = resizable; }
  /// What Enter presses; null for nothing.
  Control* DefaultKey() const { return default_key_; }
  void SetDefaultKey(Control* key) { default_key_ = key; }
  /// What Escape presses; null for nothing.
  Control* CancelKey() const { return cancel_key_; }
  void SetCancelKey(Control* key) { cancel_key_ = key; }
  const std::vector<Shortcut>& Shortcuts() const { return shortcuts_; }
  void AddShortcut(Shortcut shortcut) { shortcuts_.push_back(std::move(shortcut)); }

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
  Window* owner_ = nullptr;
  bool modal_ = false;
  bool resizable_ = false;
  Control* default_key_ = nullptr;
  Control* cancel_key_ = nullptr;
  std::vector<Shortcut> shortcuts_;
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
  virtual void Visit(Graph& graph) = 0;
  virtual void Visit(Bar& bar) = 0;
  virtual void Visit(Frame& frame) = 0;
  virtual void Visit(ToolKey& key) = 0;
  virtual void Visit(Window& window) = 0;
};

}  // namespace kestrune::controls
