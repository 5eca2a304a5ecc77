#include "ui/face/command_line.h"

#include "core/options.h"

namespace kestrune::face {

namespace {

constexpr const char* kHelp =
    "Shows and changes the display driver's settings.\n"
    "Usage: kestrune [PROFILE]\n"
    "\n"
    "PROFILE is the path of a speed profile to apply without a window; it may hold blanks.\n"
    "kestrunectl is the same program for a terminal.\n"
    "\n"
    "Options, each alone:\n"
    "  --help                   Print this and end\n"
    "  --version                Print the version and end\n"
    "\n"
    "Environment:\n"
    "  KESTRUNE_STORE           The registry's file\n"
    "  KESTRUNE_MACHINE         The machine's description: its name or its file\n"
    "  KESTRUNE_PROGRAM_FOLDER  The only folder for program files\n";

}  // namespace

std::string ProfilePath(int argument_count, const char* const* arguments) {
  std::string path;
  for (int i = 1; i < argument_count; ++i) {
    if (i > 1) path += ' ';
    path += arguments[i];
  }
  return path;
}

std::optional<std::string> PrintedAnswer(int argument_count, const char* const* arguments) {
  const std::string line = ProfilePath(argument_count, arguments);
  if (argument_count != 2) return std::nullopt;
  if (line == "--help") return kHelp;
  if (line == "--version") return "kestrune " + core::VersionText() + "\n";
  return std::nullopt;
}

}  // namespace kestrune::face
