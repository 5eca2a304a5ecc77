#include "platform/unwritten_files.h"

#include <system_error>
#include <utility>

#include "platform/case_fold.h"
#include "platform/program_path.h"

namespace kestrune::platform {

namespace {

Failure<FileFailure> NoFile() {
  const auto error = std::make_error_code(std::errc::no_such_file_or_directory);
  return FailWith(FileFailure{FileFault::kNoFile, error.message()});
}

}  // namespace

const UnwrittenFiles::File* UnwrittenFiles::Find(std::string_view path) const {
  const auto found = changed_.find(FoldCase(ProgramPathText(path)));
  return found == changed_.end() ? nullptr : &found->second;
}

std::optional<std::string> UnwrittenFiles::ReadBytes(std::string_view path) {
  const File* file = Find(path);
  return file != nullptr ? file->bytes : FilesWrapper::ReadBytes(path);
}

std::vector<std::string> UnwrittenFiles::ListFiles(std::string_view folder,
                                                   std::string_view ending) {
  std::map<std::string, std::string> names;
  for (std::string& name : FilesWrapper::ListFiles(folder, ending)) {
    names.emplace(FoldCase(name), std::move(name));
  }
  const std::string folded_folder = FoldCase(ProgramPathText(folder));
  for (const auto& [folded, file] : changed_) {
    const std::size_t name = folded.rfind('/') + 1;
    const bool is_there = folded_folder == folded.substr(0, name == 0 ? 0 : name - 1);
    if (!is_there || !folded.ends_with(FoldCase(ending))) continue;
    if (file.bytes) {
      names[folded.substr(name)] = file.path.substr(file.path.rfind('/') + 1);
    } else {
      names.erase(folded.substr(name));
    }
  }
  std::vector<std::string> list;
  list.reserve(names.size());
  for (auto& [folded, name] : names) list.push_back(std::move(name));
  return list;
}

std::optional<std::string> UnwrittenFiles::Locate(std::string_view path) {
  return Find(path) != nullptr ? std::nullopt : FilesWrapper::Locate(path);
}

Result<std::string, FileFailure> UnwrittenFiles::ReadFile(const std::string& path) {
  const auto in_folder = InProgramFolder(path, ProgramFolder());
  const File* file = in_folder ? Find(*in_folder) : nullptr;
  if (file == nullptr) return FilesWrapper::ReadFile(path);
  if (!file->bytes) return NoFile();
  return *file->bytes;
}

Result<void, FileFailure> UnwrittenFiles::WriteFile(std::string_view path, std::string_view bytes) {
  const auto parts = ProgramPathParts(path);
  // A path that names nothing fails there, before anything is written.
  if (!parts || parts->empty()) return FilesWrapper::WriteFile(path, bytes);
  std::string text = ProgramPathText(path);
  std::string folded = FoldCase(text);
  changed_[std::move(folded)] = {std::move(text), std::string(bytes)};
  return {};
}

bool UnwrittenFiles::Has(std::string_view path) {
  const File* file = Find(path);
  return file != nullptr ? file->bytes.has_value() : FilesWrapper::Locate(path).has_value();
}

Result<void, FileFailure> UnwrittenFiles::AppendFile(std::string_view path,
                                                     std::string_view /*bytes*/) {
  if (!Has(path)) return NoFile();
  return {};
}

Result<void, FileFailure> UnwrittenFiles::RemoveFile(std::string_view path) {
  if (!Has(path)) return NoFile();
  std::string text = ProgramPathText(path);
  std::string folded = FoldCase(text);
  changed_[std::move(folded)] = {std::move(text), std::nullopt};
  return {};
}

}  // namespace kestrune::platform
