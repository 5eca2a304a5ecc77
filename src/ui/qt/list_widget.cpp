#include "ui/qt/list_widget.h"

#include <QScrollBar>
#include <QSignalBlocker>

#include "ui/face/context.h"
#include "ui/qt/to_qt.h"

namespace kestrune::qt {

ListWidget::ListWidget(controls::ListBox& control, face::Context& context, QWidget* parent)
    : QListWidget(parent), control_(control), context_(context) {
  setSelectionMode(SingleSelection);
  setUniformItemSizes(true);
  if (control.LeadsElsewhere()) {
    // Arrow keys only look for a line; a click on it or Enter goes there.
    connect(this, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { Choose(row(item)); });
    return;
  }
  connect(this, &QListWidget::itemSelectionChanged, this, [this] { SelectionChanged(); });
  connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    if (row(item) == row_before_press_) Choose(row_before_press_);
  });
}

void ListWidget::SelectionChanged() {
  const QModelIndexList selected = selectedIndexes();
  if (selected.isEmpty()) {
    Redraw();
  } else {
    Choose(selected.first().row());
  }
}

void ListWidget::Choose(int row) {
  context_.Act(control_, [this, row] { return control_.Choose(row); });
  Redraw();
}

void ListWidget::RedrawItems() {
  if (edition_ == control_.Edition()) return;
  edition_ = control_.Edition();
  const std::vector<std::string>& items = control_.Items();
  QStringList texts;
  for (const std::string& item : items) texts += ToQt(item);
  bool same = count() == texts.size();
  for (int i = 0; same && i < count(); ++i) same = item(i)->text() == texts[i];
  if (same) return;
  const int top = control_.IsRefreshed() ? verticalScrollBar()->value() : 0;
  clear();
  addItems(texts);
  // The place in the list is known once the lines have theirs.
  doItemsLayout();
  verticalScrollBar()->setValue(top);
}

void ListWidget::Redraw() {
  const QSignalBlocker blocker(this);
  RedrawItems();
  if (control_.Position() < 0) {
    clearSelection();
  } else {
    setCurrentRow(control_.Position());
  }
}

void ListWidget::keyPressEvent(QKeyEvent* event) {
  const bool is_enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (is_enter && control_.LeadsElsewhere() && currentRow() >= 0) {
    Choose(currentRow());
  } else {
    QListWidget::keyPressEvent(event);
  }
}

void ListWidget::mousePressEvent(QMouseEvent* event) {
  row_before_press_ = control_.Position();
  QListWidget::mousePressEvent(event);
}

}  // namespace kestrune::qt
