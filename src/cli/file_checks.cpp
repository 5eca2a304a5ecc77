#include "cli/file_checks.h"

#include <algorithm>
#include <iterator>

#include "core/field_reader.h"
#include "detect/adapter.h"
#include "detect/card_data.h"
#include "lang/check_language.h"
#include "monitor/check_recording.h"
#include "monitor/recording.h"
#include "ogl/check_card_table.h"
#include "platform/case_fold.h"
#include "profiles/check_profile.h"
#include "profiles/profile_file.h"
#include "regedit/check_database.h"
#include "wizard/check_tuning.h"

namespace kestrune::cli {

using platform::Findings;
using platform::SameWithoutCase;

namespace {

constexpr std::string_view kDataEnding = ".dat";

/// The name behind the last slash of a path, which is cut off with it.
std::string TakeName(std::string& path) {
  const std::size_t slash = path.rfind('/');
  std::string name = path.substr(slash == path.npos ? 0 : slash + 1);
  path.resize(slash == path.npos ? 0 : slash);
  return name;
}

bool IsData(const FilePlace& file) { return SameWithoutCase(file.ending, kDataEnding); }

bool IsLanguage(const FilePlace& file) {
  return SameWithoutCase(file.parent, "LANGUAGE") && IsData(file);
}
bool IsDatabase(const FilePlace& file) {
  return SameWithoutCase(file.parent, "Database") && IsData(file);
}
bool IsIndex(const FilePlace& file) {
  return SameWithoutCase(file.parent, "PW") && SameWithoutCase(file.name, "index.dat");
}
bool IsTuning(const FilePlace& file) {
  return SameWithoutCase(file.grandparent, "PW") && IsData(file);
}
bool IsPicture(const FilePlace& file) { return SameWithoutCase(file.ending, ".jpg"); }
bool IsProfile(const FilePlace& file) { return SameWithoutCase(file.ending, profiles::kEnding); }
bool IsMachine(const FilePlace& file) { return SameWithoutCase(file.ending, ".toml"); }
bool IsRegistryText(const FilePlace& file) { return SameWithoutCase(file.ending, ".reg"); }
bool IsStore(const FilePlace& file) { return SameWithoutCase(file.ending, ".store"); }
bool IsCardTable(const FilePlace& file) {
  return IsData(file) && std::any_of(std::begin(detect::kCardTables), std::end(detect::kCardTables),
                                     [&file](const detect::CardTable& table) {
                                       return SameWithoutCase(table.name, file.stem);
                                     });
}
bool IsRecording(const FilePlace& file) {
  return SameWithoutCase(file.name, monitor::kRecordingFile);
}

}  // namespace

/// How a kind is told, and the body that checks it.
struct FileChecks::Kind {
  bool (*is_told_by)(const FilePlace& file);
  Findings (FileChecks::*check)(const FilePlace& file);
  std::string_view first_field = {};  ///< tells it where the place doesn't
};

const FileChecks::Kind FileChecks::kKinds[] = {
    {IsLanguage, &FileChecks::Language},
    {IsDatabase, &FileChecks::Database},
    {IsIndex, &FileChecks::TuningIndex},
    {IsTuning, &FileChecks::Tuning},
    {IsPicture, &FileChecks::Picture},
    {IsProfile, &FileChecks::Profile, profiles::kSignature},
    {IsMachine, &FileChecks::Machine},
    {IsRegistryText, &FileChecks::RegistryText},
    {IsStore, &FileChecks::Store},
    {IsCardTable, &FileChecks::CardTable},
    {IsRecording, &FileChecks::Recording, monitor::kRecordingTitle},
};

FilePlace::FilePlace(std::string whole_path) : path(std::move(whole_path)), folder(path) {
  name = TakeName(folder);
  std::string above = folder;
  parent = TakeName(above);
  grandparent = TakeName(above);
  const std::size_t point = std::min(name.rfind('.'), name.size());
  stem = name.substr(0, point);
  ending = name.substr(point);
}

Findings Unreadable(const std::string& reason) { return {{0, "it can't be read: " + reason}}; }

FileChecks::FileChecks(platform::Inspection& inspection)
    : inspection_(inspection),
      pictures_([&inspection](const std::string& file) { return inspection.ReadFile(file); },
                [&inspection](const std::string& folder) { return inspection.FilesIn(folder); }) {}

const FileChecks::Kind* FileChecks::KindByPlace(const FilePlace& file) {
  const Kind* kind = std::find_if(std::begin(kKinds), std::end(kKinds),
                                  [&](const Kind& each) { return each.is_told_by(file); });
  return kind == std::end(kKinds) ? nullptr : kind;
}

bool FileChecks::IsToldByPlace(const std::string& file) {
  return KindByPlace(FilePlace(file)) != nullptr;
}

std::optional<Findings> FileChecks::CheckByPlace(const FilePlace& file) {
  const Kind* kind = KindByPlace(file);
  if (kind == nullptr) return std::nullopt;
  return (this->*kind->check)(file);
}

std::optional<Findings> FileChecks::CheckByPlace(const std::string& whole_path) {
  return CheckByPlace(FilePlace(whole_path));
}

std::optional<Findings> FileChecks::Check(const std::string& file) {
  const FilePlace place(inspection_.WholePath(file));
  if (auto findings = CheckByPlace(place)) return findings;
  const auto bytes = inspection_.ReadFile(place.path);
  if (!bytes) return Unreadable(bytes.Reason().reason);
  const auto field = core::FieldReader(bytes.Value()).Next();
  for (const Kind& kind : kKinds) {
    if (!kind.first_field.empty() && field == kind.first_field) return (this->*kind.check)(place);
  }
  return std::nullopt;
}

template <class Body>
Findings FileChecks::OfText(const FilePlace& file, Body check) {
  const auto bytes = inspection_.ReadFile(file.path);
  if (!bytes) return Unreadable(bytes.Reason().reason);
  return check(inspection_.Files().DecodeText(bytes.Value(), 0));
}

Findings FileChecks::Language(const FilePlace& file) {
  const auto bytes = inspection_.ReadFile(file.path);
  if (!bytes) return Unreadable(bytes.Reason().reason);
  if (!english_) english_ = lang::EnglishTexts(inspection_.Files());
  return lang::CheckLanguage(file.name, bytes.Value(), *english_, inspection_.Files());
}

Findings FileChecks::Database(const FilePlace& file) {
  return OfText(file,
                [&](const std::string& text) { return regedit::CheckDatabase(file.stem, text); });
}

Findings FileChecks::CardTable(const FilePlace& file) {
  return OfText(file,
                [&](const std::string& text) { return ogl::CheckCardTable(file.stem, text); });
}

Findings FileChecks::TuningIndex(const FilePlace& file) {
  const auto names_in = [&](const std::string& entry) {
    std::vector<std::string> names = inspection_.FilesIn(file.folder + "/" + entry);
    for (std::string& name : names) name = FilePlace(name).name;
    return names;
  };
  return OfText(
      file, [&](const std::string& text) { return wizard::CheckIndex(text, Cards(), names_in); });
}

Findings FileChecks::Tuning(const FilePlace& file) { return OfText(file, wizard::CheckTuning); }

Findings FileChecks::Profile(const FilePlace& file) {
  return OfText(file, [&](const std::string& text) {
    return profiles::CheckProfile(text, inspection_.Files(), nullptr);
  });
}

Findings FileChecks::Recording(const FilePlace& file) {
  return OfText(file, monitor::CheckRecording);
}

Findings FileChecks::Machine(const FilePlace& file) {
  const auto text = inspection_.ReadFile(file.path);
  if (!text) return Unreadable(text.Reason().reason);
  auto [findings, devices] = inspection_.CheckDescription(text.Value(), file.path);
  for (const platform::DescribedDevice& device : devices) {
    const auto id = detect::NvidiaDeviceOf(device.hardware_id);
    const bool is_known = !id || Cards().contains(platform::FoldCase(detect::CardCode(*id)));
    if (!is_known) findings.push_back({device.line, "no table of cards has the device " + *id});
  }
  SortByLine(findings);
  return findings;
}

Findings FileChecks::RegistryText(const FilePlace& file) {
  const auto checked = inspection_.CheckRegistryText(file.path);
  return checked ? checked.Value() : Unreadable(checked.Reason().reason);
}

Findings FileChecks::Store(const FilePlace& file) { return inspection_.CheckStore(file.path); }

Findings FileChecks::Picture(const FilePlace& file) { return pictures_.Check(file.path); }

const std::set<std::string>& FileChecks::Cards() {
  if (!cards_) cards_ = detect::ListedCards(inspection_.Files());
  return *cards_;
}

}  // namespace kestrune::cli
