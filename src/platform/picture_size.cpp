#include "platform/picture_size.h"

#include <cstddef>

namespace kestrune::platform {

namespace {

unsigned ByteAt(std::string_view bytes, std::size_t at) {
  return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

/// Two bytes, the higher one first.
unsigned PairAt(std::string_view bytes, std::size_t at) {
  return ByteAt(bytes, at) << 8 | ByteAt(bytes, at + 1);
}

/// Two bytes, the lower one first.
unsigned LowPairAt(std::string_view bytes, std::size_t at) {
  return ByteAt(bytes, at) | ByteAt(bytes, at + 1) << 8;
}

/// The segments of a JPEG have to lead from its start over a frame of some size to its picture
/// data, and its closing mark has to be there.
std::optional<PictureSize> SizeOfJpeg(std::string_view bytes) {
  if (!bytes.starts_with("\xFF\xD8") || bytes.rfind("\xFF\xD9") == bytes.npos) return std::nullopt;
  std::optional<PictureSize> size;
  for (std::size_t at = 2; at + 4 <= bytes.size();) {
    if (ByteAt(bytes, at) != 0xFF) return std::nullopt;
    const unsigned mark = ByteAt(bytes, at + 1);
    if (mark == 0xFF) {
      ++at;
      continue;
    }
    if (mark == 0xDA) return size;
    const bool is_frame =
        mark >= 0xC0 && mark <= 0xCF && mark != 0xC4 && mark != 0xC8 && mark != 0xCC;
    const PictureSize frame{PairAt(bytes, at + 7), PairAt(bytes, at + 5)};
    if (is_frame && frame.width > 0) size = frame;
    at += 2 + PairAt(bytes, at + 2);
  }
  return std::nullopt;
}

std::optional<PictureSize> SizeOfPng(std::string_view bytes) {
  constexpr std::size_t kHeader = 24;
  const bool is_png = bytes.size() >= kHeader && bytes.starts_with("\x89PNG\r\n\x1A\n") &&
                      bytes.substr(12, 4) == "IHDR" && bytes.find("IEND") != bytes.npos;
  if (!is_png) return std::nullopt;
  return PictureSize{PairAt(bytes, 16) << 16 | PairAt(bytes, 18),
                     PairAt(bytes, 20) << 16 | PairAt(bytes, 22)};
}

std::optional<PictureSize> SizeOfBmp(std::string_view bytes) {
  const std::size_t pixels = LowPairAt(bytes, 10) | ByteAt(bytes, 12) << 16;
  if (!bytes.starts_with("BM") || pixels < 26 || pixels >= bytes.size()) return std::nullopt;
  return PictureSize{LowPairAt(bytes, 18) | LowPairAt(bytes, 20) << 16,
                     LowPairAt(bytes, 22) | LowPairAt(bytes, 24) << 16};
}

}  // namespace

std::optional<PictureSize> SizeOfPicture(std::string_view bytes) {
  for (const auto size_of : {SizeOfJpeg, SizeOfPng, SizeOfBmp}) {
    if (const auto size = size_of(bytes)) return size;
  }
  return std::nullopt;
}

}  // namespace kestrune::platform
