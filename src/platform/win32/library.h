#pragma once

#include <string>

namespace kestrune::platform::win32 {

/// A library of the system that need not be there, loaded for as long as this lives.
class Library {
 public:
  explicit Library(const char* name);
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  /// A function by its name; null when the library or the function isn't there.
  template <class Function>
  Function* Find(const char* name) const {
    return reinterpret_cast<Function*>(Address(name));
  }

 private:
  void* Address(const char* name) const;

  void* library_;
};

}  // namespace kestrune::platform::win32
