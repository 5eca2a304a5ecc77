#pragma once

#include <functional>
#include <vector>

#include "controls/controls.h"

class QAbstractSlider;
class QString;
class QWidget;

namespace kestrune::forms {
class Form;
}

namespace kestrune::face {
class Context;
}

namespace kestrune::qt {

class InputWatcher;

/// Makes the widget of a control, ties the two together and shows the control's present state.
///
/// What the user does to the widget reaches the control; each change of the control is drawn with
/// the widget's signals blocked. A widget must not outlive its control; the subscriptions must end
/// before the widgets do. Windows get no widget here, and items of a menu must not be asked for.
class WidgetMaker : private controls::ControlVisitor {
 public:
  WidgetMaker(const forms::Form& form, face::Context& context,
              std::vector<controls::Subscription>& subscriptions)
      : form_(form), context_(context), subscriptions_(subscriptions) {}

  /// Null for a control that needs none.
  QWidget* Make(controls::Control& control, QWidget* parent);

 private:
  /// Draws what is special to a kind; true when some of the caption is cut off.
  using Draw = std::function<bool()>;

  void Visit(controls::CheckBox& box) override;
  void Visit(controls::OptionButton& option) override;
  void Visit(controls::ComboBox& combo) override;
  void Visit(controls::ListBox& list) override;
  void Visit(controls::TextBox& box) override;
  void Visit(controls::Slider& slider) override;
  void Visit(controls::Label& label) override;
  void Visit(controls::Button& button) override;
  void Visit(controls::PictureBox& picture) override;
  void Visit(controls::Graph& graph) override;
  void Visit(controls::Bar& bar) override;
  void Visit(controls::Frame& frame) override;
  void Visit(controls::ToolKey& key) override;
  void Visit(controls::Window&) override {}

  QAbstractSlider* SliderFor(const controls::Slider& slider);
  InputWatcher* Tie(controls::Control& control, QWidget* widget, Draw draw);
  /// Ties a widget of which no caption can be cut off.
  InputWatcher* TieWhole(controls::Control& control, QWidget* widget,
                         const std::function<void()>& draw);

  const forms::Form& form_;
  face::Context& context_;
  std::vector<controls::Subscription>& subscriptions_;
  QWidget* parent_ = nullptr;
  QWidget* made_ = nullptr;
};

}  // namespace kestrune::qt
