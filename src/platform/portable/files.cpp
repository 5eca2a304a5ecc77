#include "platform/portable/files.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>
#include <memory>
#include <span>
#include <system_error>

#include "platform/case_fold.h"
#include "platform/picture_size.h"
#include "platform/portable/whole_file.h"
#include "platform/program_path.h"

namespace kestrune::platform::portable {
namespace {

using Parts = std::vector<std::string_view>;

enum class Kind { kNothing, kFile, kFolder, kOther };

Kind KindOf(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return Kind::kNothing;
  if (S_ISREG(status.st_mode)) return Kind::kFile;
  return S_ISDIR(status.st_mode) ? Kind::kFolder : Kind::kOther;
}

std::string Below(const std::string& folder, std::string_view name) {
  return std::string(folder).append(1, '/').append(name);
}

std::vector<std::string> Names(const std::string& folder) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(folder.c_str()), closedir);
  if (stream == nullptr) return names;
  while (const dirent* entry = readdir(stream.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// Finds everything that a path may mean: the names as they are written first, then those that
/// differ in case only. `visit` ends the search by returning true.
template <class Visit>
bool Search(const std::string& folder, std::span<const std::string_view> parts,
            const Visit& visit) {
  if (parts.empty()) return visit(folder);
  const std::string exact = Below(folder, parts.front());
  if (KindOf(exact) != Kind::kNothing && Search(exact, parts.subspan(1), visit)) return true;
  for (const std::string& name : Names(folder)) {
    if (name == parts.front() || !SameWithoutCase(name, parts.front())) continue;
    if (Search(Below(folder, name), parts.subspan(1), visit)) return true;
  }
  return false;
}

/// The first thing of a wanted kind that a path may mean in one of the folders.
template <class Wanted>
std::optional<std::string> FindIn(const std::vector<std::string>& folders, const Parts& parts,
                                  const Wanted& wanted) {
  std::optional<std::string> found;
  for (const std::string& folder : folders) {
    Search(folder, parts, [&](const std::string& candidate) {
      if (wanted(KindOf(candidate))) found = candidate;
      return found.has_value();
    });
    if (found) break;
  }
  return found;
}

/// The name of what stands in a folder under a name that differs in case at most, the name itself
/// first; nothing when there is none.
std::optional<std::string> SpelledIn(const std::string& folder, std::string_view name) {
  std::optional<std::string> spelled;
  for (const std::string& each : Names(folder)) {
    if (each == name) return each;
    if (!spelled && SameWithoutCase(each, name)) spelled = each;
  }
  return spelled;
}

/// Makes a folder with all that lead to it, and says what kept it from that; 0 when it is there.
int MakeFolder(const std::string& path) {
  std::error_code error;
  std::filesystem::create_directories(path, error);
  return error.value();
}

}  // namespace

std::optional<std::string> FolderFiles::Locate(std::string_view path) {
  const std::optional<Parts> parts = ProgramPathParts(path);
  if (!parts || parts->empty()) return std::nullopt;
  return FindIn(folders_, *parts, [](Kind kind) { return kind == Kind::kFile; });
}

std::optional<std::string> FolderFiles::ReadBytes(std::string_view path) {
  const std::optional<std::string> file = Locate(path);
  if (!file) return std::nullopt;
  auto bytes = ReadWholeFile(*file);
  if (!bytes.Ok()) return std::nullopt;
  return std::move(bytes).Value();
}

Result<std::string> FolderFiles::ReadAnyFile(const std::string& path) {
  auto bytes = ReadWholeFile(path, kLongestRegFile, PipesToo::kYes);
  if (!bytes.Ok()) return Fail(bytes.Reason().reason);
  return std::move(bytes).Value();
}

std::vector<std::string> FolderFiles::ListFiles(std::string_view folder, std::string_view ending) {
  const std::optional<Parts> parts = ProgramPathParts(folder);
  if (!parts) return {};
  const std::string folded_ending = FoldCase(ending);
  std::map<std::string, std::string> names;
  const auto add = [&](const std::string& found) {
    for (std::string& name : Names(found)) {
      std::string folded = FoldCase(name);
      if (!folded.ends_with(folded_ending) || KindOf(Below(found, name)) != Kind::kFile) continue;
      names.emplace(std::move(folded), std::move(name));
    }
    return false;
  };
  for (const std::string& root : folders_) Search(root, *parts, add);
  std::vector<std::string> list;
  list.reserve(names.size());
  for (auto& [folded, name] : names) list.push_back(std::move(name));
  return list;
}

std::string FolderFiles::WholePath(const std::string& path) {
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::absolute(path, error);
  return error ? path : whole.lexically_normal().string();
}

std::string FolderFiles::ProgramFolder() {
  if (folders_.empty()) return "";
  std::error_code error;
  std::string path = std::filesystem::absolute(folders_.back(), error).string();
  while (path.ends_with('/')) path.pop_back();
  return path;
}

Result<std::string, FileFailure> FolderFiles::ReadFile(const std::string& path) {
  const auto in_folder = InProgramFolder(path, ProgramFolder());
  if (!in_folder) return ReadWholeFile(path);
  const Parts parts = *ProgramPathParts(*in_folder);
  const auto is_file = [](Kind kind) { return kind == Kind::kFile; };
  const auto is_there = [](Kind kind) { return kind != Kind::kNothing; };
  const auto is_folder = [](Kind kind) { return kind == Kind::kFolder; };
  std::optional<std::string> found = FindIn(folders_, parts, is_file);
  if (!found) found = FindIn(folders_, parts, is_there);
  if (found) return ReadWholeFile(*found);
  const bool has_folder =
      FindIn(folders_, Parts(parts.begin(), parts.end() - 1), is_folder).has_value();
  FileFailure failure = FailureOf(ENOENT, path);
  failure.fault = has_folder ? FileFault::kNoFile : FileFault::kNoFolder;
  return FailWith(std::move(failure));
}

Result<void, FileFailure> FolderFiles::WriteFile(std::string_view path, std::string_view bytes) {
  const auto parts = ProgramPathParts(path);
  if (folders_.empty() || !parts || parts->empty()) {
    return FailWith(FailureOf(EINVAL, std::string(path)));
  }
  std::string folder = folders_.front();
  for (const std::string_view part : std::span(*parts).first(parts->size() - 1)) {
    folder = Below(folder, SpelledIn(folder, part).value_or(std::string(part)));
  }
  if (const int error = MakeFolder(folder)) return FailWith(FailureOf(error, folder));
  std::vector<std::string> names;
  for (std::string& name : Names(folder)) {
    if (!SameWithoutCase(name, parts->back())) continue;
    const Kind kind = KindOf(Below(folder, name));
    if (kind == Kind::kFolder || kind == Kind::kOther) {
      return FailWith(FileFailure{FileFault::kNotUsable, "it is no ordinary file"});
    }
    if (name != parts->back()) names.push_back(std::move(name));
  }
  names.emplace_back(parts->back());
  return ReplaceFiles(folder, names, bytes);
}

Result<std::string, FileFailure> FolderFiles::FindWritten(std::string_view path) const {
  const auto parts = ProgramPathParts(path);
  if (folders_.empty() || !parts || parts->empty()) {
    return FailWith(FailureOf(EINVAL, std::string(path)));
  }
  std::optional<std::string> file =
      FindIn({folders_.front()}, *parts, [](Kind kind) { return kind == Kind::kFile; });
  if (!file) return FailWith(FailureOf(ENOENT, Below(folders_.front(), ProgramPathText(path))));
  return *std::move(file);
}

Result<void, FileFailure> FolderFiles::AppendFile(std::string_view path, std::string_view bytes) {
  const auto file = FindWritten(path);
  return file ? AppendToFile(file.Value(), bytes) : FailWith(file.Reason());
}

Result<void, FileFailure> FolderFiles::RemoveFile(std::string_view path) {
  const auto file = FindWritten(path);
  if (!file) return FailWith(file.Reason());
  if (unlink(file.Value().c_str()) != 0) return FailWith(FailureOf(errno, file.Value()));
  return {};
}

std::vector<std::string> FolderFiles::Drives() {
  const auto mounts = ReadWholeFile("/proc/self/mounts");
  return DrivesAmong(mounts.Ok() ? mounts.Value() : "");
}

std::optional<FolderListing> FolderFiles::ListFolder(const std::string& path) {
  return ListPrograms(path, programs_);
}

std::string FolderFiles::PathOf(const std::string& folder, const std::string& name) {
  if (name == "..") return folder.substr(0, std::max<std::size_t>(folder.rfind('/'), 1));
  return folder.ends_with('/') ? folder + name : Below(folder, name);
}

bool FolderFiles::IsPicture(std::string_view path) {
  const std::optional<std::string> bytes = ReadBytes(path);
  return bytes && SizeOfPicture(*bytes);
}

}  // namespace kestrune::platform::portable
