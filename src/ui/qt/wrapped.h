#pragma once

#include <QFont>
#include <QSize>
#include <QString>

namespace kestrune::qt {

/// Whether a text may have more than one line in so much room.
bool HasRoomForLines(const QFont& font, const QSize& room);

/// The text broken into the lines that fit, the last of them cut short where more would follow.
QString Wrapped(const QString& text, const QFont& font, const QSize& room);

/// Whether what is shown is all of a text, broken nowhere but between words and behind hyphens.
bool IsWhole(const QString& shown, const QString& text);

}  // namespace kestrune::qt
