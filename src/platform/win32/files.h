#pragma once

#include <string>
#include <vector>

#include "platform/code_page.h"
#include "platform/files_api.h"

namespace kestrune::platform::win32 {

/// The files beside the program. What is written goes there too where that can be done, else into
/// the user's own folder, whose files then hide their namesakes.
class ProgramFiles : public FilesApi {
 public:
  /// `own_folder` may be empty; `pages` must outlive this.
  ProgramFiles(std::string program_folder, std::string own_folder, CodePages& pages)
      : folder_(std::move(program_folder)), own_folder_(std::move(own_folder)), pages_(pages) {}

  std::optional<std::string> ReadBytes(std::string_view path) override;
  std::vector<std::string> ListFiles(std::string_view folder, std::string_view ending) override;
  std::optional<std::string> Locate(std::string_view path) override;
  bool IsPicture(std::string_view path) override;
  Result<std::string> ReadAnyFile(const std::string& path) override;
  Result<void> ReplaceAnyFile(const std::string& path, std::string_view bytes) override;
  Result<std::unique_ptr<OutputFile>> CreateAnyFile(const std::string& path) override;
  std::string WholePath(const std::string& path) override;
  std::string ProgramFolder() override { return folder_; }
  Result<std::string, FileFailure> ReadFile(const std::string& path) override;
  Result<void, FileFailure> WriteFile(std::string_view path, std::string_view bytes) override;
  Result<void, FileFailure> AppendFile(std::string_view path, std::string_view bytes) override;
  Result<void, FileFailure> RemoveFile(std::string_view path) override;
  std::vector<std::string> Drives() override;
  std::optional<FolderListing> ListFolder(const std::string& path) override;
  std::string PathOf(const std::string& folder, const std::string& name) override;
  std::string DecodeText(std::string_view bytes, int code_page) override {
    return pages_.Decode(bytes, code_page);
  }
  bool HasCodePage(int code_page) override { return CodePages::IsKnown(code_page); }
  EncodedText EncodeText(std::string_view text, int code_page) override {
    return pages_.Encode(text, code_page);
  }

 private:
  /// Where a path may lead, in the order in which it is looked for; empty for one that leaves the
  /// program folder.
  std::vector<std::string> PlacesOf(std::string_view path) const;

  std::string folder_;
  std::string own_folder_;
  CodePages& pages_;
};

}  // namespace kestrune::platform::win32
