#include "platform/portable/folder_listing.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <set>
#include <utility>

#include "platform/case_fold.h"

namespace kestrune::platform::portable {
namespace {

constexpr std::string_view kPlacesOfDrives[] = {"/media/", "/mnt/", "/run/media/"};

/// The entry's type; that of its target for a link.
mode_t TypeOf(const std::string& path, const dirent& entry) {
  if (entry.d_type == DT_REG) return S_IFREG;
  if (entry.d_type == DT_DIR) return S_IFDIR;
  struct stat status {};
  return stat(path.c_str(), &status) == 0 ? status.st_mode & S_IFMT : 0;
}

bool IsProgram(const std::string& path, std::string_view name, ProgramNames programs) {
  if (name.starts_with('.')) return false;
  if (programs == ProgramNames::kExe) return FoldCase(name).ends_with(".EXE");
  return access(path.c_str(), X_OK) == 0;
}

bool IsOctal(char c) { return c >= '0' && c <= '7'; }

/// Blanks and other odd bytes stand in the table as a backslash with three octal digits.
std::string Unescaped(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    const bool is_escape = text.size() >= 4 && text[0] == '\\' && IsOctal(text[1]) &&
                           IsOctal(text[2]) && IsOctal(text[3]);
    plain += is_escape
                 ? static_cast<char>((text[1] - '0') << 6 | (text[2] - '0') << 3 | (text[3] - '0'))
                 : text.front();
    text.remove_prefix(is_escape ? 4 : 1);
  }
  return plain;
}

std::string_view TakeUpTo(std::string_view& text, char end) {
  const std::string_view taken = text.substr(0, text.find(end));
  text.remove_prefix(std::min(taken.size() + 1, text.size()));
  return taken;
}

}  // namespace

std::optional<FolderListing> ListPrograms(const std::string& folder, ProgramNames programs) {
  if (folder.find('\0') != folder.npos) return std::nullopt;
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(folder.c_str()), closedir);
  if (stream == nullptr) return std::nullopt;
  FolderListing listing;
  while (const dirent* entry = readdir(stream.get())) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    const std::string path = std::string(folder).append(1, '/').append(name);
    const mode_t type = TypeOf(path, *entry);
    if (type == S_IFDIR) listing.folders.emplace_back(name);
    if (type == S_IFREG && IsProgram(path, name, programs)) listing.programs.emplace_back(name);
  }
  SortWithoutCase(listing.folders);
  SortWithoutCase(listing.programs);
  return listing;
}

std::vector<std::string> DrivesAmong(std::string_view mounts) {
  std::set<std::string> mounted;
  while (!mounts.empty()) {
    std::string_view line = TakeUpTo(mounts, '\n');
    TakeUpTo(line, ' ');
    std::string place = Unescaped(TakeUpTo(line, ' '));
    const auto holds = [&place](std::string_view start) { return place.starts_with(start); };
    if (std::any_of(std::begin(kPlacesOfDrives), std::end(kPlacesOfDrives), holds)) {
      mounted.insert(std::move(place));
    }
  }
  std::vector<std::string> drives = {"/"};
  drives.insert(drives.end(), mounted.begin(), mounted.end());
  return drives;
}

}  // namespace kestrune::platform::portable
