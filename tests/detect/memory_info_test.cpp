#include "detect/memory_info.h"

#include <gtest/gtest.h>

namespace kestrune::detect {
namespace {

TEST(MemoryInfoTest, MemoryIsToldInWholeMegabytes) {
  constexpr std::int64_t kMegabyte = 1 << 20;
  struct Case {
    std::int64_t total;
    std::int64_t available;
    MemoryMegabytes told;
  };
  for (const auto& [total, available, told] : {
           Case{1024 * kMegabyte, 512 * kMegabyte, {1024, 513}},
           Case{535822336, 134217728, {512, 129}},
           Case{1022 * kMegabyte, kMegabyte / 2, {1022, 1}},
           Case{1023 * kMegabyte + kMegabyte * 2 / 5, kMegabyte * 3 / 2, {1024, 3}},
           Case{1022 * kMegabyte + kMegabyte / 2, kMegabyte * 5 / 2, {1022, 3}},
           Case{65536 * kMegabyte, 0, {65536, 1}},
           Case{0, 0, {0, 1}},
       }) {
    EXPECT_EQ(GetMemInfo({total, available}), told) << total << " " << available;
  }
}

}  // namespace
}  // namespace kestrune::detect
