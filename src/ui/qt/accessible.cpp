#include "ui/qt/accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QRadioButton>

#include "ui/qt/combo_widget.h"
#include "ui/qt/form_view.h"
#include "ui/qt/graph_widget.h"
#include "ui/qt/label_widget.h"
#include "ui/qt/picture_widget.h"
#include "ui/qt/tool_button.h"

namespace kestrune::qt {

namespace {

using Interface = QAccessibleActionInterface;

/// A widget that can be pressed, as Space on it does.
class Pressed : public QAccessibleWidget {
 public:
  using QAccessibleWidget::QAccessibleWidget;

  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (widget()->isEnabled()) names.prepend(Interface::pressAction());
    return names;
  }
  void doAction(const QString& name) override {
    if (name == Interface::pressAction()) {
      QKeyEvent down(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
      QKeyEvent up(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier);
      QApplication::sendEvent(widget(), &down);
      QApplication::sendEvent(widget(), &up);
    } else {
      QAccessibleWidget::doAction(name);
    }
  }
};

class AccessibleOption : public Pressed {
 public:
  explicit AccessibleOption(QRadioButton* option)
      : Pressed(option, QAccessible::RadioButton), option_(*option) {}

  QAccessible::State state() const override {
    QAccessible::State state = Pressed::state();
    state.checkable = true;
    state.checked = option_.isChecked();
    return state;
  }

 private:
  const QRadioButton& option_;
};

class AccessibleCombo : public QAccessibleWidget {
 public:
  explicit AccessibleCombo(ComboWidget* combo)
      : QAccessibleWidget(combo, QAccessible::ComboBox), combo_(*combo) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? combo_.ShownText() : QAccessibleWidget::text(kind);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.hasPopup = true;
    state.editable = combo_.isEditable();
    state.expanded = combo_.ListIsOpen();
    state.collapsed = !state.expanded;
    return state;
  }
  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (widget()->isEnabled()) names.prepend(Interface::showMenuAction());
    return names;
  }
  void doAction(const QString& name) override {
    if (name != Interface::showMenuAction()) {
      QAccessibleWidget::doAction(name);
    } else if (combo_.ListIsOpen()) {
      combo_.hidePopup();
    } else {
      combo_.showPopup();
    }
  }

 private:
  ComboWidget& combo_;
};

class AccessibleKey : public Pressed {
 public:
  explicit AccessibleKey(ToolButton* key)
      : Pressed(key, key->menu() == nullptr ? QAccessible::Button : QAccessible::ButtonMenu),
        key_(*key) {}

  QString text(QAccessible::Text kind) const override {
    const QString text = Pressed::text(kind);
    // A tip that only repeats the name would be said twice.
    const bool repeats = kind == QAccessible::Description && text == widget()->accessibleName();
    return repeats ? QString() : text;
  }
  QAccessible::State state() const override {
    QAccessible::State state = Pressed::state();
    state.hasPopup = key_.menu() != nullptr;
    state.selectable = true;
    state.selected = key_.LeadsToShownPage();
    return state;
  }
  QStringList actionNames() const override {
    QStringList names = Pressed::actionNames();
    if (key_.menu() != nullptr && key_.isEnabled()) names += Interface::showMenuAction();
    return names;
  }
  void doAction(const QString& name) override {
    if (name == Interface::showMenuAction()) {
      key_.showMenu();
    } else {
      Pressed::doAction(name);
    }
  }

 private:
  ToolButton& key_;
};

QAccessibleInterface* MakePicture(QWidget& widget) {
  const bool is_link = widget.focusPolicy() != Qt::NoFocus;
  if (is_link) return new Pressed(&widget, QAccessible::Graphic);
  return new QAccessibleWidget(&widget, QAccessible::Graphic);
}

QAccessibleInterface* Make(const QString&, QObject* object) {
  if (auto* combo = dynamic_cast<ComboWidget*>(object)) return new AccessibleCombo(combo);
  if (auto* key = dynamic_cast<ToolButton*>(object)) return new AccessibleKey(key);
  if (auto* option = dynamic_cast<QRadioButton*>(object)) return new AccessibleOption(option);
  if (auto* picture = dynamic_cast<PictureWidget*>(object)) return MakePicture(*picture);
  if (auto* graph = dynamic_cast<GraphWidget*>(object)) return MakePicture(*graph);
  if (auto* window = dynamic_cast<FormView*>(object)) {
    return new QAccessibleWidget(window, QAccessible::Window);
  }
  auto* label = dynamic_cast<LabelWidget*>(object);
  return label != nullptr && label->IsLink() ? new Pressed(label, QAccessible::Link) : nullptr;
}

}  // namespace

void InstallAccessibility() {
  // A factory that is there already is not added again.
  QAccessible::installFactory(&Make);
}

}  // namespace kestrune::qt
