#pragma once

#include "cli/command.h"

/// What a person does, step by step.
namespace kestrune::cli {

platform::Result<std::vector<Step>> ShowSteps(const Arguments& arguments);
platform::Result<std::vector<Step>> GetSteps(const Arguments& arguments);
platform::Result<std::vector<Step>> SetSteps(const Arguments& arguments);
platform::Result<std::vector<Step>> PressSteps(const Arguments& arguments);
/// Steps as `do` writes them.
platform::Result<std::vector<Step>> WrittenSteps(const Arguments& arguments);

/// Carries out the steps of the run.
Status DoSteps(Run& run, forms::Program& program);
/// The same of a command that prints, so that it has a document.
Status PrintSteps(Run& run, forms::Program& program);

}  // namespace kestrune::cli
