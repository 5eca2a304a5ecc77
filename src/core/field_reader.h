#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kestrune::core {

/// Reads the fields of a data file one by one.
///
/// Fields end at a comma or at a line end (LF, CR LF or CR). Blanks around an unquoted field are
/// dropped; a field in double quotes may hold commas and ends at its closing quote, or at the end
/// of the line when that quote is missing. An empty line is one empty field.
class FieldReader {
 public:
  /// The text must outlive the reader.
  explicit FieldReader(std::string_view text) : text_(text) {}

  bool AtEnd() const { return position_ >= text_.size(); }
  /// The next field; nothing at the end.
  std::optional<std::string> Next();
  /// The line, from 1, at which the next field begins.
  int Line() const { return line_; }

 private:
  void SkipBlanks();
  std::string_view TakeUntil(std::string_view ends);
  void SkipSeparator();

  std::string_view text_;
  std::size_t position_ = 0;
  int line_ = 1;
};

}  // namespace kestrune::core
