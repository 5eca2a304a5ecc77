#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kestrune::core {

/// Reads the fields of a data file one by one.
///
/// Fields end at a comma or at a line end (LF, CR LF or CR). Blanks around an unquoted field are
/// dropped; a field in double quotes may hold commas and line ends and runs to the closing quote,
/// behind which everything up to the next separator is dropped, or to the end of the text without
/// its last line ends. An empty line is one empty field, but blanks and line ends at the end of the
/// text are none.
class FieldReader {
 public:
  /// The text must outlive the reader.
  explicit FieldReader(std::string_view text)
      : text_(text), end_(text.find_last_not_of(" \r\n") + 1) {}

  bool AtEnd() const { return position_ >= end_; }
  /// The next field; nothing at the end.
  std::optional<std::string> Next();
  /// Whether the field read last began with a quote and had no closing one.
  bool IsCutOff() const { return is_cut_off_; }
  /// The line, from 1, at which the next field begins.
  int Line() const { return line_; }

 private:
  void SkipBlanks();
  std::string_view TakeUntil(std::string_view ends);
  std::string_view TakeQuoted();
  void SkipSeparator();

  std::string_view text_;
  std::size_t end_;  ///< where nothing but blanks and line ends follows
  std::size_t position_ = 0;
  int line_ = 1;
  bool is_cut_off_ = false;
};

}  // namespace kestrune::core
