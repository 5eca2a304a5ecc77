#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

#include "read_all.h"

namespace kestrune::platform {

/// A folder for one test, gone with it.
class TempFolder {
 public:
  TempFolder() {
    std::random_device random;
    const std::string start = (std::filesystem::temp_directory_path() / "kestrune-").string();
    do {
      path_ = start + std::to_string(random());
    } while (!std::filesystem::create_directory(path_));
    // Tests that give up their rights still have to get in.
    std::filesystem::permissions(path_, std::filesystem::perms(0777));
  }
  ~TempFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }

  /// Writes a file, with the folders that lead to it.
  std::string Write(std::string_view name, std::string_view bytes) const {
    std::string file = *this / name;
    std::filesystem::create_directories(std::filesystem::path(file).parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
  }

 private:
  std::string path_;
};

}  // namespace kestrune::platform
