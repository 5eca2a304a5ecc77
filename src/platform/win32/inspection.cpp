#include "platform/win32/inspection.h"

#include <algorithm>

#include "platform/case_fold.h"
#include "platform/check_reg_file.h"
#include "platform/file_limits.h"
#include "platform/win32/file_calls.h"
#include "platform/win32/text.h"

namespace kestrune::platform::win32 {

namespace {

constexpr const char* kNotHere = "a program for Windows works on its own computer and reads none";

std::string WithSlashes(std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

/// All that stands in a folder, and below it.
void GoThrough(const std::string& folder, std::vector<FoundFile>& found) {
  auto entries = EntriesOf(folder);
  if (!entries) return;
  std::sort(entries->begin(), entries->end(),
            [](const FolderEntry& a, const FolderEntry& b) { return a.name < b.name; });
  for (const FolderEntry& entry : *entries) {
    const std::string path = folder + '/' + entry.name;
    if (entry.is_link) {
      found.push_back({path, entry.is_folder, "this link isn't followed", false});
    } else if (entry.is_folder) {
      GoThrough(path, found);
    } else {
      found.push_back({.path = path});
    }
  }
}

}  // namespace

ProgramInspection::ProgramInspection(const std::string& program_folder,
                                     const std::string& own_folder)
    : pages_(SystemCodePage()), files_(program_folder, own_folder, pages_) {
  for (const std::string& folder : {own_folder, program_folder}) {
    if (!folder.empty()) folders_.push_back(WithSlashes(folder));
  }
}

std::vector<FoundFile> ProgramInspection::AllFiles() {
  std::vector<FoundFile> found;
  for (const std::string& folder : folders_) GoThrough(folder + "/DATA", found);
  return found;
}

std::vector<std::string> ProgramInspection::FilesIn(const std::string& folder) {
  std::vector<std::string> list;
  const std::string whole = WholePath(folder);
  for (const std::string& program : folders_) {
    if (!FoldCase(whole).starts_with(FoldCase(program) + "/")) continue;
    const std::string path = whole.substr(program.size()) + "/";
    for (const std::string& name : files_.ListFiles(path, "")) {
      if (auto file = files_.Locate(path + name)) list.push_back(WithSlashes(*std::move(file)));
    }
    return list;
  }
  const auto entries = EntriesOf(whole);
  if (!entries) return list;
  for (const FolderEntry& entry : *entries) {
    if (!entry.is_folder) list.push_back(whole + '/' + entry.name);
  }
  std::sort(list.begin(), list.end());
  return list;
}

std::string ProgramInspection::WholePath(const std::string& file) {
  return WithSlashes(WholePathOf(file));
}

Result<std::string, FileFailure> ProgramInspection::ReadFile(const std::string& file) {
  return ReadWholeFile(file, kLongestDataFile);
}

Result<Findings, FileFailure> ProgramInspection::CheckRegistryText(const std::string& file) {
  const auto bytes = ReadWholeFile(file, kLongestRegFile);
  if (!bytes) return FailWith(bytes.Reason());
  return CheckRegFile(bytes.Value(), files_);
}

DescriptionCheck ProgramInspection::CheckDescription(std::string_view /*text*/,
                                                     const std::string& /*file*/) {
  return {{{0, std::string("this is a description of a machine; ") + kNotHere}}, {}};
}

Findings ProgramInspection::CheckStore(const std::string& /*file*/) {
  return {{0, std::string("this is a registry store; ") + kNotHere}};
}

}  // namespace kestrune::platform::win32
