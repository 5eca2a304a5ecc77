#include "core/field_reader.h"

#include <algorithm>

#include "core/number.h"

namespace kestrune::core {

namespace {
constexpr std::string_view kSeparators = ",\r\n";
constexpr std::string_view kLineEnds = "\r\n";
}  // namespace

std::optional<std::string> FieldReader::Next() {
  if (AtEnd()) return std::nullopt;
  SkipBlanks();
  is_cut_off_ = false;
  std::string field;
  if (!AtEnd() && text_[position_] == '"') {
    field = TakeQuoted();
    TakeUntil(kSeparators);
  } else {
    field = TrimBlanks(TakeUntil(kSeparators));
  }
  SkipSeparator();
  return field;
}

void FieldReader::SkipBlanks() {
  while (!AtEnd() && text_[position_] == ' ') ++position_;
}

std::string_view FieldReader::TakeUntil(std::string_view ends) {
  // A search for one of several characters asks the library for each character of the text.
  const std::size_t start = position_;
  const auto is_end = [ends](char c) {
    return std::any_of(ends.begin(), ends.end(), [c](char end) { return c == end; });
  };
  while (!AtEnd() && !is_end(text_[position_])) ++position_;
  return text_.substr(start, position_ - start);
}

std::string_view FieldReader::TakeQuoted() {
  const std::size_t begin = position_ + 1;
  const std::size_t quote = text_.find('"', begin);
  position_ = std::min(quote, text_.size());
  std::string_view field = text_.substr(begin, position_ - begin);
  for (std::size_t at = 0; at < field.size(); ++at) {
    const bool is_pair = field[at] == '\r' && field.substr(at + 1).starts_with('\n');
    if (field[at] == '\n' || (field[at] == '\r' && !is_pair)) ++line_;
  }
  is_cut_off_ = quote == text_.npos;
  if (is_cut_off_) field = field.substr(0, field.find_last_not_of(kLineEnds) + 1);
  return field;
}

void FieldReader::SkipSeparator() {
  if (position_ >= text_.size()) return;
  const char separator = text_[position_++];
  if (separator == ',') return;
  if (separator == '\r' && position_ < text_.size() && text_[position_] == '\n') ++position_;
  ++line_;
}

}  // namespace kestrune::core
