#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/code_page.h"
#include "platform/files_api.h"

namespace kestrune::test {

/// Files in memory: program files laid over the shipped ones, which are only read, and the
/// machine's other files, of which there are none at first. Folders are there as long as a file is
/// in them.
class FakeFiles : public platform::FilesApi {
 public:
  /// Without the shipped files there are those alone that are laid.
  explicit FakeFiles(bool ships_files = true, int code_page = 1252)
      : ships_files_(ships_files), code_pages_(code_page) {}

  /// Lays a program file, `path` as in "DATA/mt.dat".
  void Lay(std::string_view path, std::string_view bytes);
  /// Puts a file elsewhere, by its whole path with slashes; gives the path back.
  std::string Put(std::string path, std::string_view bytes);
  /// Takes away what was put below a folder.
  void TakeAway(const std::string& folder);

  std::optional<std::string> ReadBytes(std::string_view path) override;
  std::vector<std::string> ListFiles(std::string_view folder, std::string_view ending) override;
  std::optional<std::string> Locate(std::string_view path) override;
  bool IsPicture(std::string_view path) override;
  platform::Result<std::string> ReadAnyFile(const std::string& path) override;
  platform::Result<void> ReplaceAnyFile(const std::string& path, std::string_view bytes) override;
  platform::Result<std::unique_ptr<platform::OutputFile>> CreateAnyFile(
      const std::string& path) override;
  std::string WholePath(const std::string& path) override { return path; }
  std::string ProgramFolder() override;
  platform::Result<std::string, platform::FileFailure> ReadFile(const std::string& path) override;
  platform::Result<void, platform::FileFailure> WriteFile(std::string_view path,
                                                          std::string_view bytes) override;
  platform::Result<void, platform::FileFailure> AppendFile(std::string_view path,
                                                           std::string_view bytes) override;
  platform::Result<void, platform::FileFailure> RemoveFile(std::string_view path) override;
  std::vector<std::string> Drives() override { return {"/"}; }
  std::optional<platform::FolderListing> ListFolder(const std::string& path) override;
  std::string PathOf(const std::string& folder, const std::string& name) override;
  std::string DecodeText(std::string_view bytes, int code_page) override {
    return code_pages_.Decode(bytes, code_page);
  }
  bool HasCodePage(int code_page) override { return platform::CodePages::IsKnown(code_page); }
  platform::EncodedText EncodeText(std::string_view text, int code_page) override {
    return code_pages_.Encode(text, code_page);
  }

 private:
  struct LaidFile {
    std::string path;  ///< with slashes, as it was last written
    std::string bytes;
  };

  /// What the shipped files have under a path in capitals: their paths as they are written.
  const std::map<std::string, std::string>& Shipped() const;
  bool IsProgramFolder(const std::string& folded) const;

  bool ships_files_;
  std::map<std::string, LaidFile> laid_;       ///< by path in capitals
  std::map<std::string, std::string> others_;  ///< by whole path
  platform::CodePages code_pages_;
};

}  // namespace kestrune::test
