#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kestrune::platform {

/// The operating system's version record (GetVersionEx).
struct OsVersion {
  int major = 0;
  int minor = 0;
  int platform = 0;  ///< 1 = Windows 9x/Me, 2 = Windows NT
};

/// Versions of the system and of its files (GetVersionEx, GetSystemDirectory, VerQueryValue).
class VersionApi {
 public:
  virtual ~VersionApi() = default;

  virtual OsVersion SystemVersion() = 0;
  /// The "FileVersion" text of a file in the system folder, such as "6.14.10.8178" for
  /// "nv4_disp.dll"; nothing when there is no such file or it has no version.
  virtual std::optional<std::string> FileVersionText(std::string_view file_name) = 0;
};

}  // namespace kestrune::platform
