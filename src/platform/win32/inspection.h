#pragma once

#include "platform/inspection.h"
#include "platform/win32/files.h"

namespace kestrune::platform::win32 {

/// The data files of this computer's program. There are no stores, and descriptions are of no use
/// here. Paths have slashes.
class ProgramInspection : public Inspection {
 public:
  /// `own_folder` may be empty.
  ProgramInspection(const std::string& program_folder, const std::string& own_folder);

  FilesApi& Files() override { return files_; }
  std::vector<FoundFile> AllFiles() override;
  std::vector<std::string> FilesIn(const std::string& folder) override;
  std::string WholePath(const std::string& file) override;
  Result<std::string, FileFailure> ReadFile(const std::string& file) override;
  Result<Findings, FileFailure> CheckRegistryText(const std::string& file) override;
  DescriptionCheck CheckDescription(std::string_view text, const std::string& file) override;
  Findings CheckStore(const std::string& file) override;

 private:
  CodePages pages_;
  std::vector<std::string> folders_;  ///< with slashes
  ProgramFiles files_;
};

}  // namespace kestrune::platform::win32
