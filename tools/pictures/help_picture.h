// The picture on the main window that stands for its help system.
#pragma once

#include <QString>

namespace kestrune::pictures {

// Writes `folder`/ps.jpg, 96 by 96 pixels for a frame of 48 by 48. Returns an empty text, or why
// it could not be written.
QString WriteHelpPicture(const QString& folder);

}  // namespace kestrune::pictures
