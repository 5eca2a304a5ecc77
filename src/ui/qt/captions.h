#pragma once

#include <QString>
#include <QStringList>
#include <string>
#include <string_view>

namespace kestrune::controls {
class Control;
}
namespace kestrune::forms {
class Form;
}

namespace kestrune::qt {

/// The last part of an id in words: "Core clock" for "overclocking.core-clock".
QString ReadableName(std::string_view id);

/// The label that names a control (its id with "-label" behind it), or null.
controls::Control* LabelOf(const forms::Form& form, const controls::Control& control);

/// What a control is called where nothing but words will do, as for a screen reader: its caption,
/// else that of its label (null for none), else its id in words. Never empty.
QString SpokenName(const controls::Control& control, const controls::Control* label);

/// A caption that a toolkit may look for mnemonics in, with nothing in it taken for one.
QString WithoutMnemonic(const QString& caption);

/// Captions with a mnemonic each: the first letter or digit that no caption before it has taken.
/// One whose letters are all taken gets none.
QStringList WithMnemonics(const QStringList& captions);

}  // namespace kestrune::qt
