#pragma once

#include <string>
#include <vector>

#include "platform/code_page.h"
#include "platform/files_api.h"
#include "platform/portable/folder_listing.h"
#include "platform/portable/output_file.h"

namespace kestrune::platform::portable {

/// Program files in several folders laid over each other: a file of an earlier one hides its
/// namesake in a later one. What is written goes to the first folder; the last is the one where
/// the program was installed.
class FolderFiles : public FilesApi {
 public:
  FolderFiles(std::vector<std::string> folders, int system_code_page,
              ProgramNames programs = ProgramNames::kExe)
      : folders_(std::move(folders)), code_pages_(system_code_page), programs_(programs) {}

  std::optional<std::string> ReadBytes(std::string_view path) override;
  std::vector<std::string> ListFiles(std::string_view folder, std::string_view ending) override;
  std::optional<std::string> Locate(std::string_view path) override;
  bool IsPicture(std::string_view path) override;
  Result<std::string> ReadAnyFile(const std::string& path) override;
  Result<void> ReplaceAnyFile(const std::string& path, std::string_view bytes) override {
    return ReplaceFile(path, bytes);
  }
  Result<std::unique_ptr<OutputFile>> CreateAnyFile(const std::string& path) override {
    return CreateFile(path);
  }
  std::string WholePath(const std::string& path) override;
  std::string ProgramFolder() override;
  Result<std::string, FileFailure> ReadFile(const std::string& path) override;
  Result<void, FileFailure> WriteFile(std::string_view path, std::string_view bytes) override;
  Result<void, FileFailure> AppendFile(std::string_view path, std::string_view bytes) override;
  Result<void, FileFailure> RemoveFile(std::string_view path) override;
  std::vector<std::string> Drives() override;
  std::optional<FolderListing> ListFolder(const std::string& path) override;
  std::string PathOf(const std::string& folder, const std::string& name) override;
  std::string DecodeText(std::string_view bytes, int code_page) override {
    return code_pages_.Decode(bytes, code_page);
  }
  bool HasCodePage(int code_page) override { return CodePages::IsKnown(code_page); }
  EncodedText EncodeText(std::string_view text, int code_page) override {
    return code_pages_.Encode(text, code_page);
  }

 private:
  /// The file of that path among those that were written.
  Result<std::string, FileFailure> FindWritten(std::string_view path) const;

  std::vector<std::string> folders_;
  CodePages code_pages_;
  ProgramNames programs_;
};

}  // namespace kestrune::platform::portable
