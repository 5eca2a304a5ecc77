#pragma once

#include <string_view>

#include "platform/registry_api.h"

namespace kestrune::platform {

/// A key that is closed when this goes out of scope, or when another one is opened.
class OpenKey {
 public:
  explicit OpenKey(RegistryApi& registry) : registry_(registry) {}
  ~OpenKey() { Close(); }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;

  RegStatus Open(RegRoot root, std::string_view path) {
    Close();
    return registry_.OpenKey(root, path, handle_);
  }
  RegStatus Create(RegRoot root, std::string_view path) {
    Close();
    return registry_.CreateKey(root, path, handle_);
  }
  /// 0 while no key is open.
  RegHandle Handle() const { return handle_; }

 private:
  void Close() {
    if (handle_ != 0) registry_.CloseKey(handle_);
    handle_ = 0;
  }

  RegistryApi& registry_;
  RegHandle handle_ = 0;
};

}  // namespace kestrune::platform
