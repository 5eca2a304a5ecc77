#include "platform/win32/library.h"

#include <windows.h>

namespace kestrune::platform::win32 {

Library::Library(const char* name) : library_(LoadLibraryA(name)) {}

Library::~Library() {
  if (library_ != nullptr) FreeLibrary(static_cast<HMODULE>(library_));
}

void* Library::Address(const char* name) const {
  if (library_ == nullptr) return nullptr;
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library_), name));
}

}  // namespace kestrune::platform::win32
