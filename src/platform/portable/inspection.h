#pragma once

#include "platform/inspection.h"
#include "platform/portable/files.h"
#include "platform/portable/portable_machine.h"

namespace kestrune::platform::portable {

/// The files of described machines and their stores.
class PortableInspection : public Inspection {
 public:
  PortableInspection(MachinePlaces places, int code_page)
      : places_(std::move(places)), files_(places_.program_folders, code_page) {}

  FilesApi& Files() override { return files_; }
  std::vector<FoundFile> AllFiles() override;
  std::vector<std::string> FilesIn(const std::string& folder) override;
  std::string WholePath(const std::string& file) override;
  Result<std::string, FileFailure> ReadFile(const std::string& file) override;
  Result<std::string, FileFailure> ReadRegistryText(const std::string& file) override;
  DescriptionCheck CheckDescription(std::string_view text, const std::string& file) override;
  Findings CheckStore(const std::string& file) override;

 private:
  MachinePlaces places_;
  FolderFiles files_;
};

}  // namespace kestrune::platform::portable
