#include "platform/win32/console.h"

#include <windows.h>

#include <string_view>

#include "platform/code_page.h"
#include "platform/utf8.h"
#include "platform/win32/text.h"

namespace kestrune::platform::win32 {

namespace {

/// Takes one word off the front of a command line: blanks end it outside double quotes, and an
/// even number of backslashes before a double quote is half as many, an odd one also a double quote
/// as a character.
std::wstring TakeWord(std::wstring_view& line) {
  std::wstring word;
  bool in_quotes = false;
  std::size_t backslashes = 0;
  std::size_t at = 0;
  for (; at < line.size(); ++at) {
    const wchar_t c = line[at];
    if (c == L'\\') {
      ++backslashes;
      continue;
    }
    const bool is_quote = c == L'"';
    word.append(is_quote ? backslashes / 2 : backslashes, L'\\');
    const bool is_character = !is_quote || backslashes % 2 == 1;
    backslashes = 0;
    if (!is_character) {
      // Two of them within quotes are one that is meant.
      const bool is_double = in_quotes && at + 1 < line.size() && line[at + 1] == L'"';
      if (is_double) word += line[++at];
      if (!is_double) in_quotes = !in_quotes;
      continue;
    }
    if (!in_quotes && (c == L' ' || c == L'\t')) break;
    word += c;
  }
  word.append(backslashes, L'\\');
  line.remove_prefix(at);
  return word;
}

/// The program's own name, in which backslashes mean nothing.
void DropName(std::wstring_view& line) {
  const bool is_quoted = line.starts_with(L'"');
  const std::size_t end = is_quoted ? line.find(L'"', 1) : line.find_first_of(L" \t");
  line.remove_prefix(end == line.npos ? line.size() : end + (is_quoted ? 1 : 0));
}

}  // namespace

std::vector<std::string> WordsOf(std::wstring_view command_line) {
  std::wstring_view line = command_line;
  DropName(line);
  std::vector<std::string> words;
  for (;;) {
    const std::size_t start = line.find_first_not_of(L" \t");
    if (start == line.npos) return words;
    line.remove_prefix(start);
    words.push_back(Narrow(TakeWord(line)));
  }
}

std::vector<std::string> CommandLineWords() { return WordsOf(GetCommandLineW()); }

namespace {

/// How much of a text is whole characters; the rest of the last one may follow.
std::size_t WholeCharacters(std::string_view text) {
  std::size_t end = text.size();
  const std::size_t least = end > 3 ? end - 3 : 0;
  while (end > least && (static_cast<unsigned char>(text[end - 1]) & 0xC0) == 0x80) --end;
  if (end == 0 || static_cast<unsigned char>(text[end - 1]) < 0xC0) return text.size();
  std::size_t position = end - 1;
  return NextCharacter(text, position) == kNoCharacter ? end - 1 : text.size();
}

bool PutBytes(HANDLE handle, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    if (!WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ||
        written == 0) {
      return false;
    }
    bytes.remove_prefix(written);
  }
  return true;
}

bool PutOnConsole(HANDLE handle, const std::string& text) {
  if (!IsNt()) {
    const int page = static_cast<int>(GetConsoleOutputCP());
    return PutBytes(handle, CodePages(page).Encode(text).bytes);
  }
  const std::wstring wide = Wide(text);
  for (std::wstring_view rest = wide; !rest.empty();) {
    // A console has little room for what it takes at once.
    constexpr std::size_t kMostAtOnce = 8000;
    DWORD written = 0;
    const auto size = static_cast<DWORD>(rest.size() < kMostAtOnce ? rest.size() : kMostAtOnce);
    if (!WriteConsoleW(handle, rest.data(), size, &written, nullptr) || written == 0) return false;
    rest.remove_prefix(written);
  }
  return true;
}

}  // namespace

StandardStream::StandardStream(Which which)
    : handle_(GetStdHandle(which == Which::kOutput ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE)) {
  DWORD mode = 0;
  is_console_ = GetConsoleMode(handle_, &mode) != 0;
}

bool StandardStream::Put(std::string_view text) {
  if (!is_console_) return PutBytes(handle_, text);
  kept_ += text;
  const std::size_t whole = WholeCharacters(kept_);
  const bool is_done = PutOnConsole(handle_, kept_.substr(0, whole));
  kept_.erase(0, whole);
  return is_done;
}

}  // namespace kestrune::platform::win32
