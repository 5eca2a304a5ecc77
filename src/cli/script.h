#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "cli/control_text.h"
#include "cli/output.h"
#include "cli/session.h"
#include "cli/step.h"
#include "ui/forms/program.h"

namespace kestrune::cli {

/// Carries out steps in a program, as a person at its window would. Their ids must be known ones.
class Script {
 public:
  Script(
      forms::Program& program, Output& out, const Streams& streams,
      std::function<bool()> has_failed = [] { return false; })
      : program_(program), out_(out), streams_(streams), has_failed_(std::move(has_failed)) {}

  /// The steps run in order until one is refused, or something has failed. What was done stays.
  Status Run(const std::vector<Step>& steps);

 private:
  platform::Result<void> Do(const Step& step);
  platform::Result<void> Use(const Step& step, controls::Control& control);
  platform::Result<void> Open(const std::string& window);
  platform::Result<void> OpenFor(const controls::Control& control);
  platform::Result<void> Close(const std::string& window);
  platform::Result<void> GoTo(const controls::Control& control);
  void Print(controls::Control& control);
  void Show(const std::string& id);

  forms::Program& program_;
  Output& out_;
  Streams streams_;
  std::function<bool()> has_failed_;
};

}  // namespace kestrune::cli
