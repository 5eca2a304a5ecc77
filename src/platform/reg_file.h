#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files_api.h"
#include "platform/registry_api.h"
#include "platform/result.h"

namespace kestrune::platform {

/// One step of a registry file. A value belongs to the key that was created last.
struct RegFileChange {
  enum class Kind { kCreateKey, kSetValue, kDeleteValue };

  Kind kind = Kind::kCreateKey;
  RegRoot root = RegRoot::kLocalMachine;
  std::string key = {};   ///< below the root
  std::string name = {};  ///< empty for the default value
  RegType type = RegType::kNone;
  std::vector<std::byte> data = {};  ///< texts as UTF-8 with their closing NUL
};

/// The first fault of a registry file.
struct RegFileFault {
  int line = 0;  ///< from 1
  std::string reason;
};

/// Reads registry text: REGEDIT4 in the system's code page, or version 5 in UTF-16 with its mark or
/// in UTF-8. Text given as hex(1) becomes UTF-8 like quoted text; other bytes are taken as they
/// are. Deleting a key is a fault.
Result<std::vector<RegFileChange>, RegFileFault> ParseRegFile(std::string_view bytes,
                                                              FilesApi& files);

/// Makes all the changes as one group, or none.
Result<void> ApplyRegFile(const std::vector<RegFileChange>& changes, RegistryApi& registry);

}  // namespace kestrune::platform
