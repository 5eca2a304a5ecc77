#include "side_by_side.h"

#include <time.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace kestrune::bench {

namespace {

double Median(std::vector<double> numbers) {
  const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
  std::nth_element(numbers.begin(), middle, numbers.end());
  return *middle;
}

double Now(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double TimeOf(clockid_t clock, int times, const std::function<void()>& work) {
  const double start = Now(clock);
  for (int i = 0; i < times; ++i) work();
  return (Now(clock) - start) / times;
}

}  // namespace

Row Compare(std::string what, Limit limit, int rounds, const Measure& ours, const Measure& bare) {
  // The first of each fills caches and isn't counted.
  ours();
  bare();
  std::vector<double> ours_all;
  std::vector<double> bare_all;
  for (int round = 0; round < rounds; ++round) {
    if (round % 2 == 0) ours_all.push_back(ours());
    bare_all.push_back(bare());
    if (round % 2 != 0) ours_all.push_back(ours());
  }
  return {std::move(what), Median(std::move(ours_all)), Median(std::move(bare_all)), limit};
}

double ProcessorTimeOf(int times, const std::function<void()>& work) {
  return TimeOf(CLOCK_PROCESS_CPUTIME_ID, times, work);
}

double ElapsedTimeOf(int times, const std::function<void()>& work) {
  return TimeOf(CLOCK_MONOTONIC, times, work);
}

}  // namespace kestrune::bench
