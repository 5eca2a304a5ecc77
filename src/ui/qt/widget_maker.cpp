#include "ui/qt/widget_maker.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionButton>

#include "ui/qt/captions.h"
#include "ui/qt/combo_widget.h"
#include "ui/qt/face_context.h"
#include "ui/qt/input_watcher.h"
#include "ui/qt/label_widget.h"
#include "ui/qt/list_widget.h"
#include "ui/qt/picture_widget.h"
#include "ui/qt/scroll_bar_widget.h"
#include "ui/qt/tool_button.h"

namespace kestrune::qt {

namespace {

QString CaptionOf(const controls::Control& control) {
  return QString::fromStdString(control.Caption());
}

/// Puts a caption on a button, cut to what fits; true when something was cut off.
bool DrawCaption(QAbstractButton& button, const QString& caption, QStyle::SubElement contents) {
  QStyleOptionButton option;
  option.initFrom(&button);
  option.text = caption;
  const int room = button.style()->subElementRect(contents, &option, &button).width();
  const QString shown = button.fontMetrics().elidedText(caption, Qt::ElideRight, room);
  button.setText(WithoutMnemonic(shown));
  return shown != caption;
}

bool DrawTitle(QGroupBox& box, const QString& caption) {
  constexpr int kTitleMargins = 16;
  const QString shown =
      box.fontMetrics().elidedText(caption, Qt::ElideRight, box.width() - kTitleMargins);
  box.setTitle(WithoutMnemonic(shown));
  return shown != caption;
}

QString TipOf(const controls::Control& control, const QWidget& widget, bool is_cut,
              const QString& name) {
  if (!control.ToolTip().empty()) return QString::fromStdString(control.ToolTip());
  if (is_cut) {
    const bool has_caption = !control.Caption().empty();
    return QString::fromStdString(has_caption ? control.Caption() : control.ValueText());
  }
  // A button that has lost its caption must still say what it does.
  const bool is_blank_button =
      control.Caption().empty() && qobject_cast<const QAbstractButton*>(&widget) != nullptr;
  return is_blank_button ? name : QString();
}

}  // namespace

QWidget* WidgetMaker::Make(controls::Control& control, QWidget* parent) {
  parent_ = parent;
  made_ = nullptr;
  control.Accept(*this);
  return made_;
}

InputWatcher* WidgetMaker::Tie(controls::Control& control, QWidget* widget, Draw draw) {
  made_ = widget;
  widget->setObjectName(QString::fromStdString(control.Id()));
  controls::Control* label = LabelOf(form_, control);
  const auto redraw = [scale = &context_.TheScale(), &control, label, widget,
                       draw = std::move(draw)] {
    widget->setGeometry(scale->ToPixels(control.Bounds()));
    widget->setEnabled(control.Enabled());
    const bool is_cut = draw();
    const QString name = SpokenName(control, label);
    widget->setAccessibleName(name);
    widget->setToolTip(TipOf(control, *widget, is_cut, name));
    widget->setVisible(control.Visible());
  };
  redraw();
  subscriptions_.push_back(control.Observe(redraw));
  if (label != nullptr) subscriptions_.push_back(label->Observe(redraw));
  return new InputWatcher(control, context_, widget);
}

void WidgetMaker::Visit(controls::CheckBox& box) {
  auto* widget = new QCheckBox(parent_);
  const auto draw_state = [&box, widget] {
    const QSignalBlocker blocker(widget);
    constexpr Qt::CheckState kStates[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
    widget->setTristate(box.State() == 2);
    widget->setCheckState(kStates[box.State()]);
  };
  Tie(box, widget, [&box, widget, draw_state] {
    draw_state();
    return DrawCaption(*widget, CaptionOf(box), QStyle::SE_CheckBoxContents);
  });
  QObject::connect(widget, &QCheckBox::clicked, widget,
                   [this_context = &context_, &box, draw_state] {
                     this_context->Act([&box] { (void)box.Use(box.Checked() ? 0 : 1); });
                     draw_state();
                   });
}

void WidgetMaker::Visit(controls::OptionButton& option) {
  auto* widget = new QRadioButton(parent_);
  // Which options exclude each other is the controls' business.
  widget->setAutoExclusive(false);
  const auto draw_state = [&option, widget] {
    const QSignalBlocker blocker(widget);
    widget->setChecked(option.Chosen());
  };
  Tie(option, widget, [&option, widget, draw_state] {
    draw_state();
    return DrawCaption(*widget, CaptionOf(option), QStyle::SE_RadioButtonContents);
  });
  QObject::connect(widget, &QRadioButton::clicked, widget,
                   [this_context = &context_, &option, draw_state] {
                     this_context->Act([&option] { option.Use(); });
                     draw_state();
                   });
}

void WidgetMaker::Visit(controls::ComboBox& combo) {
  auto* widget = new ComboWidget(combo, context_, parent_);
  InputWatcher* watcher = Tie(combo, widget, [widget] {
    widget->Redraw();
    return widget->IsCut();
  });
  if (widget->isEditable()) watcher->Watch(widget->lineEdit());
}

void WidgetMaker::Visit(controls::ListBox& list) {
  auto* widget = new ListWidget(list, context_, parent_);
  Tie(list, widget, [widget] {
    widget->Redraw();
    return false;
  });
}

void WidgetMaker::Visit(controls::TextBox& box) {
  auto* widget = new QLineEdit(parent_);
  QAction* mark = widget->addAction(widget->style()->standardIcon(QStyle::SP_MessageBoxWarning),
                                    QLineEdit::TrailingPosition);
  const auto draw_text = [&box, widget, mark] {
    const QSignalBlocker blocker(widget);
    const QString text = QString::fromStdString(box.Text());
    if (text != widget->text()) widget->setText(text);
    mark->setVisible(box.Marked());
  };
  Tie(box, widget, [draw_text] {
    draw_text();
    return false;
  });
  QObject::connect(widget, &QLineEdit::textEdited, widget,
                   [this_context = &context_, &box, draw_text](const QString& text) {
                     this_context->Act([&] { (void)box.Type(text.toStdString()); });
                     draw_text();
                   });
}

QAbstractSlider* WidgetMaker::SliderFor(const controls::Slider& slider) {
  const bool is_upright = slider.Bounds().height > slider.Bounds().width;
  const Qt::Orientation orientation = is_upright ? Qt::Vertical : Qt::Horizontal;
  if (slider.Id().ends_with("scroll-bar")) {
    auto* bar = new ScrollBarWidget(parent_);
    bar->setOrientation(orientation);
    bar->setPageStep(1);
    return bar;
  }
  auto* widget = new QSlider(orientation, parent_);
  widget->setPageStep(std::max(1, (slider.Maximum() - slider.Minimum()) / 10));
  return widget;
}

void WidgetMaker::Visit(controls::Slider& slider) {
  QAbstractSlider* widget = SliderFor(slider);
  const auto draw_value = [&slider, widget] {
    const QSignalBlocker blocker(widget);
    widget->setRange(slider.Minimum(), slider.Maximum());
    widget->setValue(slider.Value());
  };
  Tie(slider, widget, [draw_value] {
    draw_value();
    return false;
  });
  QObject::connect(widget, &QAbstractSlider::valueChanged, widget,
                   [this_context = &context_, &slider, draw_value](int value) {
                     this_context->Act([&slider, value] { (void)slider.Use(value); });
                     draw_value();
                   });
}

void WidgetMaker::Visit(controls::Label& label) {
  auto* widget = new LabelWidget(parent_);
  if (label.Role() == controls::LabelRole::kHeading) widget->SetHeading();
  InputWatcher* watcher = Tie(label, widget, [&label, widget] {
    widget->SetCaption(CaptionOf(label));
    return widget->IsCut();
  });
  if (label.on_click) {
    widget->SetLink();
    watcher->MakeLink();
  } else if (label.on_hover && label.Parent() != nullptr && label.Parent()->Parent() == nullptr) {
    // A label of the window itself that reacts to the mouse is a thing of its own; a keyboard must
    // get there too. Labels on pages only name the control beside them.
    widget->setFocusPolicy(Qt::TabFocus);
  }
}

void WidgetMaker::Visit(controls::Button& button) {
  auto* widget = new QPushButton(parent_);
  widget->setAutoDefault(true);
  Tie(button, widget, [&button, widget] {
    return DrawCaption(*widget, CaptionOf(button), QStyle::SE_PushButtonContents);
  });
  QObject::connect(widget, &QPushButton::clicked, widget, [this_context = &context_, &button] {
    this_context->Act([&button] { button.Click(); });
  });
}

void WidgetMaker::Visit(controls::PictureBox& picture) {
  auto* widget = new PictureWidget(parent_);
  InputWatcher* watcher = Tie(picture, widget, [this_context = &context_, &picture, widget] {
    const auto path =
        picture.File().empty() ? std::nullopt : this_context->Files().Locate(picture.File());
    widget->SetFile(QString::fromStdString(path.value_or(std::string())));
    return false;
  });
  if (picture.on_click) watcher->MakeLink();
}

void WidgetMaker::Visit(controls::Frame& frame) {
  auto* widget = new QGroupBox(parent_);
  Tie(frame, widget, [&frame, widget] { return DrawTitle(*widget, CaptionOf(frame)); });
}

void WidgetMaker::Visit(controls::ToolKey& key) {
  if (dynamic_cast<const controls::ToolKey*>(key.Parent()) != nullptr) return;
  auto* widget = new ToolButton(key, form_, context_, parent_);
  Tie(key, widget, [widget] {
    widget->Redraw();
    // The style cuts a key's caption as it needs to; its tip is never wrong.
    return true;
  });
}

}  // namespace kestrune::qt
