#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kestrune::platform {

/// The kinds of systems.
inline constexpr int kPlatform9x = 1;
inline constexpr int kPlatformNt = 2;

/// The operating system's version record (GetVersionEx).
struct OsVersion {
  int major = 0;
  int minor = 0;
  int platform = 0;  ///< kPlatform9x (Windows Me too) or kPlatformNt
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
