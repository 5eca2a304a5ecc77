#include "platform/portable/inspection.h"

#include <dirent.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <system_error>
#include <utility>

#include "platform/case_fold.h"
#include "platform/portable/machine_description.h"
#include "platform/portable/store.h"
#include "platform/portable/whole_file.h"

namespace kestrune::platform::portable {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kDataFolder = "DATA";

std::string Absolute(const std::string& path) {
  std::error_code error;
  return fs::absolute(path, error).lexically_normal().string();
}

/// A path without links; nothing where it leads nowhere.
std::optional<std::string> Resolved(const std::string& path) {
  std::error_code error;
  const fs::path resolved = fs::canonical(path, error);
  return error ? std::nullopt : std::optional(resolved.string());
}

bool IsBelow(const std::string& path, const std::string& folder) {
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

/// What stands under a path itself, without following a link; 0 for nothing.
mode_t TypeOf(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0 ? status.st_mode & S_IFMT : 0;
}

/// Goes through folders and collects their files by path.
class Walk {
 public:
  /// All that stands in a folder, which may itself be a link, with what stands in those below it
  /// or without.
  void GoThrough(const std::string& folder, bool is_deep) {
    const auto root = Resolved(folder);
    if (!root) return;
    root_ = *root;
    is_deep_ = is_deep;
    seen_.clear();
    Folder(folder, root_);
  }
  void Add(FoundFile file) {
    std::string path = file.path;
    found_.emplace(std::move(path), std::move(file));
  }

  std::vector<FoundFile> Found() && {
    std::vector<FoundFile> list;
    list.reserve(found_.size());
    for (auto& [path, file] : found_) list.push_back(std::move(file));
    return list;
  }

 private:
  void Folder(const std::string& folder, const std::string& resolved) {
    if (!seen_.insert(resolved).second) return;
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(folder.c_str()), closedir);
    if (stream == nullptr) {
      return Add(
          {folder, true, "it can't be opened: " + std::generic_category().message(errno), true});
    }
    while (const dirent* entry = readdir(stream.get())) {
      const std::string_view name = entry->d_name;
      if (name == "." || name == "..") continue;
      const std::string path = std::string(folder).append(1, '/').append(name);
      const bool is_link =
          entry->d_type == DT_LNK || (entry->d_type == DT_UNKNOWN && S_ISLNK(TypeOf(path)));
      if (is_link) {
        Link(path);
      } else if (entry->d_type == DT_DIR ||
                 (entry->d_type == DT_UNKNOWN && S_ISDIR(TypeOf(path)))) {
        if (is_deep_) Folder(path, resolved + "/" + std::string(name));
      } else {
        Add({.path = path});
      }
    }
  }

  void Link(const std::string& path) {
    const auto target = Resolved(path);
    const bool is_folder = target && S_ISDIR(TypeOf(*target));
    if (is_folder && !is_deep_) return;
    if (target && !IsBelow(*target, root_)) {
      return Add({path, is_folder, "this link leads out of its folder and isn't followed", false});
    }
    if (is_folder) {
      Folder(path, *target);
    } else {
      Add({.path = path});
    }
  }

  std::string root_;  ///< the folder that is gone through, without links
  bool is_deep_ = false;
  std::set<std::string> seen_;  ///< folders, without links
  std::map<std::string, FoundFile> found_;
};

/// The folders of that name, in any case.
std::vector<std::string> FoldersNamed(std::string_view name, const std::string& folder) {
  std::vector<std::string> folders;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code unknown;
    if (SameWithoutCase(entry->path().filename().string(), name) && entry->is_directory(unknown)) {
      folders.push_back(entry->path().string());
    }
  }
  return folders;
}

}  // namespace

std::vector<FoundFile> PortableInspection::AllFiles() {
  Walk walk;
  for (const std::string& folder : places_.program_folders) {
    const std::string program = Absolute(folder);
    walk.GoThrough(program, false);
    for (const std::string& data : FoldersNamed(kDataFolder, program)) walk.GoThrough(data, true);
  }
  for (const std::string& folder : places_.machine_folders) walk.GoThrough(Absolute(folder), true);
  if (!places_.store_folder.empty()) walk.GoThrough(Absolute(places_.store_folder), false);
  if (!places_.store.empty() && TypeOf(places_.store) != 0)
    walk.Add({.path = Absolute(places_.store)});
  return std::move(walk).Found();
}

std::vector<std::string> PortableInspection::FilesIn(const std::string& folder) {
  std::vector<std::string> list;
  const std::string whole = Absolute(folder);
  for (const std::string& each : places_.program_folders) {
    const std::string program = Absolute(each);
    if (!IsBelow(whole, program)) continue;
    const std::string path = whole.substr(program.size()) + "/";
    for (const std::string& name : files_.ListFiles(path, "")) {
      if (auto file = files_.Locate(path + name)) list.push_back(std::move(*file));
    }
    return list;
  }
  for (const std::string& name : FolderFiles({whole}, 0).ListFiles("", "")) {
    list.push_back(whole + "/" + name);
  }
  return list;
}

std::string PortableInspection::WholePath(const std::string& file) { return Absolute(file); }

Result<std::string, FileFailure> PortableInspection::ReadFile(const std::string& file) {
  return ReadWholeFile(file);
}

Result<std::string, FileFailure> PortableInspection::ReadRegistryText(const std::string& file) {
  return ReadWholeFile(file, kLongestRegFile);
}

DescriptionCheck PortableInspection::CheckDescription(std::string_view text,
                                                      const std::string& file) {
  return CheckMachineDescription(text, file);
}

Findings PortableInspection::CheckStore(const std::string& file) { return Store::Check(file); }

Result<std::unique_ptr<Inspection>> PortableMachines::Inspect(const MachineOptions& options) {
  MachinePlaces places = FindPlaces(options, executable_folder_);
  const auto file = FindMachineDescription(places.machine, places.machine_folders);
  if (!file.Ok() && !options.machine.empty()) return Fail(file.Reason());
  MachineDescription machine;
  if (file.Ok()) {
    // A faulty description is for the check to tell.
    if (auto loaded = LoadMachineDescription(file.Value())) {
      machine = std::move(loaded.Value().description);
    }
  }
  return std::unique_ptr<Inspection>(
      std::make_unique<PortableInspection>(std::move(places), machine.code_page));
}

}  // namespace kestrune::platform::portable
