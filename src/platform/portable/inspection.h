#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/inspection.h"
#include "platform/portable/files.h"
#include "platform/portable/portable_machine.h"

namespace kestrune::platform::portable {

/// What stands in folders. Each is looked into once.
class FolderContents {
 public:
  enum class Type { kFile, kFolder, kLink, kOther };
  struct Entry {
    std::string name;
    Type type;
  };
  struct Folder {
    std::vector<Entry> entries;  ///< by name
    int error = 0;               ///< why it can't be opened, as the system numbers it
  };

  const Folder& Of(const std::string& path);
  /// An entry's type; that of its target for a link.
  static Type BehindLinks(const std::string& folder, const Entry& entry);
  /// The folders that a path below a folder may mean, in any case.
  std::vector<std::string> FoldersAt(std::string_view below, const std::string& folder);

 private:
  static Type TypeOf(const std::string& path, unsigned char told);

  std::map<std::string, Folder> folders_;
};

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
  Result<Findings, FileFailure> CheckRegistryText(const std::string& file) override;
  DescriptionCheck CheckDescription(std::string_view text, const std::string& file) override;
  Findings CheckStore(const std::string& file) override;

 private:
  MachinePlaces places_;
  FolderFiles files_;
  FolderContents contents_;
  /// Of registry text, by path: a description names what is found by itself, too.
  std::map<std::string, Result<Findings, FileFailure>> registry_texts_;
};

}  // namespace kestrune::platform::portable
