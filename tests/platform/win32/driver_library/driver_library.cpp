// A driver's own library for tests: rundll32 calls its entry points as a reload command names them,
// and it answers in the computer's registry as the driver of the card that driver_key.h describes.

#include <windows.h>

#include "core/outcome.h"
#include "core/registry.h"
#include "platform/driver.h"
#include "platform/undoing_registry.h"
#include "platform/win32/driver_key.h"
#include "platform/win32/registry.h"
#include "platform/win32/text.h"

namespace kestrune::platform {
namespace {

using core::basRegistry;

std::optional<int> NumberOf(basRegistry& registry, std::string_view name) {
  return registry.ReadRegValue(RegRoot::kCurrentUser, test::kDriverKey, name).Number();
}

DescribedCard CardOf(RegistryApi& api) {
  basRegistry registry(api);
  DescribedCard card;
  card.hardware_id =
      registry.ReadRegValue(RegRoot::kCurrentUser, test::kDriverKey, "HardwareId").Text();
  card.driver = NumberOf(registry, "Release").value_or(0);
  card.is_9x = !win32::IsNt();
  card.clocks = DescribedClocks{NumberOf(registry, "Core"),   NumberOf(registry, "Memory"),
                                NumberOf(registry, "Core3D"), NumberOf(registry, "Memory3D"),
                                NumberOf(registry, "Homer"),  {}};
  return card;
}

/// Keeps what the machine remembers as texts in a key of its own.
class KeyMemory : public MachineMemory {
 public:
  explicit KeyMemory(RegistryApi& api) : registry_(api) {}

  std::optional<std::string> MachineState(std::string_view name) override {
    const core::RegValue value = registry_.ReadRegValue(RegRoot::kCurrentUser, kKey, name);
    return value.IsEmpty() ? std::nullopt : std::optional(value.Text());
  }
  RegStatus SetMachineState(std::string_view name, std::string_view text) override {
    core::Ignore(registry_.WriteRegValue(RegRoot::kCurrentUser, kKey, name, std::string(text)));
    return registry_.LastRegStatus;
  }

 private:
  inline static const std::string kKey = std::string(test::kDriverKey) + "\\Memory";

  basRegistry registry_;
};

void Answer(const char* entry_point) {
  CodePages pages(win32::SystemCodePage());
  win32::SystemRegistry system(pages);
  UndoingRegistry registry(system);
  KeyMemory memory(registry);
  DescribedDriver driver(CardOf(registry), registry, memory);
  driver.Reload(std::string("rundll32 NvCpl,") + entry_point);
}

void AnswerWithoutExceptions(const char* entry_point) {
  try {
    Answer(entry_point);
  } catch (...) {
    OutputDebugStringA("the driver gives no answer\n");
  }
}

}  // namespace
}  // namespace kestrune::platform

extern "C" {

__declspec(dllexport) void CALLBACK NvStartup(HWND, HINSTANCE, LPSTR, int) {
  kestrune::platform::AnswerWithoutExceptions("NvStartup");
}

__declspec(dllexport) void CALLBACK NvXTInit(HWND, HINSTANCE, LPSTR, int) {
  kestrune::platform::AnswerWithoutExceptions("NvXTInit");
}

__declspec(dllexport) void CALLBACK NvHWCtl(HWND, HINSTANCE, LPSTR, int) {
  kestrune::platform::AnswerWithoutExceptions("NvHWCtl");
}
}
