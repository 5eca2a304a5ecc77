#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/options.h"
#include "core/registry.h"
#include "platform/dialog_api.h"
#include "platform/files_api.h"

namespace kestrune::lang {

inline constexpr int kTextCount = 301;
inline constexpr std::string_view kLanguageFolder = "\\DATA\\LANGUAGE\\";
inline constexpr std::string_view kLanguageEnding = ".dat";
inline constexpr std::string_view kDefaultLanguage = "en";
/// What a field begins with that is a comment, and one that names the code page.
inline constexpr std::string_view kCommentMark = "- ";
inline constexpr std::string_view kCodePageMark = "- codepage ";

/// The code page that a file names in the comment right after its two header fields; 0 is none.
int DeclaredCodePage(std::string_view bytes);

/// The interface texts of the chosen language, by number. A number outside the table is empty.
class LangTable {
 public:
  const std::string& operator[](int number) const;
  void Set(int number, std::string text);

 private:
  std::array<std::string, kTextCount> texts_;
};

/// The chosen language and the ones that can be chosen.
///
/// A language file is DATA\LANGUAGE\<name>.dat: its display name, the text beside the language
/// choice, then the interface texts 0, 1, 2 and so on, at most 300. A field that begins with "- "
/// is a comment. A comment "- codepage 1250" right after the header names the file's code page;
/// without one it is the machine's.
class Language {
 public:
  Language(core::basRegistry& registry, platform::FilesApi& files, platform::DialogApi& dialog)
      : options_(registry), files_(files), dialog_(dialog) {}

  /// Reads the chosen language's texts. A missing file leaves them empty; one with more than 300
  /// texts gives a message and English.
  void LoadLanguage();
  /// The display names of the languages that can be chosen, in order of their files' names,
  /// leaving out names with "_". Their positions are what ChooseLanguage takes from then on.
  std::vector<std::string> ListLanguages();
  /// Stores the language at a position of the list; it is used from the next start on.
  void ChooseLanguage(int position);

  LangTable LangText;
  /// The chosen language's file name without its ending.
  std::string LanguageName;
  /// Its own name for itself.
  std::string DisplayName;
  /// Its file, as a path with slashes, where that can't be read; else empty.
  std::string MissingFile;
  /// The text beside the language choice.
  std::string HeaderText;
  /// The file names of the first 65 languages that were listed.
  std::vector<std::string> LanguageFiles;

 private:
  bool ReadTexts();

  core::OwnOptions options_;
  platform::FilesApi& files_;
  platform::DialogApi& dialog_;
};

}  // namespace kestrune::lang
