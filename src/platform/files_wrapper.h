#pragma once

#include "platform/files_api.h"

namespace kestrune::platform {

/// Stands in front of other files and forwards everything; a wrapper derives from it and says only
/// what it adds. The other files must outlive it.
class FilesWrapper : public FilesApi {
 public:
  explicit FilesWrapper(FilesApi& inner) : inner_(inner) {}

  std::optional<std::string> ReadBytes(std::string_view path) override {
    return inner_.ReadBytes(path);
  }
  std::vector<std::string> ListFiles(std::string_view folder, std::string_view ending) override {
    return inner_.ListFiles(folder, ending);
  }
  std::optional<std::string> Locate(std::string_view path) override { return inner_.Locate(path); }
  bool IsPicture(std::string_view path) override { return inner_.IsPicture(path); }
  Result<std::string> ReadAnyFile(const std::string& path) override {
    return inner_.ReadAnyFile(path);
  }
  Result<void> ReplaceAnyFile(const std::string& path, std::string_view bytes) override {
    return inner_.ReplaceAnyFile(path, bytes);
  }
  Result<std::unique_ptr<OutputFile>> CreateAnyFile(const std::string& path) override {
    return inner_.CreateAnyFile(path);
  }
  std::string WholePath(const std::string& path) override { return inner_.WholePath(path); }
  std::string ProgramFolder() override { return inner_.ProgramFolder(); }
  Result<std::string, FileFailure> ReadFile(const std::string& path) override {
    return inner_.ReadFile(path);
  }
  Result<void, FileFailure> WriteFile(std::string_view path, std::string_view bytes) override {
    return inner_.WriteFile(path, bytes);
  }
  Result<void, FileFailure> AppendFile(std::string_view path, std::string_view bytes) override {
    return inner_.AppendFile(path, bytes);
  }
  Result<void, FileFailure> RemoveFile(std::string_view path) override {
    return inner_.RemoveFile(path);
  }
  std::vector<std::string> Drives() override { return inner_.Drives(); }
  std::optional<FolderListing> ListFolder(const std::string& path) override {
    return inner_.ListFolder(path);
  }
  std::string PathOf(const std::string& folder, const std::string& name) override {
    return inner_.PathOf(folder, name);
  }
  std::string DecodeText(std::string_view bytes, int code_page) override {
    return inner_.DecodeText(bytes, code_page);
  }
  bool HasCodePage(int code_page) override { return inner_.HasCodePage(code_page); }
  EncodedText EncodeText(std::string_view text, int code_page) override {
    return inner_.EncodeText(text, code_page);
  }

 private:
  FilesApi& inner_;
};

}  // namespace kestrune::platform
