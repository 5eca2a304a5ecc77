// Writing pictures as JPEG files.
#pragma once

#include <QImage>
#include <QString>

namespace kestrune::pictures {

// Writes `image` to `folder`/`name`.jpg, making the folder where it is missing. Returns an empty
// text, or one sentence that says why the file could not be written.
QString WritePicture(const QImage& image, const QString& folder, const QString& name);

}  // namespace kestrune::pictures
