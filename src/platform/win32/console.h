#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrune::platform::win32 {

/// The words of a command line behind the program's own name, in UTF-8, as the C library of this
/// system takes it apart.
std::vector<std::string> WordsOf(std::wstring_view command_line);
/// Those of this program's own.
std::vector<std::string> CommandLineWords();

/// Standard output or standard error for text in UTF-8: a file or a pipe gets the bytes as they
/// are, a console the characters that it has.
class StandardStream {
 public:
  enum class Which { kOutput, kError };

  explicit StandardStream(Which which);

  /// False when nobody takes it any more.
  bool Put(std::string_view text);

 private:
  void* handle_;
  bool is_console_ = false;
  std::string kept_;  ///< the beginning of a character, for a console
};

}  // namespace kestrune::platform::win32
