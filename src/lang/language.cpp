#include "lang/language.h"

#include <charconv>

#include "core/field_reader.h"
#include "core/outcome.h"

namespace kestrune::lang {

namespace {

constexpr std::size_t kMostFiles = 65;
constexpr std::string_view kTooManyTexts = "Error in loading language";
constexpr std::string_view kRestartNeeded = "Please restart Kestrune for change language.";

}  // namespace

int DeclaredCodePage(std::string_view bytes) {
  core::FieldReader fields(bytes);
  fields.Next();
  fields.Next();
  const std::optional<std::string> comment = fields.Next();
  if (!comment || !comment->starts_with(kCodePageMark)) return 0;
  const std::string_view number = std::string_view(*comment).substr(kCodePageMark.size());
  int code_page = 0;
  std::from_chars(number.data(), number.data() + number.size(), code_page);
  return code_page;
}

const std::string& LangTable::operator[](int number) const {
  static const std::string kEmpty;
  if (number < 0 || number >= kTextCount) return kEmpty;
  return texts_[static_cast<std::size_t>(number)];
}

void LangTable::Set(int number, std::string text) {
  if (number >= 0 && number < kTextCount)
    texts_[static_cast<std::size_t>(number)] = std::move(text);
}

void Language::LoadLanguage() {
  LanguageName = options_.Read(core::kLanguageValue).Text();
  if (LanguageName.empty()) LanguageName = kDefaultLanguage;
  if (ReadTexts()) return;
  LanguageName = kDefaultLanguage;
  core::Ignore(ReadTexts());
}

/// False when the file has too many texts, after the message that says so.
bool Language::ReadTexts() {
  const std::optional<std::string> bytes =
      files_.ReadBytes(std::string(kLanguageFolder) + LanguageName + std::string(kLanguageEnding));
  MissingFile = bytes ? "" : "DATA/LANGUAGE/" + LanguageName + std::string(kLanguageEnding);
  if (!bytes) return true;
  const std::string text = files_.DecodeText(*bytes, DeclaredCodePage(*bytes));
  core::FieldReader fields(text);
  DisplayName = fields.Next().value_or("");
  HeaderText = fields.Next().value_or("");
  for (int number = 0; number < kTextCount; ++number) {
    if (fields.AtEnd()) return true;
    std::string field = *fields.Next();
    if (field.starts_with(kCommentMark)) field = fields.Next().value_or("");
    LangText.Set(number, std::move(field));
  }
  core::Ignore(dialog_.ShowMessage(core::kProgramTitle, kTooManyTexts, platform::Buttons::kOk));
  return false;
}

std::vector<std::string> Language::ListLanguages() {
  std::vector<std::string> display_names;
  LanguageFiles.clear();
  for (const std::string& name : files_.ListFiles(kLanguageFolder, kLanguageEnding)) {
    if (name.find('_') != std::string::npos) continue;
    const std::optional<std::string> bytes = files_.ReadBytes(std::string(kLanguageFolder) + name);
    if (!bytes) continue;
    // Of a whole file, only its name is turned into another encoding.
    const std::string display_name = core::FieldReader(*bytes).Next().value_or("");
    display_names.push_back(files_.DecodeText(display_name, DeclaredCodePage(*bytes)));
    if (LanguageFiles.size() < kMostFiles) LanguageFiles.push_back(name);
  }
  return display_names;
}

void Language::ChooseLanguage(int position) {
  if (position < 0 || static_cast<std::size_t>(position) >= LanguageFiles.size()) return;
  std::string name = LanguageFiles[static_cast<std::size_t>(position)];
  name.resize(name.size() - kLanguageEnding.size());
  options_.Write(core::kLanguageValue, name);
  core::Ignore(dialog_.ShowMessage(core::kProgramTitle, kRestartNeeded, platform::Buttons::kOk));
}

}  // namespace kestrune::lang
