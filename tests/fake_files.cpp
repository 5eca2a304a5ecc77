#include "fake_files.h"

#include <dirent.h>

#include <algorithm>
#include <memory>
#include <set>
#include <system_error>
#include <utility>

#include "platform/case_fold.h"
#include "platform/picture_size.h"
#include "platform/program_path.h"
#include "read_all.h"

namespace kestrune::test {

namespace {

using namespace platform;

constexpr const char* kShippedFolder = KESTRUNE_DATA_FOLDER;
/// Where laid files say that they stand.
constexpr const char* kLaidFolder = "laid/";

using Paths = std::map<std::string, std::string>;

std::string Folded(std::string_view path) { return FoldCase(ProgramPathText(path)); }

/// Adds all files below a folder to the shipped ones; false when it is no folder.
bool AddFolder(const std::string& below, Paths& shipped) {
  const std::string folder = kShippedFolder + ("/" + below);
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(folder.c_str()), closedir);
  if (stream == nullptr) return false;
  while (const dirent* entry = readdir(stream.get())) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    std::string path = below.empty() ? std::string(name) : below + "/" + std::string(name);
    if (!AddFolder(path, shipped)) shipped.emplace(FoldCase(path), std::move(path));
  }
  return true;
}

std::string ReadShipped(const std::string& path) {
  return ReadAll(std::string(kShippedFolder) + "/" + path);
}

/// Whether a map has something below a folder.
template <class Map>
bool HasBelow(const Map& files, const std::string& folder) {
  const auto first = files.lower_bound(folder + "/");
  return first != files.end() && first->first.starts_with(folder + "/");
}

std::string ParentOf(const std::string& path) {
  const std::size_t end = path.rfind('/');
  return end == path.npos ? "" : path.substr(0, end);
}

Failure<FileFailure> Failed(FileFault fault, std::errc error) {
  return FailWith(FileFailure{fault, std::make_error_code(error).message()});
}

Failure<FileFailure> NotThere(bool has_folder) {
  return Failed(has_folder ? FileFault::kNoFile : FileFault::kNoFolder,
                std::errc::no_such_file_or_directory);
}

class Growing : public platform::OutputFile {
 public:
  explicit Growing(std::string& bytes) : bytes_(bytes) {}

  platform::Result<void> Put(std::string_view bytes) override {
    bytes_ += bytes;
    return {};
  }

 private:
  std::string& bytes_;
};

}  // namespace

const Paths& FakeFiles::Shipped() const {
  static const Paths kNone;
  static const Paths kShipped = [] {
    Paths paths;
    AddFolder("", paths);
    return paths;
  }();
  return ships_files_ ? kShipped : kNone;
}

bool FakeFiles::IsProgramFolder(const std::string& folded) const {
  return folded.empty() || HasBelow(laid_, folded) || HasBelow(Shipped(), folded);
}

void FakeFiles::Lay(std::string_view path, std::string_view bytes) {
  laid_[Folded(path)] = {ProgramPathText(path), std::string(bytes)};
}

platform::Result<void> FakeFiles::ReplaceAnyFile(const std::string& path, std::string_view bytes) {
  Put(path, bytes);
  return {};
}

platform::Result<std::unique_ptr<platform::OutputFile>> FakeFiles::CreateAnyFile(
    const std::string& path) {
  Put(path, "");
  return std::unique_ptr<platform::OutputFile>(std::make_unique<Growing>(others_[path]));
}

std::string FakeFiles::Put(std::string path, std::string_view bytes) {
  others_[path] = bytes;
  return path;
}

void FakeFiles::TakeAway(const std::string& folder) {
  std::erase_if(others_, [&](const auto& each) { return each.first.starts_with(folder + "/"); });
}

std::optional<std::string> FakeFiles::ReadBytes(std::string_view path) {
  const std::string folded = Folded(path);
  if (const auto laid = laid_.find(folded); laid != laid_.end()) return laid->second.bytes;
  const auto shipped = Shipped().find(folded);
  if (shipped == Shipped().end()) return std::nullopt;
  return ReadShipped(shipped->second);
}

std::vector<std::string> FakeFiles::ListFiles(std::string_view folder, std::string_view ending) {
  const std::string start = Folded(folder) + (Folded(folder).empty() ? "" : "/");
  const std::string folded_ending = FoldCase(ending);
  Paths names;
  const auto add = [&](const std::string& folded, const std::string& path) {
    if (!folded.starts_with(start) || !folded.ends_with(folded_ending)) return;
    const std::string name = folded.substr(start.size());
    if (name.find('/') == name.npos) names.emplace(name, path.substr(path.rfind('/') + 1));
  };
  for (const auto& [folded, file] : laid_) add(folded, file.path);
  for (const auto& [folded, path] : Shipped()) add(folded, path);
  std::vector<std::string> list;
  for (auto& [folded, name] : names) list.push_back(std::move(name));
  return list;
}

std::optional<std::string> FakeFiles::Locate(std::string_view path) {
  const std::string folded = Folded(path);
  if (const auto laid = laid_.find(folded); laid != laid_.end()) {
    return kLaidFolder + laid->second.path;
  }
  const auto shipped = Shipped().find(folded);
  if (shipped == Shipped().end()) return std::nullopt;
  return std::string(kShippedFolder) + "/" + shipped->second;
}

bool FakeFiles::IsPicture(std::string_view path) {
  const std::optional<std::string> bytes = ReadBytes(path);
  return bytes && SizeOfPicture(*bytes);
}

std::string FakeFiles::ProgramFolder() { return kShippedFolder; }

Result<std::string> FakeFiles::ReadAnyFile(const std::string& path) {
  auto read = ReadFile(path);
  if (!read) return Fail(read.Reason().reason);
  return std::move(read).Value();
}

Result<std::string, FileFailure> FakeFiles::ReadFile(const std::string& path) {
  if (const auto in_folder = InProgramFolder(path, ProgramFolder())) {
    const std::string folded = Folded(*in_folder);
    if (auto bytes = FakeFiles::ReadBytes(*in_folder)) return *std::move(bytes);
    if (!IsProgramFolder(folded)) return NotThere(IsProgramFolder(ParentOf(folded)));
  } else {
    const auto found = others_.find(path);
    if (found != others_.end()) return found->second;
    const std::string folder = path.ends_with('/') ? ParentOf(path) : path;
    if (!HasBelow(others_, folder)) return NotThere(HasBelow(others_, ParentOf(path)));
  }
  return Failed(FileFault::kNotUsable, std::errc::is_a_directory);
}

Result<void, FileFailure> FakeFiles::WriteFile(std::string_view path, std::string_view bytes) {
  const std::string folded = Folded(path);
  if (!ProgramPathParts(path) || folded.empty()) {
    return Failed(FileFault::kOther, std::errc::invalid_argument);
  }
  for (std::string above = ParentOf(folded); !above.empty(); above = ParentOf(above)) {
    if (laid_.contains(above)) return Failed(FileFault::kNoFolder, std::errc::not_a_directory);
  }
  if (HasBelow(laid_, folded)) return Failed(FileFault::kNotUsable, std::errc::is_a_directory);
  Lay(path, bytes);
  return {};
}

Result<void, FileFailure> FakeFiles::AppendFile(std::string_view path, std::string_view bytes) {
  const auto laid = laid_.find(Folded(path));
  if (laid == laid_.end()) return NotThere(true);
  laid->second.bytes += bytes;
  return {};
}

Result<void, FileFailure> FakeFiles::RemoveFile(std::string_view path) {
  return laid_.erase(Folded(path)) > 0 ? Result<void, FileFailure>() : NotThere(true);
}

std::optional<FolderListing> FakeFiles::ListFolder(const std::string& path) {
  const std::string start = path.ends_with('/') ? path : path + "/";
  std::set<std::string> folders;
  FolderListing listing;
  bool is_there = path == "/";
  for (const auto& [file, bytes] : others_) {
    if (!file.starts_with(start)) continue;
    is_there = true;
    const std::string name = file.substr(start.size(), file.find('/', start.size()) - start.size());
    if (start.size() + name.size() < file.size()) {
      folders.insert(name);
    } else if (FoldCase(name).ends_with(".EXE")) {
      listing.programs.push_back(name);
    }
  }
  if (!is_there) return std::nullopt;
  listing.folders.assign(folders.begin(), folders.end());
  SortWithoutCase(listing.folders);
  SortWithoutCase(listing.programs);
  return listing;
}

std::string FakeFiles::PathOf(const std::string& folder, const std::string& name) {
  if (name == "..") return folder.substr(0, std::max<std::size_t>(folder.rfind('/'), 1));
  return folder.ends_with('/') ? folder + name : folder + "/" + name;
}

}  // namespace kestrune::test
