#include "platform/win32/versions.h"

#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

namespace kestrune::platform::win32 {

namespace {

/// A language and a code page, as a version's texts are sorted by.
struct Translation {
  WORD language;
  WORD code_page;
};

/// American English, in the pages that resource compilers write.
constexpr Translation kUsual[] = {{0x0409, 1252}, {0x0409, 1200}};

std::vector<char> VersionBlock(const std::string& path) {
  DWORD unused = 0;
  const DWORD size = GetFileVersionInfoSizeA(path.c_str(), &unused);
  std::vector<char> block(size);
  if (size == 0 || !GetFileVersionInfoA(path.c_str(), 0, size, block.data())) return {};
  return block;
}

std::vector<Translation> TranslationsOf(std::vector<char>& block) {
  std::vector<Translation> translations;
  void* found = nullptr;
  UINT size = 0;
  if (VerQueryValueA(block.data(), "\\VarFileInfo\\Translation", &found, &size)) {
    const auto* first = static_cast<const Translation*>(found);
    translations.assign(first, first + size / sizeof(Translation));
  }
  translations.insert(translations.end(), std::begin(kUsual), std::end(kUsual));
  return translations;
}

}  // namespace

OsVersion SystemVersions::SystemVersion() {
  OSVERSIONINFOA version{};
  version.dwOSVersionInfoSize = sizeof version;
  if (!GetVersionExA(&version)) return {};
  return {static_cast<int>(version.dwMajorVersion), static_cast<int>(version.dwMinorVersion),
          static_cast<int>(version.dwPlatformId)};
}

std::optional<std::string> SystemVersions::FileVersionText(std::string_view file_name) {
  char folder[MAX_PATH];
  const UINT length = GetSystemDirectoryA(folder, sizeof folder);
  if (length == 0 || length >= sizeof folder) return std::nullopt;
  std::vector<char> block =
      VersionBlock(std::string(folder, length) + '\\' + pages_.Encode(file_name).bytes);
  if (block.empty()) return std::nullopt;
  for (const Translation& translation : TranslationsOf(block)) {
    char name[64];
    std::snprintf(name, sizeof name, "\\StringFileInfo\\%04X%04X\\FileVersion",
                  translation.language, translation.code_page);
    void* text = nullptr;
    UINT size = 0;
    if (VerQueryValueA(block.data(), name, &text, &size) && size > 0) {
      const std::string_view whole(static_cast<const char*>(text), size);
      return pages_.Decode(whole.substr(0, whole.find('\0')));
    }
  }
  return std::nullopt;
}

}  // namespace kestrune::platform::win32
