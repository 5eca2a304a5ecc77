// Whether every include of the sources and the tools goes down through the layers.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ui/forms/about_window.h"

namespace kestrune {
namespace {

namespace fs = std::filesystem;

/// A folder may include itself, the folders named here and all that those may include. What stands
/// below src is named without it.
struct Layer {
  std::string_view folder;
  std::string_view below[2] = {};
};

constexpr Layer kLayers[] = {
    {"platform"},
    {"platform/portable", {"platform"}},
    {"platform/win32", {"platform"}},
    {"core", {"platform"}},
    {"controls", {"platform"}},
    {"lang", {"core"}},
    {"detect", {"lang", "controls"}},
    {"settings", {"detect"}},
    {"d3d", {"settings"}},
    {"ogl", {"d3d"}},
    {"monitor", {"ogl"}},
    {"clocks", {"monitor"}},
    {"cpl", {"clocks"}},
    {"catalogue", {"cpl"}},
    {"regedit", {"catalogue"}},
    {"profiles", {"regedit"}},
    {"wizard", {"profiles"}},
    {"ui/forms", {"wizard"}},
    {"ui/face", {"ui/forms"}},
    {"ui/qt", {"ui/face"}},
    {"ui/win32", {"ui/face"}},
    {"cli", {"ui/forms"}},
    {"tools/pictures"},
    {"tools/cards"},
    {"tools/databases", {"regedit"}},
    {"tools/d3dinfo", {"platform/portable"}},
    {"tools/tuning", {"wizard", "tools/cards"}},
    {"tools/screenshots", {"ui/qt"}},
};

/// A file that includes a folder which its own folder may not.
struct Exception {
  std::string_view file;
  std::string_view folder;
};

/// Only a program's main file names a particular machine.
constexpr Exception kMainFiles[] = {
    {"cli/main.cpp", "platform/portable"},
    {"cli/main_win32.cpp", "platform/win32"},
    {"ui/qt/main.cpp", "platform/portable"},
    {"ui/win32/main.cpp", "platform/win32"},
    {"tools/screenshots/main.cpp", "platform/portable"},
};

/// What isn't the project's own, and the only folders that include it. The first row whose
/// expression matches the whole name counts; a name that none matches is free.
struct Outside {
  const char* name;
  std::string_view folders[5];
};

constexpr Outside kOutside[] = {
    {"Q.*", {"ui/qt", "tools/pictures", "tools/screenshots"}},
    {"(CLI|nlohmann)/.*", {"cli"}},
    {R"(sqlite3\.h|toml\+\+/.*)", {"platform/portable"}},
    // Whatever is no header of the C++ library is taken for one of a system.
    {R"(.*[./].*)", {"platform/portable", "platform/win32", "ui/win32", "tools/d3dinfo"}},
    // These need functions of the system that the oldest ones lack, so that no program starts.
    {"[io]?stream|[io]?fstream|iostream|sstream|streambuf|syncstream|iomanip|filesystem|regex|"
     "thread|mutex|shared_mutex|condition_variable|future",
     {"platform/portable", "ui/qt", "cli", "tools/pictures", "tools/screenshots"}},
};

const Layer* LayerOf(std::string_view folder) {
  const Layer* end = std::end(kLayers);
  const Layer* found = std::find_if(std::begin(kLayers), end,
                                    [&](const Layer& layer) { return layer.folder == folder; });
  return found == end ? nullptr : found;
}

bool MayInclude(std::string_view folder, std::string_view included) {
  if (folder == included) return true;
  const Layer* layer = LayerOf(folder);
  return layer != nullptr &&
         std::any_of(std::begin(layer->below), std::end(layer->below), [&](std::string_view below) {
           return !below.empty() && MayInclude(below, included);
         });
}

template <typename Table>
bool IsExcepted(const Table& table, std::string_view file, std::string_view folder) {
  return std::any_of(std::begin(table), std::end(table), [&](const Exception& each) {
    return each.file == file && each.folder == folder;
  });
}

/// Where a file is that the tables name.
fs::path PathOf(std::string_view file) {
  return fs::path(KESTRUNE_SOURCE_FOLDER) / (file.starts_with("tools/") ? "" : "src") / file;
}

std::string FolderOf(std::string_view file) { return fs::path(file).parent_path().string(); }

/// The layer that `file` includes by `name`; none for what isn't the project's own.
const Layer* IncludedLayer(std::string_view file, std::string_view name) {
  const bool has_folder = name.find('/') != std::string_view::npos;
  const bool is_beside = !has_folder && fs::exists(PathOf(file).parent_path() / name);
  return LayerOf(FolderOf(is_beside ? file : name));
}

/// Why `folder` may not include something from outside; empty when it may.
std::string WhyNotOutside(std::string_view folder, const std::string& name) {
  for (const Outside& row : kOutside) {
    if (!std::regex_match(name, std::regex(row.name))) continue;
    std::string why = "it is only for";
    for (const std::string_view allowed : row.folders) {
      if (allowed == folder) return "";
      if (!allowed.empty()) why += " " + std::string(allowed);
    }
    return why;
  }
  return "";
}

/// Why `file` may not include `name`; empty when it may.
std::string WhyNot(std::string_view file, const std::string& name) {
  const std::string folder = FolderOf(file);
  if (LayerOf(folder) == nullptr) return folder + " has no row in the table of layers";
  const Layer* included = IncludedLayer(file, name);
  if (included == nullptr) return WhyNotOutside(folder, name);
  const bool may =
      MayInclude(folder, included->folder) || IsExcepted(kMainFiles, file, included->folder);
  return may ? "" : std::string(included->folder) + " doesn't stand below " + folder;
}

struct Include {
  std::string file;
  int line = 0;
  std::string name;
};

void AddIncludes(const std::string& file, std::vector<Include>& includes) {
  static const std::regex kInclude(R"(\s*#\s*include\s*[<"]([^>"]*).*)");
  std::ifstream text(PathOf(file));
  std::string line;
  for (int number = 1; std::getline(text, line); ++number) {
    std::smatch parts;
    if (std::regex_match(line, parts, kInclude)) includes.push_back({file, number, parts[1]});
  }
}

std::vector<Include> AllIncludes() {
  const fs::path root = KESTRUNE_SOURCE_FOLDER;
  const std::pair<const char*, fs::path> tops[] = {{"src", root / "src"}, {"tools", root}};
  std::vector<Include> all;
  for (const auto& [top, base] : tops) {
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root / top)) {
      const fs::path& path = entry.path();
      if (path.extension() != ".h" && path.extension() != ".cpp") continue;
      AddIncludes(path.lexically_relative(base).generic_string(), all);
    }
  }
  return all;
}

TEST(Layers, EveryIncludeGoesDown) {
  const std::vector<Include> all = AllIncludes();
  ASSERT_FALSE(all.empty());
  for (const auto& [file, line, name] : all) {
    const std::string why = WhyNot(file, name);
    if (why.empty()) continue;
    ADD_FAILURE() << PathOf(file).string() << ":" << line << " includes " << name << ", but "
                  << why;
  }
}

/// The first rows of kOutside, which are libraries.
constexpr std::size_t kLibraries = 3;

TEST(Layers, EveryLibraryHasItsLicenceInTheAboutWindow) {
  std::set<std::string_view> used;
  for (const Include& include : AllIncludes()) {
    const std::string& name = include.name;
    const bool is_library = include.file.find("tools/") != 0 &&
                            std::any_of(std::begin(kOutside), std::begin(kOutside) + kLibraries,
                                        [&](const Outside& row) {
                                          return std::regex_match(name, std::regex(row.name));
                                        });
    if (!is_library) continue;
    const auto licence =
        std::find_if(forms::kLicences.begin(), forms::kLicences.end(),
                     [&](const forms::LicenceRow& row) { return name.starts_with(row.headers); });
    if (licence == forms::kLicences.end()) {
      ADD_FAILURE() << include.file << ":" << include.line << " includes " << name
                    << ", which has no licence";
    } else {
      used.insert(licence->library);
    }
  }
  for (const forms::LicenceRow& row : forms::kLicences) {
    EXPECT_TRUE(used.contains(row.library)) << row.library << " isn't used";
  }
}

TEST(Layers, ForbiddenIncludesAreSeen) {
  struct Case {
    const char* file;
    const char* name;
    bool is_allowed;
  };
  constexpr Case kCases[] = {
      {"core/a.cpp", "platform/dword.h", true},
      {"core/a.cpp", "lang/language.h", false},
      {"controls/a.cpp", "core/number.h", false},
      {"detect/a.cpp", "core/number.h", true},
      {"ogl/a.cpp", "d3d/d3d.h", true},
      {"d3d/a.cpp", "ogl/ogl.h", false},
      {"clocks/a.cpp", "cpl/control_panel.h", false},
      {"platform/a.cpp", "platform/portable/store.h", false},
      {"ui/qt/face.cpp", "platform/portable/store.h", false},
      {"ui/qt/main.cpp", "platform/portable/store.h", true},
      {"cli/a.cpp", "ui/face/a.h", false},
      {"cli/a.cpp", "ui/qt/face.h", false},
      {"ui/forms/a.cpp", "cli/script.h", false},
      {"ui/forms/form.cpp", "form.h", true},
      {"tools/pictures/main.cpp", "scene.h", true},
      {"tools/pictures/main.cpp", "core/number.h", false},
      {"d3d/a.cpp", "../ogl/ogl.h", false},
      {"new/a.cpp", "new/a.h", false},
      {"ui/forms/a.cpp", "QString", false},
      {"ui/forms/a.cpp", "QtCore/QString", false},
      {"ui/qt/a.cpp", "QString", true},
      {"core/a.cpp", "sqlite3.h", false},
      {"platform/win32/a.cpp", "sqlite3.h", false},
      {"platform/win32/a.cpp", "windows.h", true},
      {"ui/forms/a.cpp", "nlohmann/json.hpp", false},
      {"ui/qt/a.cpp", "CLI/CLI.hpp", false},
      {"cli/a.cpp", "sys/stat.h", false},
      {"ui/forms/a.cpp", "sstream", false},
      {"platform/a.cpp", "iostream", false},
      {"core/a.h", "fstream", false},
      {"detect/a.cpp", "filesystem", false},
      {"lang/a.cpp", "regex", false},
      {"monitor/a.cpp", "thread", false},
      {"ui/face/a.cpp", "mutex", false},
      {"platform/win32/a.cpp", "filesystem", false},
      {"platform/portable/a.cpp", "filesystem", true},
      {"cli/a.cpp", "iostream", true},
      {"ui/forms/a.cpp", "cstdio", true},
  };
  for (const Case& each : kCases) {
    EXPECT_EQ(WhyNot(each.file, each.name).empty(), each.is_allowed)
        << each.file << " and " << each.name;
  }
}

}  // namespace
}  // namespace kestrune
