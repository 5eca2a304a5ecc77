#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "cli/output.h"
#include "cli/session.h"
#include "cli/step.h"
#include "platform/machine.h"
#include "platform/result.h"
#include "ui/forms/program.h"

namespace kestrune::cli {

/// The words behind a command, by the names that its row gives them; what was left out is empty.
struct Arguments {
  std::map<std::string_view, std::string> words;
  std::map<std::string_view, std::vector<std::string>> lists;
  std::map<std::string_view, bool> flags;

  const std::string& Word(std::string_view name) const { return words.at(name); }
  const std::vector<std::string>& List(std::string_view name) const { return lists.at(name); }
  bool Flag(std::string_view name) const { return flags.at(name); }
};

/// What the function of a command works with, beside what is open.
struct Run {
  const GlobalOptions& options;
  const Arguments& arguments;
  const Streams& streams;
  platform::MachineSource& machines;
  Output& out;
  std::vector<Step> steps = {};  ///< those of the command's row, with known ids
  /// Whether something failed that nobody was told of yet. Then a command goes no further.
  std::function<bool()> has_failed = [] { return false; };
  Session* session = nullptr;  ///< what is open; null for a command that opens nothing by itself
};

/// What a command does. What it takes says what has to be open: nothing, the machine, or the
/// started program.
using Function =
    std::variant<Status (*)(Run&), Status (*)(Run&, Session&), Status (*)(Run&, forms::Program&)>;

/// One command of the terminal.
struct Command {
  std::string_view name;  ///< with its group: "registry read"
  std::string_view help;
  /// Their names: "[--flag] [--option=WORD] KEY [NAME] DATA..."; what stands in brackets may be
  /// left out.
  std::string_view arguments;
  Function function;
  /// The steps that it carries out: their ids are checked before anything is opened.
  platform::Result<std::vector<Step>> (*steps)(const Arguments& arguments) = nullptr;
  /// Null for a command that every machine has.
  bool (platform::MachineSource::*offered)() const = nullptr;
  /// Nothing behind its first argument is an option, whatever it looks like.
  bool takes_all_words = false;
};

struct Flag {
  std::string_view name;
  std::string_view help;
};

/// A word before the names of several commands.
struct CommandGroup {
  std::string_view name;
  std::string_view help;
  std::span<const Flag> flags = {};  ///< of every command of the group, one of them at a time
};

/// All commands in the order of the help, those of a group beside each other.
std::span<const Command> Commands();
std::span<const CommandGroup> CommandGroups();

}  // namespace kestrune::cli
