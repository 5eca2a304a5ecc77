#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// How command lines are taken apart.
namespace kestrune::platform {

/// The words of a command line: blanks separate them, except between double quotes.
std::vector<std::string> SplitCommandLine(std::string_view command_line);

/// Whether a command line is one for the driver: its first word is "rundll32", in any case, with
/// or without ".exe".
bool IsReloadCommand(std::string_view command_line);

/// A beginning of a command line that may name a program.
struct CommandBeginning {
  std::string name;       ///< without double quotes
  std::string_view rest;  ///< what stands behind it; part of the command line
};

/// The beginnings up to a blank outside double quotes, shortest first, and the whole text. Blanks
/// in front count for nothing, and one of more than `longest` bytes is none.
std::vector<CommandBeginning> BeginningsOf(std::string_view command_line, std::size_t longest);

}  // namespace kestrune::platform
