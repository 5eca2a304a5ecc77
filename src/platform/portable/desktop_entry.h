#pragma once

#include <string>

namespace kestrune::platform::portable {

/// The desktop entry that starts a program, by its absolute path, with a profile.
std::string DesktopEntry(const std::string& program);

/// Sees to it that a file manager opens profiles with the program of that absolute path: by a
/// desktop entry and a MIME type in the user's folders. They are compared first and written when
/// they differ. Nothing is written where the environment names a store, machine or program folder,
/// or where an installed entry starts the same program. Failures are silent.
void AssociateProfiles(const std::string& program);

}  // namespace kestrune::platform::portable
