#pragma once

#include <string>

namespace kestrune::core {

/// What every part of the program shares about its run. The numbers are flags, 0 or 1, where
/// nothing else is said.
struct ProgramState {
  /// Index of the page shown, 0 to 15.
  int ActivePage = 4;
  /// 1 until the start-up has written the version texts: the multitexturing and shader pages
  /// don't offer their Apply buttons then.
  int IsLoading = 0;
  /// While it is 1 the pages' handlers let their controls change and write nothing.
  int IsStart = 0;
  /// A second processor is present.
  int TwoCPU = 0;
  /// Hover help is on.
  int HelpSystemEnabled = 0;
  /// The help topic shown last; 999 is none.
  int LastHelpTopic = 999;
  /// The card's texture-unit count is not known, or below 2.
  int LowTextureUnits = 0;
  /// Processor speed in MHz; 0 when it isn't known.
  int Mhz = 0;
  /// Opacity of the help window, 0 (invisible) to 255.
  int TranslucenceLevel = 0;
  /// The monitor is recording.
  int Recording = 0;
  /// The command line while the speed profile that it names is being applied.
  std::string CommandLinePreset;
};

/// Holds a flag at 1 for as long as it lives and then puts the former value back.
class FlagScope {
 public:
  explicit FlagScope(int& flag) : flag_(flag), before_(flag) { flag_ = 1; }
  ~FlagScope() { flag_ = before_; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;

 private:
  int& flag_;
  int before_;
};

}  // namespace kestrune::core
