// The pictures beside the control-panel switches: each shows the driver page that a switch
// reveals, drawn as a generic dialog.
#pragma once

#include <QString>

namespace kestrune::pictures {

// Writes the pictures to `folder`, named after the switches' picture tags, 400 by 260 pixels.
// Returns an empty text, or why it stopped.
QString WritePanelPictures(const QString& folder);

}  // namespace kestrune::pictures
