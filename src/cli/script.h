#pragma once

#include <string>
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
  Script(forms::Program& program, Output& out, const Streams& streams)
      : program_(program), out_(out), streams_(streams) {}

  /// The steps run in order until one is refused. What was done stays.
  Status Run(const std::vector<Step>& steps);

 private:
  platform::Result<void> Do(const Step& step);
  platform::Result<void> Use(const Step& step, controls::Control& control);
  platform::Result<void> Open(const std::string& window);
  platform::Result<void> OpenFor(const controls::Control& control);
  platform::Result<void> Close(const std::string& window);
  const controls::Control* WayTo(int page) const;
  platform::Result<void> GoTo(const controls::Control& control);
  void Print(controls::Control& control);
  void Show(const std::string& id);

  forms::Program& program_;
  Output& out_;
  Streams streams_;
};

}  // namespace kestrune::cli
