#pragma once

#include "platform/code_page.h"
#include "platform/version_api.h"

namespace kestrune::platform::win32 {

/// The versions that the system tells of itself and of the files in its folder. The program's
/// manifest names no system after Windows Vista, so a later one tells of itself as of 6.x.
class SystemVersions : public VersionApi {
 public:
  /// `pages` must outlive this.
  explicit SystemVersions(CodePages& pages) : pages_(pages) {}

  OsVersion SystemVersion() override;
  std::optional<std::string> FileVersionText(std::string_view file_name) override;

 private:
  CodePages& pages_;
};

}  // namespace kestrune::platform::win32
