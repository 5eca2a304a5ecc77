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

#include "ui/face/builder.h"
#include "ui/face/captions.h"
#include "ui/face/context.h"
#include "ui/face/panel_keeper.h"
#include "ui/qt/bar_widget.h"
#include "ui/qt/combo_widget.h"
#include "ui/qt/graph_widget.h"
#include "ui/qt/input_watcher.h"
#include "ui/qt/label_widget.h"
#include "ui/qt/list_widget.h"
#include "ui/qt/picture_widget.h"
#include "ui/qt/scroll_bar_widget.h"
#include "ui/qt/to_qt.h"
#include "ui/qt/tool_button.h"
#include "ui/qt/wrapped.h"

namespace kestrune::qt {

namespace {

QString WithoutMnemonic(const QString& caption) {
  return ToQt(face::WithoutMnemonic(caption.toStdString()));
}

/// Puts a caption on a button, over the lines that it has room for and cut to what fits; true when
/// something was cut off.
bool DrawCaption(QAbstractButton& button, const QString& caption, QStyle::SubElement contents) {
  QStyleOptionButton option;
  option.initFrom(&button);
  option.text = caption;
  const QSize room(button.style()->subElementRect(contents, &option, &button).width(),
                   button.height());
  const QString shown =
      HasRoomForLines(button.font(), room)
          ? Wrapped(caption, button.font(), room)
          : button.fontMetrics().elidedText(caption, Qt::ElideRight, room.width());
  button.setText(WithoutMnemonic(shown));
  return !IsWhole(shown, caption);
}

bool DrawTitle(QGroupBox& box, const QString& caption) {
  constexpr int kTitleMargins = 16;
  const QString shown =
      box.fontMetrics().elidedText(caption, Qt::ElideRight, box.width() - kTitleMargins);
  box.setTitle(WithoutMnemonic(shown));
  return shown != caption;
}

void Choose(face::Context& context, controls::OptionButton& option) {
  context.Act(option, [&option] {
    option.Use();
    return true;
  });
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
  widget->setObjectName(ToQt(control.Id()));
  controls::Control* label = face::LabelOf(form_, control);
  const auto redraw = [scale = &context_.TheScale(), &form = form_, &control, label, widget,
                       draw = std::move(draw)] {
    widget->setGeometry(ToQt(scale->ToPixels(control.Bounds())));
    widget->setEnabled(control.Enabled());
    const bool is_cut = draw();
    const std::string name = face::SpokenName(control, label);
    widget->setAccessibleName(ToQt(name));
    for (QLineEdit* part : widget->findChildren<QLineEdit*>()) part->setAccessibleName(ToQt(name));
    widget->setToolTip(ToQt(face::TipOf(form, control, is_cut)));
    widget->setVisible(control.Visible() && face::InSight(control));
  };
  redraw();
  subscriptions_.push_back(control.Observe(redraw));
  subscriptions_.push_back(control.Parent()->Observe(
      [&control, widget] { widget->setVisible(control.Visible() && face::InSight(control)); }));
  if (label != nullptr) subscriptions_.push_back(label->Observe(redraw));
  return new InputWatcher(control, context_, widget);
}

InputWatcher* WidgetMaker::TieWhole(controls::Control& control, QWidget* widget,
                                    const std::function<void()>& draw) {
  return Tie(control, widget, [draw] {
    draw();
    return false;
  });
}

void WidgetMaker::Visit(controls::CheckBox& box) {
  auto* widget = new QCheckBox(parent_);
  const auto draw_state = [&box, widget] {
    const QSignalBlocker blocker(widget);
    constexpr Qt::CheckState kStates[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
    widget->setTristate(box.State() == 2);
    widget->setCheckState(kStates[box.State()]);
  };
  Tie(box, widget, [&form = form_, &box, widget, draw_state] {
    draw_state();
    return DrawCaption(*widget, ToQt(face::DrawnCaption(form, box)), QStyle::SE_CheckBoxContents);
  });
  QObject::connect(widget, &QCheckBox::clicked, widget,
                   [this_context = &context_, &box, draw_state] {
                     this_context->Act(box, [&box] { return box.Use(box.Checked() ? 0 : 1); });
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
  InputWatcher* watcher = Tie(option, widget, [&form = form_, &option, widget, draw_state] {
    draw_state();
    return DrawCaption(*widget, ToQt(face::DrawnCaption(form, option)),
                       QStyle::SE_RadioButtonContents);
  });
  QObject::connect(widget, &QRadioButton::clicked, widget,
                   [this_context = &context_, &option, draw_state] {
                     Choose(*this_context, option);
                     draw_state();
                   });
  watcher->OnArrows([this_context = &context_, &option, widget](bool forwards) {
    controls::OptionButton& next = face::OptionBeside(option, forwards);
    const auto siblings = widget->parentWidget()->findChildren<QRadioButton*>();
    for (QRadioButton* each : siblings) {
      if (each->objectName() == ToQt(next.Id())) each->setFocus(Qt::OtherFocusReason);
    }
    Choose(*this_context, next);
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
  TieWhole(list, widget, [widget] { widget->Redraw(); });
}

void WidgetMaker::Visit(controls::TextBox& box) {
  auto* widget = new QLineEdit(parent_);
  if (!box.TakesTyping()) {
    widget->setReadOnly(true);
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    widget->setPalette(palette);
  }
  QAction* mark = widget->addAction(widget->style()->standardIcon(QStyle::SP_MessageBoxWarning),
                                    QLineEdit::TrailingPosition);
  const auto draw_text = [&box, widget, mark] {
    const QSignalBlocker blocker(widget);
    const QString text = ToQt(box.Text());
    if (text != widget->text()) widget->setText(text);
    mark->setVisible(box.Marked());
  };
  TieWhole(box, widget, draw_text);
  QObject::connect(widget, &QLineEdit::textEdited, widget,
                   [this_context = &context_, &box, draw_text](const QString& text) {
                     this_context->Act(box, [&] { return box.Type(text.toStdString()); });
                     draw_text();
                   });
}

QAbstractSlider* WidgetMaker::SliderFor(const controls::Slider& slider) {
  const bool is_upright = slider.Bounds().height > slider.Bounds().width;
  const Qt::Orientation orientation = is_upright ? Qt::Vertical : Qt::Horizontal;
  if (slider.IsScrollBar()) {
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
  TieWhole(slider, widget, draw_value);
  QObject::connect(widget, &QAbstractSlider::valueChanged, widget,
                   [this_context = &context_, &slider, draw_value](int value) {
                     this_context->Act(slider, [&slider, value] { return slider.Use(value); });
                     draw_value();
                   });
}

void WidgetMaker::Visit(controls::Label& label) {
  auto* widget = new LabelWidget(parent_);
  if (label.Role() == controls::LabelRole::kHeading) widget->SetHeading();
  if (label.Role() == controls::LabelRole::kLink) widget->SetLink();
  InputWatcher* watcher = Tie(label, widget, [&form = form_, &label, widget] {
    widget->SetCaption(ToQt(face::DrawnCaption(form, label)),
                       ToQt(face::CaptionWithMnemonic(form, label)));
    return widget->IsCut();
  });
  if (label.Role() == controls::LabelRole::kLink) {
    watcher->MakeLink();
  } else if (label.Role() == controls::LabelRole::kEdge) {
    widget->setFocusPolicy(Qt::TabFocus);
  }
}

void WidgetMaker::Visit(controls::Button& button) {
  auto* widget = new QPushButton(parent_);
  widget->setAutoDefault(true);
  Tie(button, widget, [&form = form_, &button, widget] {
    return DrawCaption(*widget, ToQt(face::DrawnCaption(form, button)),
                       QStyle::SE_PushButtonContents);
  });
  QObject::connect(widget, &QPushButton::clicked, widget,
                   [this_context = &context_, &button] { this_context->Press(button); });
}

void WidgetMaker::Visit(controls::PictureBox& picture) {
  auto* widget = new PictureWidget(parent_);
  if (picture.IsLink()) widget->setFocusPolicy(Qt::StrongFocus);
  InputWatcher* watcher = TieWhole(picture, widget, [this_context = &context_, &picture, widget] {
    const auto path =
        picture.File().empty() ? std::nullopt : this_context->Files().Locate(picture.File());
    widget->SetFile(ToQt(path.value_or(std::string())));
  });
  if (picture.IsLink()) watcher->MakeLink();
}

void WidgetMaker::Visit(controls::Graph& graph) {
  auto* widget = new GraphWidget(graph, context_.TheScale(), parent_);
  TieWhole(graph, widget, [widget] { widget->Follow(); });
}

void WidgetMaker::Visit(controls::Bar& bar) {
  TieWhole(bar, new BarWidget(parent_), [] {});
}

void WidgetMaker::Visit(controls::Frame& frame) {
  if (face::DrawnCaption(form_, frame).empty()) {
    auto* outline = new QFrame(parent_);
    outline->setFrameShape(QFrame::StyledPanel);
    TieWhole(frame, outline, [] {});
    return;
  }
  auto* widget = new QGroupBox(parent_);
  Tie(frame, widget, [&form = form_, &frame, widget] {
    return DrawTitle(*widget, ToQt(face::DrawnCaption(form, frame)));
  });
}

void WidgetMaker::Visit(controls::ToolKey& key) {
  auto* widget = new ToolButton(key, form_, context_, parent_);
  Tie(key, widget, [widget] {
    widget->Redraw();
    // The style cuts a key's caption as it needs to; its tip is never wrong.
    return true;
  });
}

}  // namespace kestrune::qt
