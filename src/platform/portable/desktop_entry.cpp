#include "platform/portable/desktop_entry.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/portable/spawn.h"
#include "platform/portable/user_folders.h"
#include "platform/portable/whole_file.h"

namespace kestrune::platform::portable {
namespace {

constexpr const char* kEntryName = "kestrune.desktop";
constexpr const char* kMimeType = "application/x-kestrune-profile";

constexpr const char* kOwnPlaces[] = {"KESTRUNE_STORE", "KESTRUNE_MACHINE",
                                      "KESTRUNE_PROGRAM_FOLDER"};

/// A character, and how it is written where it has a meaning of its own.
struct Escape {
  char character;
  std::string_view written;
};

// Within the quotes of a command line, which knows placeholders too.
constexpr Escape kInQuotes[] = {
    {'"', "\\\""}, {'`', "\\`"}, {'$', "\\$"}, {'\\', "\\\\"}, {'%', "%%"}};
// In any text of a desktop entry.
constexpr Escape kInValues[] = {{'\\', "\\\\"}, {'\n', "\\n"}, {'\r', "\\r"}, {'\t', "\\t"}};

template <std::size_t size>
std::string Escaped(std::string_view text, const Escape (&escapes)[size]) {
  std::string escaped;
  for (const char c : text) {
    const auto* const found = std::find_if(std::begin(escapes), std::end(escapes),
                                           [c](const Escape& e) { return e.character == c; });
    if (found == std::end(escapes)) {
      escaped += c;
    } else {
      escaped += found->written;
    }
  }
  return escaped;
}

std::string MimePackage() {
  return std::string(
             "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
             "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
             "  <mime-type type=\"")
      .append(kMimeType)
      .append(
          "\">\n"
          "    <comment>Kestrune speed profile</comment>\n"
          // Desktops know the ending as that of a spreadsheet, with the usual weight of 50.
          "    <glob pattern=\"*.ksp\" weight=\"80\"/>\n"
          "  </mime-type>\n"
          "</mime-info>\n");
}

/// A text of a desktop entry as it is meant.
std::string Unescaped(std::string_view value) {
  std::string text;
  for (std::size_t at = 0; at < value.size(); ++at) {
    if (value[at] != '\\' || at + 1 == value.size()) {
      text += value[at];
      continue;
    }
    const char next = value[++at];
    text += next == 's' ? ' ' : next == 'n' ? '\n' : next == 't' ? '\t' : next == 'r' ? '\r' : next;
  }
  return text;
}

/// The program that a desktop entry's command line begins with.
std::string FirstWord(std::string_view line) {
  std::string word;
  bool in_quotes = false;
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (!in_quotes && line[at] == ' ') break;
    if (line[at] == '"') {
      in_quotes = !in_quotes;
      continue;
    }
    if (line[at] == '\\' && in_quotes && at + 1 < line.size()) ++at;
    if (line[at] == '%' && at + 1 < line.size() && line[at + 1] == '%') ++at;
    word += line[at];
  }
  return word;
}

/// The programs that a desktop entry starts, itself and by its actions.
std::vector<std::string> ProgramsOf(std::string_view entry) {
  constexpr std::string_view kKey = "Exec=";
  std::vector<std::string> programs;
  while (!entry.empty()) {
    const std::string_view line = entry.substr(0, entry.find('\n'));
    entry.remove_prefix(std::min(line.size() + 1, entry.size()));
    if (!line.starts_with(kKey)) continue;
    const std::string name = FirstWord(Unescaped(line.substr(kKey.size())));
    const bool is_path = name.find('/') != name.npos;
    std::optional<std::string> file = is_path ? name : FindAlongPath(name, "");
    if (file) programs.push_back(std::move(*file));
  }
  return programs;
}

bool StartsProgram(const std::filesystem::path& entry, const std::string& program) {
  if (entry.extension() != ".desktop") return false;
  const auto bytes = ReadWholeFile(entry.string());
  if (!bytes) return false;
  const std::vector<std::string> programs = ProgramsOf(bytes.Value());
  return std::any_of(programs.begin(), programs.end(), [&program](const std::string& file) {
    std::error_code error;
    return std::filesystem::equivalent(file, program, error);
  });
}

bool IsInstalled(const std::string& program) {
  for (const std::string& folder : DataFolders()) {
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder + "/applications", error), end;
         !error && entry != end; entry.increment(error)) {
      if (StartsProgram(entry->path(), program)) return true;
    }
  }
  return false;
}

/// A file in the user's folder, and what the desktop calls to take notice of it.
struct OwnFile {
  const char* folder;
  const char* name;
  std::string bytes;
  const char* refresh;
  const char* refreshed;  ///< the folder that it is told

  std::string Folder() const { return DataHome() + "/" + folder; }
  bool IsThere() const {
    const auto present = ReadWholeFile(Folder() + "/" + name);
    return present && present.Value() == bytes;
  }
  void Write() const {
    std::error_code error;
    std::filesystem::create_directories(Folder(), error);
    if (error || !ReplaceFiles(Folder(), {name}, bytes)) return;
    const std::optional<std::string> program = FindAlongPath(refresh, "");
    if (program) (void)Spawn(*program, {refresh, DataHome() + "/" + refreshed}, "");
  }
};

}  // namespace

std::string DesktopEntry(const std::string& program) {
  const std::string quoted = '"' + Escaped(program, kInQuotes) + '"';
  return "[Desktop Entry]\n"
         "Type=Application\n"
         "Name=Kestrune\n"
         "Comment=Change the settings of the display driver\n"
         "Exec=" +
         Escaped(quoted, kInValues) +
         " %f\n"
         "Icon=kestrune\n"
         "Categories=Settings;HardwareSettings;\n"
         "MimeType=" +
         kMimeType + ";\n";
}

void AssociateProfiles(const std::string& program) {
  const auto is_given = [](const char* name) { return !Environment(name).empty(); };
  const bool has_own_places = std::any_of(std::begin(kOwnPlaces), std::end(kOwnPlaces), is_given);
  std::error_code error;
  if (has_own_places || DataHome().empty() || !std::filesystem::is_regular_file(program, error)) {
    return;
  }
  const OwnFile files[] = {
      {"mime/packages", "kestrune.xml", MimePackage(), "update-mime-database", "mime"},
      {"applications", kEntryName, DesktopEntry(program), "update-desktop-database",
       "applications"},
  };
  const auto is_there = [](const OwnFile& file) { return file.IsThere(); };
  if (std::all_of(std::begin(files), std::end(files), is_there) || IsInstalled(program)) return;
  for (const OwnFile& file : files) {
    if (!file.IsThere()) file.Write();
  }
}

}  // namespace kestrune::platform::portable
