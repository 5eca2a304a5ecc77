#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/control_text.h"
#include "cli/session.h"
#include "ui/forms/program.h"

namespace kestrune::cli {

/// One step of what a person does.
struct Step {
  enum class Kind { kSet, kPress, kPrint, kHover, kOpen, kClose, kPage, kWait };

  Kind kind = Kind::kPress;
  std::string id = {};     ///< of a control, page or window
  std::string value = {};  ///< of a set
  long long wait_ms = 0;
};

/// Reads one step of `do`; nothing when it has no such form.
std::optional<Step> ParseStep(const std::string& text);

/// Carries out steps in a program, as a person at its window would.
class Script {
 public:
  Script(forms::Program& program, const GlobalOptions& options, const Streams& streams)
      : program_(program), options_(options), streams_(streams) {}

  /// Checks every id before anything is done; then the steps run in order until one is refused.
  /// What was done stays. Printed values come one a line, or wait for PrintDocument.
  Status Run(const std::vector<Step>& steps);
  /// Prints what the steps of all runs printed as one document, where JSON is asked for.
  void PrintDocument() const;
  /// Prints every control of a page or window, or of all pages.
  Status Show(const std::string& id);

 private:
  bool CheckIds(const std::vector<Step>& steps) const;
  bool IsWindow(std::string_view id) const;
  bool KnowsTarget(const Step& step) const;
  std::string Nearest(std::string_view id) const;
  std::optional<std::string> Do(const Step& step);
  std::optional<std::string> Open(const std::string& window);
  std::optional<std::string> Close(const std::string& window);
  void GoTo(const controls::Control& control);
  void Print(controls::Control& control);

  forms::Program& program_;
  const GlobalOptions& options_;
  Streams streams_;
  Json printed_ = Json::array();
};

}  // namespace kestrune::cli
