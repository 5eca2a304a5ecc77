#include "detect/memory_info.h"

#include "core/number.h"

namespace kestrune::detect {

namespace {

int Megabytes(std::int64_t bytes) {
  constexpr double kKilo = 1024;
  return core::RoundToInt32(static_cast<double>(bytes) / kKilo / kKilo).value_or(0);
}

}  // namespace

MemoryMegabytes GetMemInfo(const platform::MemoryStatus& memory) {
  // What a machine keeps of its modules for itself is not told.
  constexpr int kModule = 4;
  const int total = Megabytes(memory.total);
  return {(total + 1) % kModule == 0 ? total + 1 : total, Megabytes(memory.available) + 1};
}

}  // namespace kestrune::detect
