#include "platform/registry_kinds.h"

#include <windows.h>

#include <array>
#include <stdexcept>
#include <string>

#include "platform/undoing_registry.h"
#include "platform/win32/registry.h"
#include "platform/win32/text.h"

namespace kestrune::platform {

namespace {

constexpr const char* kTestKey = "Software\\KestruneTests";

/// Lets keys below one of the user's stand for the roots, so that a test finds them empty and
/// leaves the system's alone.
class OwnRoots {
 public:
  OwnRoots() {
    Delete();
    for (std::size_t i = 0; i < kRoots.size(); ++i) {
      HKEY key = nullptr;
      const std::string path = std::string(kTestKey) + "\\" + std::to_string(i);
      if (RegCreateKeyA(HKEY_CURRENT_USER, path.c_str(), &key) != ERROR_SUCCESS) {
        throw std::runtime_error("the registry takes no key for tests");
      }
      keys_[i] = key;
    }
    for (std::size_t i = 0; i < kRoots.size(); ++i) RegOverridePredefKey(kRoots[i], keys_[i]);
  }
  ~OwnRoots() {
    for (std::size_t i = 0; i < kRoots.size(); ++i) {
      RegOverridePredefKey(kRoots[i], nullptr);
      RegCloseKey(keys_[i]);
    }
    Delete();
  }
  OwnRoots(const OwnRoots&) = delete;
  OwnRoots& operator=(const OwnRoots&) = delete;

 private:
  static void Delete() {
    CodePages pages(win32::SystemCodePage());
    win32::SystemRegistry(pages).DeleteKey(RegRoot::kCurrentUser, kTestKey);
  }

  inline static const std::array<HKEY, 3> kRoots = {HKEY_LOCAL_MACHINE, HKEY_CLASSES_ROOT,
                                                    HKEY_CURRENT_USER};
  std::array<HKEY, 3> keys_{};
};

class SystemUnderTest : public RegistryUnderTest {
 public:
  RegistryApi& Registry() override { return undoing_; }
  bool HoldsTextsWithoutNul() const override { return win32::IsNt(); }

 private:
  OwnRoots roots_;
  CodePages pages_{win32::SystemCodePage()};
  win32::SystemRegistry registry_{pages_};
  UndoingRegistry undoing_{registry_};
};

std::unique_ptr<RegistryUnderTest> MakeSystem() { return std::make_unique<SystemUnderTest>(); }

constexpr RegistryKind kKinds[] = {{"System", MakeSystem}};

}  // namespace

std::span<const RegistryKind> MachineRegistryKinds() { return kKinds; }

bool MachineHoldsEveryCharacter() { return false; }

}  // namespace kestrune::platform
