#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "lang/language.h"
#include "platform/finding.h"
#include "platform/inspection.h"
#include "ui/forms/check_pictures.h"

namespace kestrune::cli {

/// A path in the parts that tell a file's kind.
struct FilePlace {
  explicit FilePlace(std::string whole_path);

  std::string path;
  std::string folder;       ///< the path of the one that it is in
  std::string parent;       ///< the name of that folder
  std::string grandparent;  ///< the name of the one above
  std::string name;
  std::string stem;    ///< the name without its ending
  std::string ending;  ///< with its point
};

/// Checks data files, each with the body of its kind. What several of them need is found once.
class FileChecks {
 public:
  explicit FileChecks(platform::Inspection& inspection);

  /// What is wrong with a file; nothing where its kind can't be told.
  std::optional<platform::Findings> Check(const std::string& file);
  /// The same of a whole path, where the place or the ending tells the kind.
  std::optional<platform::Findings> CheckByPlace(const std::string& whole_path);
  /// The pictures that the program can ask for and hasn't.
  std::vector<std::string> MissingPictures() {
    return pictures_.Missing(inspection_.Files().ProgramFolder());
  }
  /// Whether a file's place or ending tells its kind.
  static bool IsToldByPlace(const std::string& file);

 private:
  struct Kind;
  static const Kind kKinds[];

  static const Kind* KindByPlace(const FilePlace& file);
  std::optional<platform::Findings> CheckByPlace(const FilePlace& file);
  /// What a check of a text finds, or that the file can't be read.
  template <class Body>
  platform::Findings OfText(const FilePlace& file, Body check);
  const std::set<std::string>& Cards();

  platform::Findings Language(const FilePlace& file);
  platform::Findings Database(const FilePlace& file);
  platform::Findings CardTable(const FilePlace& file);
  platform::Findings TuningIndex(const FilePlace& file);
  platform::Findings Tuning(const FilePlace& file);
  platform::Findings Profile(const FilePlace& file);
  platform::Findings Recording(const FilePlace& file);
  platform::Findings Machine(const FilePlace& file);
  platform::Findings RegistryText(const FilePlace& file);
  platform::Findings Store(const FilePlace& file);
  platform::Findings Picture(const FilePlace& file);

  platform::Inspection& inspection_;
  forms::PictureChecks pictures_;
  std::optional<std::set<std::string>> cards_;
  std::optional<lang::LangTable> english_;
};

/// Why a file can't be checked any further.
platform::Findings Unreadable(const std::string& reason);

}  // namespace kestrune::cli
