// The antialiasing preview pictures.
#pragma once

#include <QString>

namespace kestrune::pictures {

// Writes a picture of every mode to `folder`/1 (the whole scene) and `folder`/2 (a detail of it,
// magnified), named after the mode, each 468 by 276 pixels. Returns an empty text, or why it
// stopped.
QString WriteAaPictures(const QString& folder);

}  // namespace kestrune::pictures
