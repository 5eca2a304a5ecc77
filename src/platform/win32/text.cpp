#include "platform/win32/text.h"

#include <windows.h>

#include "platform/code_page.h"
#include "platform/utf16.h"

namespace kestrune::platform {

namespace {

class WindowsConverter : public CharacterConverter {
 public:
  explicit WindowsConverter(int page) : page_(static_cast<UINT>(page)) {}

  std::string ToUtf8(std::string_view bytes) override {
    WCHAR wide[4];
    const int length = MultiByteToWideChar(page_, MB_ERR_INVALID_CHARS, bytes.data(),
                                           static_cast<int>(bytes.size()), wide, 4);
    if (length <= 0) return {};
    // A byte of no character is given as one of the private area, or as itself.
    const std::string text = win32::Narrow({wide, static_cast<std::size_t>(length)});
    return FromUtf8(text) == bytes && !IsInvented(wide[0]) ? text : std::string();
  }
  std::string FromUtf8(std::string_view character) override {
    const std::wstring wide = win32::Wide(character);
    char bytes[8];
    BOOL is_replaced = FALSE;
    const int length = WideCharToMultiByte(page_, 0, wide.data(), static_cast<int>(wide.size()),
                                           bytes, sizeof bytes, nullptr, &is_replaced);
    if (length <= 0 || is_replaced) return {};
    // What comes back as another character was only the nearest one.
    WCHAR back[8];
    const int count = MultiByteToWideChar(page_, 0, bytes, length, back, 8);
    if (wide != std::wstring_view(back, static_cast<std::size_t>(count > 0 ? count : 0))) return {};
    return {bytes, static_cast<std::size_t>(length)};
  }

 private:
  /// The private area, and the control characters of Latin 1 that the pages of Windows don't
  /// define.
  static bool IsInvented(WCHAR character) {
    return (character >= 0xE000 && character <= 0xF8FF) || (character >= 0x80 && character < 0xA0);
  }

  UINT page_;
};

}  // namespace

std::unique_ptr<CharacterConverter> SystemConverter(int page) {
  return std::make_unique<WindowsConverter>(page);
}

}  // namespace kestrune::platform

namespace kestrune::platform::win32 {

int SystemCodePage() { return static_cast<int>(GetACP()); }

std::wstring Wide(std::string_view text) {
  const std::string bytes = ToUtf16(text);
  std::wstring wide(bytes.size() / 2, L'\0');
  for (std::size_t i = 0; i < wide.size(); ++i) {
    wide[i] = static_cast<wchar_t>(static_cast<unsigned char>(bytes[2 * i]) |
                                   static_cast<unsigned char>(bytes[2 * i + 1]) << 8);
  }
  return wide;
}

std::string Narrow(std::wstring_view text) {
  std::string bytes;
  bytes.reserve(text.size() * 2);
  for (const wchar_t unit : text) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return FromUtf16(bytes);
}

bool IsNt() {
  static const bool is_nt = (GetVersion() & 0x80000000u) == 0;
  return is_nt;
}

std::string ErrorText(unsigned long error) {
  char text[512];
  DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                error, 0, text, sizeof text, nullptr);
  while (length > 0 &&
         (text[length - 1] == '.' || static_cast<unsigned char>(text[length - 1]) <= ' ')) {
    --length;
  }
  if (length == 0) return "error " + std::to_string(error);
  return CodePages(SystemCodePage()).Decode({text, length});
}

}  // namespace kestrune::platform::win32
