#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/files_wrapper.h"

namespace kestrune::platform {

/// Keeps what is written or deleted in memory, in front of files that stay as they are: later reads
/// and listings see it, but it stands nowhere where another program could find it. What is appended
/// is dropped, since nobody says how much that will be. Other files of the machine aren't kept from
/// being written.
class UnwrittenFiles : public FilesWrapper {
 public:
  using FilesWrapper::FilesWrapper;

  std::optional<std::string> ReadBytes(std::string_view path) override;
  std::vector<std::string> ListFiles(std::string_view folder, std::string_view ending) override;
  std::optional<std::string> Locate(std::string_view path) override;
  Result<std::string, FileFailure> ReadFile(const std::string& path) override;
  Result<void, FileFailure> WriteFile(std::string_view path, std::string_view bytes) override;
  Result<void, FileFailure> AppendFile(std::string_view path, std::string_view bytes) override;
  Result<void, FileFailure> RemoveFile(std::string_view path) override;

 private:
  struct File {
    std::string path;
    std::optional<std::string> bytes;  ///< nothing for a file that was deleted
  };

  const File* Find(std::string_view path) const;
  /// Whether there is such a file, as far as this is concerned.
  bool Has(std::string_view path);

  std::map<std::string, File> changed_;  ///< by the path in capitals
};

}  // namespace kestrune::platform
