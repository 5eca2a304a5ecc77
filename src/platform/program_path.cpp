#include "platform/program_path.h"

#include <algorithm>

namespace kestrune::platform {

namespace {

constexpr std::string_view kSeparators = "\\/";

}  // namespace

std::optional<std::vector<std::string_view>> ProgramPathParts(std::string_view path) {
  if (path.find('\0') != path.npos) return std::nullopt;
  std::vector<std::string_view> parts;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of(kSeparators), path.size());
    const std::string_view part = path.substr(0, end);
    if (part == "..") return std::nullopt;
    if (!part.empty() && part != ".") parts.push_back(part);
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return parts;
}

std::string ProgramPathText(std::string_view path) {
  const auto parts = ProgramPathParts(path);
  if (!parts) return std::string(path);
  std::string text;
  for (const std::string_view part : *parts) text.append(text.empty() ? "" : "/").append(part);
  return text;
}

std::optional<std::string_view> InProgramFolder(std::string_view path, std::string_view folder) {
  if (!path.starts_with(folder)) return std::nullopt;
  const std::string_view rest = path.substr(folder.size());
  const bool is_below = !rest.empty() && kSeparators.find(rest.front()) != kSeparators.npos;
  return is_below && ProgramPathParts(rest) ? std::optional(rest) : std::nullopt;
}

}  // namespace kestrune::platform
