#pragma once

#include "platform/dialog_api.h"
#include "platform/display_api.h"
#include "platform/files_api.h"
#include "platform/registry_api.h"
#include "platform/shell_api.h"
#include "platform/system_api.h"
#include "platform/version_api.h"

namespace kestrune::platform {

/// Everything that a program needs of the machine it runs on, without owning any of it.
struct Services {
  RegistryApi& registry;
  DisplayApi& display;
  VersionApi& version;
  SystemApi& system;
  ShellApi& shell;
  FilesApi& files;
  DialogApi& dialog;
};

}  // namespace kestrune::platform
