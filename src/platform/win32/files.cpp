#include "platform/win32/files.h"

#include <windows.h>

#include <algorithm>
#include <map>

#include "platform/case_fold.h"
#include "platform/file_limits.h"
#include "platform/picture_size.h"
#include "platform/program_path.h"
#include "platform/win32/file_calls.h"
#include "platform/win32/text.h"

namespace kestrune::platform::win32 {

namespace {

Failure<FileFailure> NoSuchFile(FileFault fault) {
  return FailWith(FileFailure{fault, ErrorText(ERROR_FILE_NOT_FOUND)});
}

std::string FolderOf(const std::string& path) { return path.substr(0, path.find_last_of("\\/")); }

}  // namespace

std::vector<std::string> ProgramFiles::PlacesOf(std::string_view path) const {
  const auto parts = ProgramPathParts(path);
  if (!parts) return {};
  std::string below;
  for (const std::string_view part : *parts) below.append(1, '\\').append(part);
  std::vector<std::string> places;
  if (!own_folder_.empty()) places.push_back(own_folder_ + below);
  places.push_back(folder_ + below);
  return places;
}

std::optional<std::string> ProgramFiles::Locate(std::string_view path) {
  for (std::string& place : PlacesOf(path)) {
    if (KindOf(place) == FileKind::kFile) return std::move(place);
  }
  return std::nullopt;
}

std::optional<std::string> ProgramFiles::ReadBytes(std::string_view path) {
  const std::optional<std::string> file = Locate(path);
  if (!file) return std::nullopt;
  auto bytes = ReadWholeFile(*file, kLongestDataFile);
  if (!bytes) return std::nullopt;
  return std::move(bytes).Value();
}

std::vector<std::string> ProgramFiles::ListFiles(std::string_view folder, std::string_view ending) {
  const std::string folded_ending = FoldCase(ending);
  std::map<std::string, std::string> names;
  for (const std::string& place : PlacesOf(folder)) {
    const auto entries = EntriesOf(place);
    if (!entries) continue;
    for (const FolderEntry& entry : *entries) {
      std::string folded = FoldCase(entry.name);
      if (!entry.is_folder && folded.ends_with(folded_ending)) {
        names.emplace(std::move(folded), entry.name);
      }
    }
  }
  std::vector<std::string> list;
  list.reserve(names.size());
  for (auto& [folded, name] : names) list.push_back(std::move(name));
  return list;
}

bool ProgramFiles::IsPicture(std::string_view path) {
  const std::optional<std::string> bytes = ReadBytes(path);
  return bytes && SizeOfPicture(*bytes);
}

Result<std::string> ProgramFiles::ReadAnyFile(const std::string& path) {
  auto bytes = ReadWholeFile(path, kLongestRegFile, true);
  if (!bytes) return Fail(bytes.Reason().reason);
  return std::move(bytes).Value();
}

Result<void> ProgramFiles::ReplaceAnyFile(const std::string& path, std::string_view bytes) {
  const auto replaced = ReplaceFileOrPut(path, bytes);
  return replaced ? Result<void>() : Result<void>(Fail(replaced.Reason().reason));
}

Result<std::unique_ptr<OutputFile>> ProgramFiles::CreateAnyFile(const std::string& path) {
  return CreateOutputFile(path);
}

std::string ProgramFiles::WholePath(const std::string& path) { return WholePathOf(path); }

Result<std::string, FileFailure> ProgramFiles::ReadFile(const std::string& path) {
  const auto in_folder = InProgramFolder(path, folder_);
  if (!in_folder) return ReadWholeFile(path, kLongestDataFile);
  if (const auto file = Locate(*in_folder)) return ReadWholeFile(*file, kLongestDataFile);
  // The folder itself, or what is neither there nor here, fails with the system's own reason.
  return ReadWholeFile(path, kLongestDataFile);
}

Result<void, FileFailure> ProgramFiles::WriteFile(std::string_view path, std::string_view bytes) {
  const auto parts = ProgramPathParts(path);
  if (!parts || parts->empty()) return NoSuchFile(FileFault::kOther);
  Result<void, FileFailure> written;
  // Beside the program first, unless the user has such a file already.
  std::vector<std::string> places = PlacesOf(path);
  if (KindOf(places.front()) != FileKind::kFile) std::reverse(places.begin(), places.end());
  for (const std::string& place : places) {
    if (const unsigned long error = MakeFolders(FolderOf(place))) {
      written = FailWith(FileFailure{FileFault::kNotUsable, ErrorText(error)});
    } else {
      written = ReplaceFile(place, bytes);
    }
    if (written) break;
  }
  return written;
}

Result<void, FileFailure> ProgramFiles::AppendFile(std::string_view path, std::string_view bytes) {
  const auto file = Locate(path);
  return file ? AppendToFile(*file, bytes) : NoSuchFile(FileFault::kNoFile);
}

Result<void, FileFailure> ProgramFiles::RemoveFile(std::string_view path) {
  const auto file = Locate(path);
  return file ? DeleteOneFile(*file) : NoSuchFile(FileFault::kNoFile);
}

std::vector<std::string> ProgramFiles::Drives() {
  std::vector<std::string> drives;
  const DWORD there = GetLogicalDrives();
  for (int i = 0; i < 26; ++i) {
    if ((there >> i & 1) != 0) drives.push_back(std::string(1, static_cast<char>('A' + i)) + ":\\");
  }
  return drives;
}

std::optional<FolderListing> ProgramFiles::ListFolder(const std::string& path) {
  if (path.find('\0') != path.npos) return std::nullopt;
  const auto entries = EntriesOf(path);
  if (!entries) return std::nullopt;
  FolderListing listing;
  for (const FolderEntry& entry : *entries) {
    if (entry.is_folder) {
      listing.folders.push_back(entry.name);
    } else if (FoldCase(entry.name).ends_with(".EXE")) {
      listing.programs.push_back(entry.name);
    }
  }
  SortWithoutCase(listing.folders);
  SortWithoutCase(listing.programs);
  return listing;
}

std::string ProgramFiles::PathOf(const std::string& folder, const std::string& name) {
  const bool ends = folder.ends_with('\\') || folder.ends_with('/');
  if (name != "..") return ends ? folder + name : folder + '\\' + name;
  const std::size_t separator = folder.find_last_of("\\/");
  if (separator == folder.npos || ends) return folder;
  // A drive keeps its separator.
  const bool is_drive = separator > 0 && folder[separator - 1] == ':';
  return folder.substr(0, is_drive ? separator + 1 : separator);
}

}  // namespace kestrune::platform::win32
