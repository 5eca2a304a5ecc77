#include "ui/face/builder.h"

#include <algorithm>
#include <utility>

namespace kestrune::face {

namespace {

bool StandsIn(const controls::Control& control, const controls::Control& top) {
  for (const controls::Control* each = &control; each != nullptr; each = each->Parent()) {
    if (each == &top) return true;
  }
  return false;
}

bool IsMenuItem(controls::Control& control) {
  return dynamic_cast<controls::ToolKey*>(&control) != nullptr &&
         dynamic_cast<controls::ToolKey*>(control.Parent()) != nullptr;
}

class FocusVisitor : public controls::ControlVisitor {
 public:
  void Visit(controls::CheckBox&) override { takes = true; }
  void Visit(controls::OptionButton&) override { takes = true; }
  void Visit(controls::ComboBox&) override { takes = true; }
  void Visit(controls::ListBox&) override { takes = true; }
  void Visit(controls::TextBox&) override { takes = true; }
  void Visit(controls::Slider&) override { takes = true; }
  void Visit(controls::Label& label) override {
    takes =
        label.Role() == controls::LabelRole::kLink || label.Role() == controls::LabelRole::kEdge;
  }
  void Visit(controls::Button&) override { takes = true; }
  void Visit(controls::PictureBox& picture) override { takes = picture.IsLink(); }
  void Visit(controls::Graph&) override {}
  void Visit(controls::Bar&) override {}
  void Visit(controls::Frame&) override {}
  void Visit(controls::ToolKey& key) override { takes = !IsMenuItem(key); }
  void Visit(controls::Window&) override {}

  bool takes = false;
};

}  // namespace

bool TakesFocus(controls::Control& control) {
  FocusVisitor visitor;
  control.Accept(visitor);
  return visitor.takes;
}

controls::OptionButton& OptionBeside(controls::OptionButton& option, bool forwards) {
  const std::vector<controls::OptionButton*>& group = option.GroupMembers();
  const std::size_t count = group.size();
  const auto own = std::find(group.begin(), group.end(), &option);
  if (own == group.end()) return option;
  std::size_t at = static_cast<std::size_t>(own - group.begin());
  do {
    at = (at + (forwards ? 1 : count - 1)) % count;
  } while (group[at] != &option && !group[at]->Usable());
  return *group[at];
}

Builder::Builder(const forms::Form& form, std::function<void(controls::Control&)> make,
                 std::function<void()> built)
    : form_(form),
      window_(*form.Controls().front()),
      make_(std::move(make)),
      built_(std::move(built)),
      has_widget_{&window_} {}

void Builder::Start() {
  for (const auto& control : form_.Controls()) {
    if (!WaitsToBeShown(*control)) continue;
    subscriptions_.push_back(control->Observe([this, frame = control.get()] {
      if (frame->Visible() && !has_widget_.contains(frame)) BuildUnder(*frame);
    }));
  }
  BuildUnder(window_);
}

void Builder::BuildUnder(const controls::Control& top) {
  for (const auto& control : form_.Controls()) {
    if (!IsWanted(*control, top)) continue;
    has_widget_.insert(control.get());
    make_(*control);
  }
  built_();
}

bool Builder::IsWanted(controls::Control& control, const controls::Control& top) const {
  return !has_widget_.contains(&control) && StandsIn(control, top) &&
         has_widget_.contains(control.Parent()) && !IsMenuItem(control) && !WaitsToBeShown(control);
}

bool Builder::WaitsToBeShown(controls::Control& control) const {
  return control.Parent() == &window_ && !control.Visible() &&
         dynamic_cast<controls::Frame*>(&control) != nullptr;
}

}  // namespace kestrune::face
