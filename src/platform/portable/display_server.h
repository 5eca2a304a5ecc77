#pragma once

#include <vector>

#include "platform/display_api.h"

namespace kestrune::platform::portable {

/// The modes of the running machine's display, the one in force first and then all in the order of
/// its display server, each once. Empty without a server that lets modes be chosen: where there is
/// no display, no RandR, or a Wayland compositor that decides by itself.
std::vector<DisplayMode> ReadDisplayModes();

/// Changes that display's mode until log-out; false when the server refuses.
bool ChangeDisplayMode(const ModeRequest& request);

}  // namespace kestrune::platform::portable
