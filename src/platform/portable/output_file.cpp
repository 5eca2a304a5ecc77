#include "platform/portable/output_file.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <system_error>

namespace kestrune::platform::portable {

namespace fs = std::filesystem;

namespace {

std::error_code LastError() { return {errno, std::generic_category()}; }

/// Writes into a file that is opened in `mode`.
std::error_code Write(const fs::path& path, const char* mode, std::string_view bytes) {
  std::FILE* file = std::fopen(path.string().c_str(), mode);
  if (file == nullptr) return LastError();
  std::error_code error;
  // Nothing at all may have no address.
  const bool is_done =
      bytes.empty() || std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  if (!is_done) error = LastError();
  // What was buffered may fail only now.
  if (std::fclose(file) != 0 && !error) error = LastError();
  return error;
}

/// A file beside another, with a name that nobody else takes.
fs::path Beside(const fs::path& path) {
  const std::string number = std::to_string(std::random_device()());
  return path.parent_path() / (".kestrune-" + number + ".tmp");
}

std::error_code Replace(const fs::path& path, fs::file_status old, std::string_view bytes) {
  const fs::path written = Beside(path);
  std::error_code error;
  // A file that is protected from writing isn't replaced either.
  if (fs::exists(old)) error = Write(path, "r+b", {});
  if (!error) error = Write(written, "wbx", {});
  if (error) return error;
  if (fs::exists(old)) fs::permissions(written, old.permissions(), error);
  if (!error) error = Write(written, "wb", bytes);
  if (!error) fs::rename(written, path, error);
  std::error_code ignored;
  if (error) fs::remove(written, ignored);
  return error;
}

class UnbufferedFile : public OutputFile {
 public:
  explicit UnbufferedFile(std::FILE* file) : file_(file) { std::setvbuf(file, nullptr, _IONBF, 0); }

  Result<void> Put(std::string_view bytes) override {
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) == bytes.size()) return {};
    return Fail(LastError().message());
  }

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  std::unique_ptr<std::FILE, CloseFile> file_;
};

}  // namespace

Result<std::unique_ptr<OutputFile>> CreateFile(const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return Fail(LastError().message());
  return std::unique_ptr<OutputFile>(std::make_unique<UnbufferedFile>(file));
}

Result<void> ReplaceFile(const std::string& path, std::string_view bytes) {
  std::error_code error;
  fs::path target = fs::canonical(path, error);
  if (error) target = path;
  const fs::file_status old = fs::symlink_status(target, error);
  const bool is_ordinary = fs::is_regular_file(old) || old.type() == fs::file_type::not_found;
  error = is_ordinary ? Replace(target, old, bytes) : Write(target, "wb", bytes);
  return error ? Result<void>(Fail(error.message())) : Result<void>();
}

}  // namespace kestrune::platform::portable
