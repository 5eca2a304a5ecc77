#include <iostream>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "platform/portable/portable_machine.h"

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  kestrune::platform::portable::PortableMachines machines;
  return kestrune::cli::RunCommandLine(arguments, machines, {std::cout, std::cerr});
}
