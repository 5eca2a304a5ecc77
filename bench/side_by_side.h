#pragma once

#include <functional>
#include <string>

namespace kestrune::bench {

/// One line of the table.
struct Row {
  std::string what;
  double ours = 0;  ///< seconds, the median
  double bare = 0;
  double limit = 0;  ///< what ours / bare may be at most

  double Ratio() const { return ours / bare; }
};

/// Does some work once and gives the seconds that it took.
using Measure = std::function<double()>;

/// Measures both in turn, as often as there are rounds, and takes the median of each. Which of the
/// two goes first changes from round to round.
Row Compare(std::string what, double limit, int rounds, const Measure& ours, const Measure& bare);

/// Seconds for one of `times` repetitions of some work: of this program's processor time, which
/// doesn't count what other programs do meanwhile, or of time that went by.
double ProcessorTimeOf(int times, const std::function<void()>& work);
double ElapsedTimeOf(int times, const std::function<void()>& work);

}  // namespace kestrune::bench
