#include "controls/controls.h"

#include <algorithm>
#include <utility>

#include "platform/case_fold.h"

namespace kestrune::controls {

namespace {

bool HasPositionIn(const std::vector<std::string>& items, int position) {
  return position >= 0 && static_cast<std::size_t>(position) < items.size();
}

bool HasItem(const std::vector<std::string>& items, int position, const std::string& text) {
  return HasPositionIn(items, position) && items[static_cast<std::size_t>(position)] == text;
}

template <typename Matches>
int PositionWhere(const std::vector<std::string>& items, Matches matches) {
  const auto found = std::find_if(items.begin(), items.end(), matches);
  return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

int PositionOf(const std::vector<std::string>& items, std::string_view text) {
  return PositionWhere(items, [text](const std::string& item) { return item == text; });
}

/// Which item a person means by a text.
int ItemMeant(const std::vector<std::string>& items, std::string_view text) {
  const int exact = PositionOf(items, text);
  if (exact >= 0) return exact;
  return PositionWhere(
      items, [text](const std::string& item) { return platform::SameWithoutCase(item, text); });
}

}  // namespace

bool CheckBox::Use(int state) {
  if (state < 0 || state > 2) return false;
  if (Assign(state_, state) && on_change) on_change();
  return true;
}

void CheckBox::Show(int state) {
  if (state >= 0 && state <= 2) Assign(state_, state);
}

std::string CheckBox::ValueText() const {
  constexpr const char* kTexts[] = {"off", "on", "mixed"};
  return kTexts[state_];
}

void OptionButton::Use() {
  Show(true);
  Click();
}

void OptionButton::Show(bool chosen) {
  Assign(chosen_, chosen);
  if (!chosen) return;
  for (OptionButton* each : group_) {
    if (each != this) each->Show(false);
  }
}

void OptionButton::Group(const std::vector<OptionButton*>& options) {
  for (OptionButton* option : options) option->group_ = options;
}

const std::vector<std::string>& ComboBox::Items() const {
  if (find_items_) {
    items_ = std::exchange(find_items_, nullptr)();
    position_ = PositionOf(items_, text_);
  }
  return items_;
}

int ComboBox::Position() const {
  (void)Items();
  return position_;
}

bool ComboBox::HasPosition(int position) const { return HasPositionIn(Items(), position); }

int ComboBox::ItemFor(std::string_view text) const { return ItemMeant(Items(), text); }

bool ComboBox::Choose(int position) {
  if (!HasPosition(position)) return false;
  ShowPosition(position);
  if (on_change) on_change(ComboChange::kChosen);
  return true;
}

bool ComboBox::Type(std::string text) {
  if (!takes_typing_) return false;
  if (text == text_) return true;
  ShowText(std::move(text));
  if (on_change) on_change(ComboChange::kText);
  return true;
}

TextUse ComboBox::UseText(const std::string& text) {
  if (Choose(ItemFor(text))) return TextUse::kItem;
  return Type(text) ? TextUse::kTyped : TextUse::kRefused;
}

void ComboBox::PassOn(int position) {
  if (position != Position() && HasPosition(position)) (void)Choose(position);
}

void ComboBox::ShowText(std::string text) {
  position_ = PositionOf(Items(), text);
  Assign(text_, std::move(text));
}

void ComboBox::ShowPosition(int position) {
  if (!HasPosition(position)) return;
  position_ = position;
  Assign(text_, items_[static_cast<std::size_t>(position)]);
}

void ComboBox::SetItems(std::vector<std::string> items) {
  const bool changed = items != Items();
  items_ = std::move(items);
  position_ = PositionOf(items_, text_);
  if (changed) Notify();
}

bool ListBox::Choose(int position) {
  if (!HasPositionIn(items_, position)) return false;
  Assign(position_, position);
  if (on_change) on_change();
  return true;
}

void ListBox::Replace(std::vector<std::string> items, bool is_refreshed) {
  items_ = std::move(items);
  ++edition_;
  is_refreshed_ = is_refreshed;
}

void ListBox::SetItems(std::vector<std::string> items) {
  Replace(std::move(items), false);
  position_ = -1;
  Notify();
}

void ListBox::RefreshItems(std::vector<std::string> items) {
  const std::string chosen = ValueText();
  const int old = position_;
  Replace(std::move(items), true);
  if (old >= 0 && !HasItem(items_, old, chosen)) position_ = PositionOf(items_, chosen);
  Notify();
}

int ListBox::ItemFor(std::string_view text) const { return ItemMeant(items_, text); }

void ListBox::ShowPosition(int position) {
  if (position == -1 || HasPositionIn(items_, position)) Assign(position_, position);
}

std::string ListBox::ValueText() const {
  return position_ < 0 ? std::string() : items_[static_cast<std::size_t>(position_)];
}

bool TextBox::Type(std::string text) {
  if (!takes_typing_) return false;
  PassOn(std::move(text));
  return true;
}

bool TextBox::Take(std::string text) {
  const bool changed = Assign(text_, std::move(text));
  if (changed) SetMarked(false);
  return changed;
}

void TextBox::PassOn(std::string text) {
  if (Take(std::move(text)) && on_change) on_change();
}

bool Slider::Use(int value) {
  if (!Takes(value)) return false;
  if (Assign(value_, value) && on_change) on_change();
  return true;
}

void Slider::Show(int value) {
  if (Takes(value)) Assign(value_, value);
}

void Slider::SetRange(int minimum, int maximum) {
  if (minimum > maximum) return;
  const bool same = minimum == minimum_ && maximum == maximum_;
  minimum_ = minimum;
  maximum_ = maximum;
  const bool moved = Assign(value_, std::clamp(value_, minimum_, maximum_));
  if (!same && !moved) Notify();
}

void Graph::Draw(GraphShape shape) {
  shapes_.push_back(std::move(shape));
  Notify();
}

void Graph::Clear() {
  if (shapes_.empty()) return;
  shapes_.clear();
  Notify();
}

void Bar::ShowWidth(int width) {
  Rect bounds = Bounds();
  bounds.width = std::max(0, width);
  SetBounds(bounds);
}

void Window::UseResized(const Rect& bounds, bool maximised) {
  SetBounds(bounds);
  SetMaximised(maximised);
  if (on_resize) on_resize();
}

void CheckBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void OptionButton::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void ComboBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void ListBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void TextBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void Slider::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void Label::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void Button::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void PictureBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void Graph::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void Bar::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void Frame::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void ToolKey::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void Window::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }

}  // namespace kestrune::controls
