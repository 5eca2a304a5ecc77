#pragma once

#include <map>
#include <string>

#include "platform/files_wrapper.h"

namespace kestrune::platform::portable {

/// Keeps what is written in memory, in front of files that stay as they are: later reads and
/// listings see it, but it stands nowhere where another program could find it.
class UnwrittenFiles : public FilesWrapper {
 public:
  using FilesWrapper::FilesWrapper;

  std::optional<std::string> ReadBytes(std::string_view path) override;
  std::vector<std::string> ListFiles(std::string_view folder, std::string_view ending) override;
  std::optional<std::string> Locate(std::string_view path) override;
  Result<std::string, FileFailure> ReadFile(const std::string& path) override;
  Result<void, FileFailure> WriteFile(std::string_view path, std::string_view bytes) override;

 private:
  struct File {
    std::string path;
    std::string bytes;
  };

  const File* Find(std::string_view path) const;

  std::map<std::string, File> written_;  ///< by the path in capitals
};

}  // namespace kestrune::platform::portable
