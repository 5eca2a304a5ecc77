#include "platform/picture_data.h"

#include <cstddef>

namespace kestrune::platform {

namespace {

unsigned ByteAt(std::string_view bytes, std::size_t at) {
  return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

/// Whether a JPEG's segments lead from its start over a frame of some size to its picture data,
/// and its closing mark is there.
bool IsJpeg(std::string_view bytes) {
  if (!bytes.starts_with("\xFF\xD8") || bytes.rfind("\xFF\xD9") == bytes.npos) return false;
  bool has_frame = false;
  for (std::size_t at = 2; at + 4 <= bytes.size();) {
    if (ByteAt(bytes, at) != 0xFF) return false;
    const unsigned mark = ByteAt(bytes, at + 1);
    if (mark == 0xFF) {
      ++at;
      continue;
    }
    if (mark == 0xDA) return has_frame;
    const bool is_frame =
        mark >= 0xC0 && mark <= 0xCF && mark != 0xC4 && mark != 0xC8 && mark != 0xCC;
    const unsigned width = ByteAt(bytes, at + 7) << 8 | ByteAt(bytes, at + 8);
    if (is_frame && width > 0) has_frame = true;
    at += 2 + (ByteAt(bytes, at + 2) << 8 | ByteAt(bytes, at + 3));
  }
  return false;
}

bool IsPng(std::string_view bytes) {
  return bytes.starts_with("\x89PNG\r\n\x1A\n") && bytes.substr(12, 4) == "IHDR" &&
         bytes.find("IEND") != bytes.npos;
}

bool IsBmp(std::string_view bytes) {
  const std::size_t pixels = ByteAt(bytes, 10) | ByteAt(bytes, 11) << 8 | ByteAt(bytes, 12) << 16;
  return bytes.starts_with("BM") && pixels >= 26 && pixels < bytes.size();
}

}  // namespace

bool IsPictureData(std::string_view bytes) { return IsJpeg(bytes) || IsPng(bytes) || IsBmp(bytes); }

}  // namespace kestrune::platform
