#include "ui/qt/combo_widget.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStylePainter>

#include "ui/face/context.h"
#include "ui/qt/to_qt.h"

namespace kestrune::qt {

ComboWidget::ComboWidget(controls::ComboBox& control, face::Context& context, QWidget* parent)
    : QComboBox(parent), control_(control), context_(context) {
  if (control.TakesTyping()) {
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
  }
  // A wheel turned in passing gives no focus either.
  setFocusPolicy(Qt::StrongFocus);
  connect(this, &QComboBox::activated, this, [this](int position) { Choose(position); });
}

void ComboWidget::Choose(int position) {
  context_.Act(control_, [this, position] { return control_.Choose(position); });
  ShowControlText();
}

void ComboWidget::FinishTyping() {
  const QString typed = lineEdit()->text();
  if (typed == drawn_text_) return;
  context_.UseText(control_, typed.toStdString());
  ShowControlText();
}

void ComboWidget::ShowControlText() {
  const QSignalBlocker blocker(this);
  drawn_text_ = ToQt(control_.Text());
  setCurrentIndex(control_.Position());
  if (isEditable()) {
    setEditText(drawn_text_);
    lineEdit()->setCursorPosition(0);
  }
  update();
}

void ComboWidget::RedrawItems() {
  const std::vector<std::string>& items = control_.Items();
  QStringList texts;
  for (const std::string& item : items) texts += ToQt(item);
  bool same = count() == texts.size();
  for (int i = 0; same && i < count(); ++i) same = itemText(i) == texts[i];
  if (same) return;
  const QString typed = isEditable() ? lineEdit()->text() : QString();
  clear();
  addItems(texts);
  if (isEditable()) setEditText(typed);
}

void ComboWidget::Redraw() {
  const bool typing = HasUnfinishedText() && lineEdit()->hasFocus();
  {
    const QSignalBlocker blocker(this);
    // What is costly to find is found when the list is opened.
    if (!control_.HasItemsToFind()) RedrawItems();
  }
  if (!typing || drawn_text_ != ToQt(control_.Text())) ShowControlText();
}

QString ComboWidget::ShownText() const {
  if (isEditable()) return lineEdit()->text();
  return drawn_text_.isEmpty() ? ToQt(control_.Placeholder()) : drawn_text_;
}

bool ComboWidget::ListIsOpen() const {
  const QWidget* popup = QApplication::activePopupWidget();
  return popup != nullptr && popup->parentWidget() == this;
}

int ComboWidget::TextWidth() const {
  QStyleOptionComboBox option;
  initStyleOption(&option);
  constexpr int kInnerMargin = 2;
  return style()
             ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this)
             .width() -
         2 * kInnerMargin;
}

bool ComboWidget::Fits(const QString& text) const {
  return fontMetrics().horizontalAdvance(text) <= TextWidth();
}

void ComboWidget::showPopup() {
  if (control_.HasItemsToFind()) {
    RedrawItems();
    ShowControlText();
  }
  const int bar = view()->verticalScrollBar()->sizeHint().width();
  view()->setMinimumWidth(std::max(width(), view()->sizeHintForColumn(0) + bar));
  QComboBox::showPopup();
}

void ComboWidget::paintEvent(QPaintEvent* event) {
  if (isEditable()) {
    QComboBox::paintEvent(event);
    return;
  }
  QStylePainter painter(this);
  QStyleOptionComboBox option;
  initStyleOption(&option);
  painter.drawComplexControl(QStyle::CC_ComboBox, option);
  if (drawn_text_.isEmpty()) {
    const QColor grey = option.palette.color(QPalette::PlaceholderText);
    option.palette.setColor(QPalette::ButtonText, grey);
    option.palette.setColor(QPalette::Text, grey);
  }
  painter.setPen(option.palette.color(QPalette::Text));
  option.currentText = fontMetrics().elidedText(ShownText(), Qt::ElideRight, TextWidth());
  painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

bool ComboWidget::HasUnfinishedText() const {
  return isEditable() && lineEdit()->text() != drawn_text_;
}

bool ComboWidget::event(QEvent* event) {
  // Escape takes an unfinished text back before it does anything else.
  const bool is_escape = event->type() == QEvent::ShortcutOverride &&
                         static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
  if (!is_escape || !HasUnfinishedText()) return QComboBox::event(event);
  event->accept();
  return true;
}

bool ComboWidget::OpensList(const QKeyEvent& event) const {
  switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
      return !isEditable();
    default:
      return !isEditable() && !event.text().isEmpty() && event.text()[0].isPrint();
  }
}

void ComboWidget::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool is_enter = key == Qt::Key_Return || key == Qt::Key_Enter;
  if (OpensList(*event)) {
    showPopup();
  } else if (is_enter && HasUnfinishedText()) {
    FinishTyping();
  } else if (is_enter) {
    // The window's default key may want it.
    event->ignore();
  } else if (key == Qt::Key_Escape && HasUnfinishedText()) {
    ShowControlText();
  } else {
    QComboBox::keyPressEvent(event);
  }
}

void ComboWidget::focusOutEvent(QFocusEvent* event) {
  // An open list or menu takes the focus only for a while.
  if (isEditable() && event->reason() != Qt::PopupFocusReason) FinishTyping();
  QComboBox::focusOutEvent(event);
}

}  // namespace kestrune::qt
