#include "ui/qt/combo_widget.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStylePainter>

#include "ui/qt/face_context.h"

namespace kestrune::qt {

ComboWidget::ComboWidget(controls::ComboBox& control, FaceContext& context, QWidget* parent)
    : QComboBox(parent), control_(control), context_(context) {
  if (control.TakesTyping()) {
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
  }
  connect(this, &QComboBox::activated, this, [this](int position) { Choose(position); });
}

void ComboWidget::Choose(int position) {
  context_.Act([this, position] { (void)control_.Choose(position); });
  ShowControlText();
}

void ComboWidget::FinishTyping() {
  const QString typed = lineEdit()->text();
  if (typed == drawn_text_) return;
  int position = findText(typed, Qt::MatchFixedString | Qt::MatchCaseSensitive);
  if (position < 0) position = findText(typed, Qt::MatchFixedString);
  if (position >= 0) {
    Choose(position);
    return;
  }
  context_.Act([this, &typed] { (void)control_.Type(typed.toStdString()); });
  ShowControlText();
}

void ComboWidget::ShowControlText() {
  const QSignalBlocker blocker(this);
  drawn_text_ = QString::fromStdString(control_.Text());
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
  for (const std::string& item : items) texts += QString::fromStdString(item);
  bool same = count() == texts.size();
  for (int i = 0; same && i < count(); ++i) same = itemText(i) == texts[i];
  if (same) return;
  const QString typed = isEditable() ? lineEdit()->text() : QString();
  clear();
  addItems(texts);
  if (isEditable()) setEditText(typed);
}

void ComboWidget::Redraw() {
  const bool typing = isEditable() && lineEdit()->hasFocus() && lineEdit()->text() != drawn_text_;
  {
    const QSignalBlocker blocker(this);
    RedrawItems();
  }
  if (!typing || drawn_text_ != QString::fromStdString(control_.Text())) ShowControlText();
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

bool ComboWidget::IsCut() const {
  return fontMetrics().horizontalAdvance(drawn_text_) > TextWidth();
}

void ComboWidget::showPopup() {
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
  painter.setPen(palette().color(QPalette::Text));
  QStyleOptionComboBox option;
  initStyleOption(&option);
  painter.drawComplexControl(QStyle::CC_ComboBox, option);
  option.currentText = fontMetrics().elidedText(drawn_text_, Qt::ElideRight, TextWidth());
  painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void ComboWidget::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (isEditable() && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
    FinishTyping();
  } else if (isEditable() && key == Qt::Key_Escape && lineEdit()->text() != drawn_text_) {
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
