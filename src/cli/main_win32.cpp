#include "cli/command_line.h"
#include "cli/function_stream.h"
#include "platform/win32/console.h"
#include "platform/win32/win32_machine.h"

int main() {
  using kestrune::cli::FunctionStream;
  using kestrune::platform::win32::StandardStream;
  StandardStream output(StandardStream::Which::kOutput);
  StandardStream error(StandardStream::Which::kError);
  FunctionStream out([&output](std::string_view text) { return output.Put(text); }, true);
  FunctionStream err([&error](std::string_view text) { return error.Put(text); }, false);
  kestrune::platform::win32::ThisComputer machines;
  return kestrune::cli::RunCommandLine(kestrune::platform::win32::CommandLineWords(), machines,
                                       {out.Stream(), err.Stream()});
}
