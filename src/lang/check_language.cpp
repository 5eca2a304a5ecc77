#include "lang/check_language.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "core/field_reader.h"
#include "core/number.h"
#include "core/outcome.h"
#include "lang/language.h"
#include "lang/texts.h"
#include "platform/utf8.h"

namespace kestrune::lang {

namespace {

bool IsAssigned(int number) {
  return std::any_of(std::begin(texts::kAssigned), std::end(texts::kAssigned),
                     [number](const texts::Range& range) {
                       return range.first <= number && number <= range.last;
                     });
}

std::string Quoted(std::string_view text) { return '"' + std::string(text) + '"'; }
std::string Named(int number) { return "text " + std::to_string(number); }

/// The first byte that a code page doesn't define, out of decoded text.
std::optional<unsigned> FirstKeptByte(std::string_view text) {
  for (std::size_t position = 0; position < text.size();) {
    if (static_cast<unsigned char>(text[position]) < 0x80) {
      ++position;
      continue;
    }
    const char32_t character = platform::NextCharacter(text, position);
    const bool is_kept =
        character >= platform::kKeptByte && character <= platform::kKeptByte + 0xFF;
    if (is_kept) return static_cast<unsigned>(character - platform::kKeptByte);
  }
  return std::nullopt;
}

/// A text with the line on which it begins; 0 where the file has none.
struct Placed {
  int line = 0;
  std::string text = {};
};

using Texts = std::array<Placed, kTextCount>;

/// Reads a language file and finds what is wrong with its form.
class Reader {
 public:
  Reader(std::string_view bytes, platform::FilesApi& files)
      : files_(files),
        code_page_(DeclaredCodePage(bytes)),
        text_(files.DecodeText(bytes, code_page_)),
        fields_(text_) {}

  /// False where not even the header is there.
  bool Run() {
    if (!Header()) {
      Add(1, "the language's name and the text beside the choice are missing");
      return false;
    }
    int number = 0;
    for (; number < kTextCount && !fields_.AtEnd(); ++number) {
      Placed& place = texts_[static_cast<std::size_t>(number)];
      place = Take();
      if (!place.text.starts_with(kCommentMark)) continue;
      Comment(place, number == 0);
      if (fields_.AtEnd()) break;
      place = Take();
      if (place.text.starts_with(kCommentMark)) {
        Add(place.line, "a comment behind a comment is taken for " + Named(number));
      }
    }
    if (number == kTextCount) Add(texts_[kTextCount - 1].line, "there are more than 300 texts");
    end_ = number;
    return true;
  }

  Texts& AllTexts() { return texts_; }
  /// The number behind the last text.
  int End() const { return end_; }
  int LastLine() const { return fields_.Line(); }
  platform::Findings& Found() { return findings_; }

 private:
  void Add(int line, std::string reason) { findings_.push_back({line, std::move(reason)}); }

  bool Header() {
    for (int i = 0; i < 2; ++i) {
      if (Take().text.empty()) return false;
    }
    return true;
  }

  /// The next field; an empty one behind the last.
  Placed Take() {
    const int line = fields_.Line();
    Placed placed{line, fields_.Next().value_or("")};
    if (fields_.IsCutOff()) Add(line, "the closing quote is missing");
    if (const auto byte = FirstKeptByte(placed.text); byte && !has_unknown_page_) {
      char hexadecimal[3];
      std::snprintf(hexadecimal, sizeof(hexadecimal), "%02X", *byte & 0xFF);
      const std::string page =
          code_page_ == 0 ? "the system's code page" : "code page " + std::to_string(code_page_);
      Add(line, page + " has no character for the byte " + hexadecimal);
    }
    return placed;
  }

  void Comment(const Placed& comment, bool is_behind_header) {
    if (!comment.text.starts_with(kCodePageMark)) return;
    if (!is_behind_header) {
      return Add(comment.line, "a code page counts only right after the two header fields");
    }
    const std::string page = comment.text.substr(kCodePageMark.size());
    const auto number = core::ParseWholeNumber(page);
    has_unknown_page_ = !number || !files_.HasCodePage(number.Value());
    if (has_unknown_page_) Add(comment.line, "code page " + page + " isn't known");
  }

  platform::FilesApi& files_;
  int code_page_;
  bool has_unknown_page_ = false;
  std::string text_;
  core::FieldReader fields_;
  Texts texts_;
  int end_ = 0;
  platform::Findings findings_;
};

void CheckNumbers(Reader& file, platform::Findings& findings) {
  for (int number = 0; number < file.End(); ++number) {
    const auto& [line, text] = file.AllTexts()[static_cast<std::size_t>(number)];
    if (text.empty() && IsAssigned(number)) {
      findings.push_back({line, Named(number) + " is empty"});
    } else if (!text.empty() && !IsAssigned(number) && number < kTextCount - 1) {
      findings.push_back({line, "nothing shows " + Named(number) + ", " + Quoted(text)});
    }
  }
  const int last = std::rbegin(texts::kAssigned)->last;
  if (file.End() <= last) {
    findings.push_back({file.LastLine(), "the texts from " + std::to_string(file.End()) + " to " +
                                             std::to_string(last) + " are missing"});
  }
}

void CheckBlanks(const Texts& texts, const LangTable& english, platform::Findings& findings) {
  for (std::size_t number = 0; number < texts.size(); ++number) {
    const auto& [line, text] = texts[number];
    const std::string& model = english[static_cast<int>(number)];
    if (text.empty()) continue;
    for (const auto& [lacks, verb] :
         {std::pair(model.starts_with(' ') && !text.starts_with(' '), " must begin"),
          std::pair(model.ends_with(' ') && !text.ends_with(' '), " must end")}) {
      if (!lacks) continue;
      findings.push_back(
          {line, Named(static_cast<int>(number)) + verb + " with a blank, as in English"});
    }
  }
}

void CheckToldApart(const Texts& texts, platform::Findings& findings) {
  const auto text_of = [&texts](int number) -> const Placed& {
    return texts[static_cast<std::size_t>(number)];
  };
  for (const auto& group : texts::kToldApart) {
    for (const int* number = std::begin(group); number != std::end(group); ++number) {
      const auto is_same = [&](int other) {
        return !text_of(other).text.empty() && text_of(other).text == text_of(*number).text;
      };
      if (*number < 0) break;
      const int* other = std::find_if(std::begin(group), number, is_same);
      if (other == number) continue;
      findings.push_back({text_of(*number).line, Named(*number) + " must differ from " +
                                                     Named(*other) + ", " +
                                                     Quoted(text_of(*number).text)});
    }
  }
}

}  // namespace

LangTable EnglishTexts(platform::FilesApi& files) {
  LangTable english;
  const auto bytes = files.ReadBytes(std::string(kLanguageFolder) + std::string(kDefaultLanguage) +
                                     std::string(kLanguageEnding));
  if (!bytes) return english;
  Reader file(*bytes, files);
  core::Ignore(file.Run());
  for (int number = 0; number < file.End(); ++number) {
    english.Set(number, std::move(file.AllTexts()[static_cast<std::size_t>(number)].text));
  }
  return english;
}

platform::Findings CheckLanguage(std::string_view file_name, std::string_view bytes,
                                 const LangTable& english, platform::FilesApi& files) {
  Reader file(bytes, files);
  const bool has_header = file.Run();
  platform::Findings findings = std::move(file.Found());
  if (file_name.find('_') != file_name.npos) {
    findings.push_back({0, "a language whose file has \"_\" in its name is never offered"});
  }
  if (has_header) {
    CheckNumbers(file, findings);
    CheckToldApart(file.AllTexts(), findings);
    CheckBlanks(file.AllTexts(), english, findings);
  }
  SortByLine(findings);
  return findings;
}

}  // namespace kestrune::lang
