#pragma once

#include <array>
#include <cstdio>
#include <memory>
#include <string>

namespace kestrune::platform {

/// The bytes of a file of the disk; empty when it can't be read.
inline std::string ReadAll(const std::string& file) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen(file.c_str(), "rb"),
                                                               std::fclose);
  std::string bytes;
  std::array<char, 65536> part;
  while (stream != nullptr) {
    const std::size_t count = std::fread(part.data(), 1, part.size(), stream.get());
    if (count == 0) break;
    bytes.append(part.data(), count);
  }
  return bytes;
}

}  // namespace kestrune::platform
