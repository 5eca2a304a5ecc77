#pragma once

#include <functional>
#include <string>

namespace kestrune::bench {

/// What ours / bare may be at most, and what it is meant to be.
struct Limit {
  double most = 0;
  double aim = 0;
};

enum class Unit { kMicroseconds, kKilobytes };

/// One line of the table.
struct Row {
  std::string what;
  double ours = 0;  ///< the median, in seconds or bytes
  double bare = 0;
  Limit limit;
  Unit unit = Unit::kMicroseconds;

  double Ratio() const { return ours / bare; }
};

/// Does some work once and gives the seconds that it took, or the bytes.
using Measure = std::function<double()>;

/// Measures both in turn, as often as there are rounds, and takes the median of each. Which of the
/// two goes first changes from round to round.
Row Compare(std::string what, Limit limit, int rounds, const Measure& ours, const Measure& bare);

/// Seconds for one of `times` repetitions of some work: of this program's processor time, which
/// doesn't count what other programs do meanwhile, or of time that went by.
double ProcessorTimeOf(int times, const std::function<void()>& work);
double ElapsedTimeOf(int times, const std::function<void()>& work);

}  // namespace kestrune::bench
