#include "platform/registry_kinds.h"

#include <stdexcept>

#include "platform/portable/hardware_keys.h"
#include "platform/portable/store_registry.h"
#include "platform/temp_folder.h"
#include "platform/tracing.h"
#include "platform/undoing_registry.h"

namespace kestrune::platform {

namespace {

using portable::Store;

class StoreUnderTest : public RegistryUnderTest {
 public:
  explicit StoreUnderTest(bool dry_run = false)
      : store_(Open(folder_ / "a.store", dry_run)), registry_(*store_) {}

  RegistryApi& Registry() override { return registry_; }

 private:
  static std::unique_ptr<Store> Open(const std::string& path, bool dry_run) {
    auto store = Store::Open({.path = path, .dry_run = dry_run});
    if (!store.Ok()) throw std::runtime_error(store.Reason());
    return std::move(store).Value();
  }

  TempFolder folder_;
  std::unique_ptr<Store> store_;
  portable::StoreRegistry registry_;
};

/// A store in memory behind a wrapper.
template <class Wrapper, class Extra>
class WrapperUnderTest : public StoreUnderTest {
 public:
  explicit WrapperUnderTest(Extra extra)
      : StoreUnderTest(true),
        extra_(std::move(extra)),
        wrapper_(StoreUnderTest::Registry(), extra_) {}

  RegistryApi& Registry() override { return wrapper_; }

 private:
  Extra extra_;
  Wrapper wrapper_;
};

std::unique_ptr<RegistryUnderTest> MakeStore() { return std::make_unique<StoreUnderTest>(); }

std::unique_ptr<RegistryUnderTest> MakeDryRun() { return std::make_unique<StoreUnderTest>(true); }

std::unique_ptr<RegistryUnderTest> MakeHardware() {
  const auto processor = [] { return portable::DescribedProcessor(); };
  return std::make_unique<WrapperUnderTest<portable::HardwareKeys, decltype(processor)>>(processor);
}

std::unique_ptr<RegistryUnderTest> MakeTraced() {
  const auto ignore = [](TraceKind, const std::string&) {};
  return std::make_unique<WrapperUnderTest<TracingRegistry, Trace>>(Trace(ignore));
}

/// Groups of changes without those of the store.
class UndoingUnderTest : public StoreUnderTest {
 public:
  RegistryApi& Registry() override { return undoing_; }

 private:
  UndoingRegistry undoing_{StoreUnderTest::Registry()};
};

std::unique_ptr<RegistryUnderTest> MakeUndoing() { return std::make_unique<UndoingUnderTest>(); }

constexpr RegistryKind kKinds[] = {
    {"Store", MakeStore},   {"DryRun", MakeDryRun},   {"BehindHardware", MakeHardware},
    {"Traced", MakeTraced}, {"Undoing", MakeUndoing},
};

}  // namespace

std::span<const RegistryKind> MachineRegistryKinds() { return kKinds; }

bool MachineHoldsEveryCharacter() { return true; }

}  // namespace kestrune::platform
