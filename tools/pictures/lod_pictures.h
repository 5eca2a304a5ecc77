// The pictures of the help on texture level of detail and mipmaps.
#pragma once

#include <QString>

namespace kestrune::pictures {

// Writes high_lod, normal_lod, low_lod and mipmap. Returns an empty text, or one sentence that says
// what could not be written.
QString WriteLodPictures(const QString& folder);

}  // namespace kestrune::pictures
