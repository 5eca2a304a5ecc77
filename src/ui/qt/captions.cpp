#include "ui/qt/captions.h"

#include <QSet>

#include "controls/control.h"
#include "ui/forms/form.h"

namespace kestrune::qt {

QString ReadableName(std::string_view id) {
  const std::string_view last = id.substr(id.rfind('.') + 1);
  QString name = QString::fromUtf8(last.data(), static_cast<qsizetype>(last.size()));
  name.replace('-', ' ');
  if (!name.isEmpty()) name[0] = name[0].toUpper();
  return name;
}

controls::Control* LabelOf(const forms::Form& form, const controls::Control& control) {
  return form.Find(control.Id() + "-label");
}

QString SpokenName(const controls::Control& control, const controls::Control* label) {
  if (!control.Caption().empty()) return QString::fromStdString(control.Caption());
  if (label == nullptr || label->Caption().empty()) return ReadableName(control.Id());
  // What stands behind the colon is the value.
  return QString::fromStdString(label->Caption()).section(':', 0, 0).trimmed();
}

QString WithoutMnemonic(const QString& caption) { return QString(caption).replace("&", "&&"); }

QStringList WithMnemonics(const QStringList& captions) {
  QSet<QChar> taken;
  QStringList result;
  for (const QString& caption : captions) {
    qsizetype at = 0;
    while (at < caption.size() &&
           (!caption[at].isLetterOrNumber() || taken.contains(caption[at].toLower()))) {
      ++at;
    }
    if (at == caption.size()) {
      result += WithoutMnemonic(caption);
      continue;
    }
    taken += caption[at].toLower();
    result += WithoutMnemonic(caption.left(at)) + '&' + WithoutMnemonic(caption.mid(at));
  }
  return result;
}

}  // namespace kestrune::qt
