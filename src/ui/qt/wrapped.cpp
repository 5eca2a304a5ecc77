#include "ui/qt/wrapped.h"

#include <QFontMetrics>
#include <QTextLayout>

namespace kestrune::qt {

namespace {

/// A text without what a line end may take the place of.
QString Unbroken(const QString& text) {
  QString unbroken;
  for (const QChar c : text.simplified()) {
    const bool is_behind_hyphen = unbroken.endsWith('-') || unbroken.endsWith('/');
    if (c != ' ' || !is_behind_hyphen) unbroken += c;
  }
  return unbroken;
}

}  // namespace

bool HasRoomForLines(const QFont& font, const QSize& room) {
  return room.height() >= 2 * QFontMetrics(font).lineSpacing();
}

QString Wrapped(const QString& text, const QFont& font, const QSize& room) {
  const QFontMetrics metrics(font);
  const int fitting = std::max(1, room.height() / metrics.lineSpacing());
  // The layout doesn't know the other line end.
  QTextLayout layout(QString(text).replace('\n', QChar::LineSeparator), font);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  QString result;
  layout.beginLayout();
  for (int count = 1;; ++count) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) break;
    line.setLineWidth(room.width());
    const int start = line.textStart();
    if (count == fitting) {
      result += metrics.elidedText(text.mid(start).simplified(), Qt::ElideRight, room.width());
      break;
    }
    result += text.mid(start, line.textLength()).trimmed() + '\n';
  }
  layout.endLayout();
  if (result.endsWith('\n')) result.chop(1);
  return result;
}

bool IsWhole(const QString& shown, const QString& text) {
  return shown == text || Unbroken(shown) == Unbroken(text);
}

}  // namespace kestrune::qt
