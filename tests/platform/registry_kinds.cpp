#include "platform/registry_kinds.h"

#include <optional>

#include "platform/memory_registry.h"
#include "platform/tracing.h"

namespace kestrune::platform {

namespace {

class MemoryUnderTest : public RegistryUnderTest {
 public:
  RegistryApi& Registry() override { return registry_; }

 private:
  MemoryRegistry registry_;
};

/// Laid over another one, which holds what was there before and must stay as it is.
class OverlayUnderTest : public RegistryUnderTest {
 public:
  RegistryApi& Registry() override { return *overlay_; }
  void Fill(const std::function<void(RegistryApi&)>& fill) override {
    overlay_.reset();
    fill(below_.emplace());
    overlay_.emplace(*below_);
  }

 private:
  std::optional<MemoryRegistry> below_{std::in_place};
  std::optional<OverlayRegistry> overlay_{*below_};
};

class TracedUnderTest : public RegistryUnderTest {
 public:
  RegistryApi& Registry() override { return tracing_; }

 private:
  MemoryRegistry registry_;
  Trace trace_{[](TraceKind, const std::string&) {}};
  TracingRegistry tracing_{registry_, trace_};
};

template <class Subject>
std::unique_ptr<RegistryUnderTest> Make() {
  return std::make_unique<Subject>();
}

constexpr RegistryKind kKinds[] = {
    {"Memory", Make<MemoryUnderTest>},
    {"Overlay", Make<OverlayUnderTest>},
    {"TracedMemory", Make<TracedUnderTest>},
};

}  // namespace

std::vector<RegistryKind> RegistryKinds() {
  std::vector<RegistryKind> kinds(std::begin(kKinds), std::end(kKinds));
  const std::span<const RegistryKind> machine = MachineRegistryKinds();
  kinds.insert(kinds.end(), machine.begin(), machine.end());
  return kinds;
}

}  // namespace kestrune::platform
