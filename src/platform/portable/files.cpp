#include "platform/portable/files.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <map>
#include <memory>
#include <span>

#include "platform/case_fold.h"
#include "platform/portable/whole_file.h"

namespace kestrune::platform::portable {
namespace {

using Parts = std::vector<std::string_view>;

enum class Kind { kNothing, kFile, kFolder };

Kind KindOf(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return Kind::kNothing;
  if (S_ISREG(status.st_mode)) return Kind::kFile;
  return S_ISDIR(status.st_mode) ? Kind::kFolder : Kind::kNothing;
}

std::string Below(const std::string& folder, std::string_view name) {
  return std::string(folder).append(1, '/').append(name);
}

/// The parts of a path; nothing for one that can't lie in the program folder.
std::optional<Parts> Split(std::string_view path) {
  if (path.find('\0') != path.npos) return std::nullopt;
  Parts parts;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of("\\/"), path.size());
    const std::string_view part = path.substr(0, end);
    if (part == "..") return std::nullopt;
    if (!part.empty() && part != ".") parts.push_back(part);
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return parts;
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

unsigned ByteAt(std::string_view bytes, std::size_t at) {
  return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

/// Whether a JPEG's segments lead from its start over a frame of some size to its picture data,
/// and its closing mark is there.
bool IsJpeg(std::string_view bytes) {
  if (!bytes.starts_with("\xFF\xD8") || bytes.rfind("\xFF\xD9") == bytes.npos) return false;
  bool has_frame = false;
  for (std::size_t at = 2; at + 4 <= bytes.size();) {
    if (ByteAt(bytes, at) != 0xFF) return false;
    const unsigned mark = ByteAt(bytes, at + 1);
    if (mark == 0xFF) {
      ++at;
      continue;
    }
    if (mark == 0xDA) return has_frame;
    const bool is_frame =
        mark >= 0xC0 && mark <= 0xCF && mark != 0xC4 && mark != 0xC8 && mark != 0xCC;
    const unsigned width = ByteAt(bytes, at + 7) << 8 | ByteAt(bytes, at + 8);
    if (is_frame && width > 0) has_frame = true;
    at += 2 + (ByteAt(bytes, at + 2) << 8 | ByteAt(bytes, at + 3));
  }
  return false;
}

bool IsPng(std::string_view bytes) {
  return bytes.starts_with("\x89PNG\r\n\x1A\n") && bytes.substr(12, 4) == "IHDR" &&
         bytes.find("IEND") != bytes.npos;
}

bool IsBmp(std::string_view bytes) {
  const std::size_t pixels = ByteAt(bytes, 10) | ByteAt(bytes, 11) << 8 | ByteAt(bytes, 12) << 16;
  return bytes.starts_with("BM") && pixels >= 26 && pixels < bytes.size();
}

}  // namespace

std::optional<std::string> FolderFiles::Locate(std::string_view path) {
  const std::optional<Parts> parts = Split(path);
  std::optional<std::string> found;
  if (!parts || parts->empty()) return found;
  for (const std::string& folder : folders_) {
    Search(folder, *parts, [&found](const std::string& candidate) {
      if (KindOf(candidate) == Kind::kFile) found = candidate;
      return found.has_value();
    });
    if (found) break;
  }
  return found;
}

std::optional<std::string> FolderFiles::ReadBytes(std::string_view path) {
  const std::optional<std::string> file = Locate(path);
  if (!file) return std::nullopt;
  Result<std::string> bytes = ReadWholeFile(*file);
  if (!bytes.Ok()) return std::nullopt;
  return std::move(bytes).Value();
}

Result<std::string> FolderFiles::ReadAnyFile(const std::string& path) {
  return ReadWholeFile(path, kLongestRegFile, PipesToo::kYes);
}

std::vector<std::string> FolderFiles::ListFiles(std::string_view folder, std::string_view ending) {
  const std::optional<Parts> parts = Split(folder);
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

bool FolderFiles::IsPicture(std::string_view path) {
  const std::optional<std::string> bytes = ReadBytes(path);
  return bytes && (IsJpeg(*bytes) || IsPng(*bytes) || IsBmp(*bytes));
}

}  // namespace kestrune::platform::portable
