#include "platform/key_address.h"

#include <algorithm>

#include "platform/case_fold.h"

namespace kestrune::platform {

namespace {

struct RootRow {
  RegRoot root;
  std::string_view name;
  std::string_view long_name;
};

constexpr RootRow kRoots[] = {
    {RegRoot::kLocalMachine, "HKLM", "HKEY_LOCAL_MACHINE"},
    {RegRoot::kCurrentUser, "HKCU", "HKEY_CURRENT_USER"},
    {RegRoot::kClassesRoot, "HKCR", "HKEY_CLASSES_ROOT"},
};

}  // namespace

std::string_view RootName(RegRoot root) {
  for (const RootRow& row : kRoots) {
    if (row.root == root) return row.name;
  }
  return "?";
}

std::string_view LongRootName(RegRoot root) {
  for (const RootRow& row : kRoots) {
    if (row.root == root) return row.long_name;
  }
  return {};
}

std::optional<RegRoot> RootNamed(std::string_view long_name) {
  for (const RootRow& row : kRoots) {
    if (SameWithoutCase(long_name, row.long_name)) return row.root;
  }
  return std::nullopt;
}

std::optional<KeyAddress> ParseKey(std::string_view text) {
  const std::size_t end = std::min(text.find('\\'), text.size());
  const std::string_view name = text.substr(0, end);
  for (const RootRow& row : kRoots) {
    if (!SameWithoutCase(name, row.name) && !SameWithoutCase(name, row.long_name)) continue;
    return KeyAddress{row.root, std::string(text.substr(std::min(end + 1, text.size())))};
  }
  return std::nullopt;
}

std::string_view WithoutLastBackslash(std::string_view path) {
  if (path.ends_with('\\')) path.remove_suffix(1);
  return path;
}

RegStatus FoldKeyPath(RegRoot root, std::string_view& path, std::string& folded) {
  folded = LongRootName(root);
  if (folded.empty()) return RegStatus::kInvalidHandle;
  if (path.starts_with('\\')) return RegStatus::kBadPath;
  path = WithoutLastBackslash(path);
  if (path.ends_with('\\') || path.find("\\\\") != path.npos) return RegStatus::kBadPath;
  if (!path.empty()) folded.append(1, '\\').append(FoldCase(path));
  return RegStatus::kSuccess;
}

std::string KeyText(RegRoot root, std::string_view path) {
  return std::string(RootName(root)) + "\\" + std::string(path);
}

}  // namespace kestrune::platform
