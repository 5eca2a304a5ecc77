#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files_api.h"

/// The database files DATA\Database\<release><tag>.dat, which say what values a driver's release
/// knows. They are read in the machine's code page and never written.
namespace kestrune::regedit {

enum class Category { kDirect3D, kOpenGL, kSystem };

/// Where the first four characters of a name in a file are none of the value's.
enum class Drops {
  kNever,
  kOnWindows9x,
  kOnWindows9xOrFrom2961,  ///< and with every driver from 29.61 on
  kAlways,
};

struct CategoryRow {
  Category category;
  std::string_view tag;     ///< ends the names of its files
  std::string_view prefix;  ///< begins the names of its values, in any case
  std::string_view name;    ///< in every language
  std::string_view subkey;  ///< of the driver's key on Windows 9x; empty: the tweak key everywhere
  Drops drops;              ///< where a value is edited or deleted
  Drops saved_drops;        ///< where it is read for a profile; names of up to four characters stay
};

/// In the order of the editor's list.
inline constexpr CategoryRow kCategories[] = {
    {Category::kDirect3D, "d3d", "D3D_", "Direct3D", "\\NVidia\\Direct3D", Drops::kAlways,
     Drops::kOnWindows9xOrFrom2961},
    {Category::kOpenGL, "ogl", "OGL_", "OpenGL", "\\NVidia\\OpenGL", Drops::kOnWindows9x,
     Drops::kOnWindows9x},
    {Category::kSystem, "sys", "", "System / Control panel", "", Drops::kNever, Drops::kNever}};

const CategoryRow& RowOf(Category category);

inline constexpr std::string_view kDatabaseFolder = "DATA/Database/";
inline constexpr std::size_t kMostValues = 9;
inline constexpr std::size_t kMostEditorEntries = 201;
inline constexpr std::size_t kMostProfileEntries = 101;
/// What ends a record.
inline constexpr std::string_view kTerminator = "x";
/// What stands for a description that doesn't exist.
inline constexpr std::string_view kNoDescription = "?";

/// A value that a release knows. `name` is the file's, of which some users drop the beginning.
struct DatabaseEntry {
  std::string name;
  std::string description;
  std::vector<std::int32_t> values;  ///< as they were read, at most kMostValues; 0 for no number

  bool operator==(const DatabaseEntry&) const = default;
};

/// The file that is chosen for a driver, and what it holds.
struct Database {
  std::string file;                                   ///< base name
  std::optional<std::vector<DatabaseEntry>> entries;  ///< none where it can't be opened
};

/// The base name ("6177ogl") of the file for a driver: that of its release, else of the nearest one
/// below it, else the fall-back "0000ogl". The file need not exist.
std::string FindDatabaseFile(platform::FilesApi& files, Category category, int driver);
/// The entries of a file, at most `most`; nothing when it can't be opened.
std::optional<std::vector<DatabaseEntry>> LoadDatabaseFile(platform::FilesApi& files,
                                                           std::string_view base_name,
                                                           std::size_t most);
/// Chooses a category's file for a driver and loads it.
Database OpenDatabase(platform::FilesApi& files, Category category, int driver, std::size_t most);
/// The numbers that the editor offers: those of the file up to their second 0, where the slots that
/// a file leaves free hold 0. A place here is a slot.
std::vector<std::int32_t> SuggestedValues(const DatabaseEntry& entry);

}  // namespace kestrune::regedit
