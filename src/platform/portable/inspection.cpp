#include "platform/portable/inspection.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <system_error>
#include <utility>

#include "platform/case_fold.h"
#include "platform/check_reg_file.h"
#include "platform/portable/machine_description.h"
#include "platform/portable/store.h"
#include "platform/portable/whole_file.h"
#include "platform/program_path.h"

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

/// The type of what stands under a path; 0 for nothing, and for a link to nowhere.
mode_t TypeBehindLinks(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 ? status.st_mode & S_IFMT : 0;
}

std::string Below(const std::string& folder, std::string_view name) {
  return std::string(folder).append(1, '/').append(name);
}

/// Goes through folders and collects their files by path.
class Walk {
 public:
  explicit Walk(FolderContents& contents) : contents_(contents) {}

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
    const FolderContents::Folder& content = contents_.Of(folder);
    if (content.error != 0) {
      const std::string reason = std::generic_category().message(content.error);
      return Add({folder, true, "it can't be opened: " + reason, true});
    }
    for (const auto& [name, type] : content.entries) {
      std::string path = Below(folder, name);
      if (type == FolderContents::Type::kLink) {
        Link(path);
      } else if (type != FolderContents::Type::kFolder) {
        Add({.path = std::move(path)});
      } else if (is_deep_) {
        Folder(path, Below(resolved, name));
      }
    }
  }

  void Link(const std::string& path) {
    const auto target = Resolved(path);
    const bool is_folder = target && S_ISDIR(TypeBehindLinks(*target));
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

  FolderContents& contents_;
  std::string root_;  ///< the folder that is gone through, without links
  bool is_deep_ = false;
  std::set<std::string> seen_;  ///< folders, without links
  std::map<std::string, FoundFile> found_;
};

}  // namespace

const FolderContents::Folder& FolderContents::Of(const std::string& path) {
  const auto [found, is_new] = folders_.try_emplace(path);
  Folder& folder = found->second;
  if (!is_new) return folder;
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(path.c_str()), closedir);
  if (stream == nullptr) folder.error = errno;
  while (const dirent* entry = stream == nullptr ? nullptr : readdir(stream.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") {
      folder.entries.push_back({std::string(name), TypeOf(Below(path, name), entry->d_type)});
    }
  }
  std::sort(folder.entries.begin(), folder.entries.end(),
            [](const Entry& a, const Entry& b) { return a.name < b.name; });
  return folder;
}

FolderContents::Type FolderContents::TypeOf(const std::string& path, unsigned char told) {
  if (told == DT_UNKNOWN) {
    struct stat status {};
    if (lstat(path.c_str(), &status) == 0) told = IFTODT(status.st_mode);
  }
  if (told == DT_LNK) return Type::kLink;
  if (told == DT_DIR) return Type::kFolder;
  return told == DT_REG ? Type::kFile : Type::kOther;
}

FolderContents::Type FolderContents::BehindLinks(const std::string& folder, const Entry& entry) {
  if (entry.type != Type::kLink) return entry.type;
  return TypeOf({}, IFTODT(TypeBehindLinks(Below(folder, entry.name))));
}

std::vector<std::string> FolderContents::FoldersAt(std::string_view below,
                                                   const std::string& folder) {
  std::vector<std::string> folders = {folder};
  const auto parts = ProgramPathParts(below);
  if (!parts) return {};
  for (const std::string_view name : *parts) {
    std::vector<std::string> next;
    for (const std::string& each : folders) {
      for (const Entry& entry : Of(each).entries) {
        if (SameWithoutCase(entry.name, name) && BehindLinks(each, entry) == Type::kFolder) {
          next.push_back(Below(each, entry.name));
        }
      }
    }
    folders = std::move(next);
  }
  return folders;
}

std::vector<FoundFile> PortableInspection::AllFiles() {
  Walk walk(contents_);
  for (const std::string& folder : places_.program_folders) {
    const std::string program = Absolute(folder);
    walk.GoThrough(program, false);
    for (const std::string& data : contents_.FoldersAt(kDataFolder, program)) {
      walk.GoThrough(data, true);
    }
  }
  for (const std::string& folder : places_.machine_folders) walk.GoThrough(Absolute(folder), true);
  if (!places_.store_folder.empty()) walk.GoThrough(Absolute(places_.store_folder), false);
  if (!places_.store.empty() && TypeBehindLinks(places_.store) != 0) {
    walk.Add({.path = Absolute(places_.store)});
  }
  return std::move(walk).Found();
}

std::vector<std::string> PortableInspection::FilesIn(const std::string& folder) {
  const std::string whole = Absolute(folder);
  std::vector<std::string> layers = {whole};
  std::string below;
  for (const std::string& each : places_.program_folders) {
    const std::string program = Absolute(each);
    if (!IsBelow(whole, program)) continue;
    below = whole.substr(program.size());
    layers = places_.program_folders;
    break;
  }
  std::map<std::string, std::string> paths;
  const auto add = [&](const std::string& there) {
    for (const FolderContents::Entry& entry : contents_.Of(there).entries) {
      if (contents_.BehindLinks(there, entry) != FolderContents::Type::kFile) continue;
      paths.emplace(FoldCase(entry.name), Below(there, entry.name));
    }
  };
  for (const std::string& layer : layers) {
    for (const std::string& there : contents_.FoldersAt(below, Absolute(layer))) add(there);
  }
  std::vector<std::string> list;
  list.reserve(paths.size());
  for (auto& [folded, path] : paths) list.push_back(std::move(path));
  return list;
}

std::string PortableInspection::WholePath(const std::string& file) { return Absolute(file); }

Result<std::string, FileFailure> PortableInspection::ReadFile(const std::string& file) {
  return ReadWholeFile(file);
}

Result<Findings, FileFailure> PortableInspection::CheckRegistryText(const std::string& file) {
  if (const auto known = registry_texts_.find(file); known != registry_texts_.end()) {
    return known->second;
  }
  using Checked = Result<Findings, FileFailure>;
  const auto bytes = ReadWholeFile(file, kLongestRegFile);
  Checked checked =
      bytes ? Checked(CheckRegFile(bytes.Value(), files_)) : Checked(FailWith(bytes.Reason()));
  return registry_texts_.emplace(file, std::move(checked)).first->second;
}

DescriptionCheck PortableInspection::CheckDescription(std::string_view text,
                                                      const std::string& file) {
  return CheckMachineDescription(
      text, file, [this](const std::string& registry) { return CheckRegistryText(registry); });
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
