#include "core/field_reader.h"

#include <algorithm>

#include "core/number.h"

namespace kestrune::core {

namespace {
constexpr std::string_view kSeparators = ",\r\n";
constexpr std::string_view kQuoteOrLineEnd = "\"\r\n";
}  // namespace

std::optional<std::string> FieldReader::Next() {
  if (AtEnd()) return std::nullopt;
  SkipBlanks();
  std::string field;
  if (!AtEnd() && text_[position_] == '"') {
    ++position_;
    field = TakeUntil(kQuoteOrLineEnd);
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
  const std::size_t end = std::min(text_.find_first_of(ends, position_), text_.size());
  const std::string_view taken = text_.substr(position_, end - position_);
  position_ = end;
  return taken;
}

void FieldReader::SkipSeparator() {
  if (AtEnd()) return;
  const char separator = text_[position_++];
  if (separator == ',') return;
  if (separator == '\r' && !AtEnd() && text_[position_] == '\n') ++position_;
  ++line_;
}

}  // namespace kestrune::core
