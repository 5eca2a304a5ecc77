#pragma once

#include "cli/command.h"

/// The commands that work on the registry itself, without the driver's rules.
namespace kestrune::cli {

/// Prints one value; an empty name, or "@", is the key's default value.
Status ReadRegistry(Run& run, Session& session);
Status WriteRegistry(Run& run, Session& session);
Status DeleteRegistry(Run& run, Session& session);
/// Prints the keys below a key, then its values.
Status ListRegistry(Run& run, Session& session);
/// Writes a key and all below it as registry text.
Status ExportRegistry(Run& run, Session& session);
/// Makes all changes of a registry file, or none, and counts its lines.
Status ImportRegistry(Run& run, Session& session);

}  // namespace kestrune::cli
