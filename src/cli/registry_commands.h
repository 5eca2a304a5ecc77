#pragma once

#include <string>
#include <vector>

#include "cli/session.h"

/// The commands that work on the registry itself, without the driver's rules.
namespace kestrune::cli {

/// Prints one value; an empty name, or "@", is the key's default value.
Status ReadRegistry(Session& session, const GlobalOptions& options, const Streams& streams,
                    const std::string& key, const std::string& name);
Status WriteRegistry(Session& session, const Streams& streams, const std::string& key,
                     const std::string& name, const std::string& type,
                     const std::vector<std::string>& data);
Status DeleteRegistry(Session& session, const Streams& streams, const std::string& key,
                      const std::string& name);
/// Prints the keys below a key, then its values.
Status ListRegistry(Session& session, const GlobalOptions& options, const Streams& streams,
                    const std::string& key);
/// Makes all changes of a registry file, or none.
Status ImportRegistry(Session& session, const Streams& streams, const std::string& file);

}  // namespace kestrune::cli
