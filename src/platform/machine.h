#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/inspection.h"
#include "platform/result.h"
#include "platform/services.h"

namespace kestrune::platform {

/// A machine: it owns what every service of the seam works on, except the dialogs, which a face
/// brings along.
class Machine {
 public:
  virtual ~Machine() = default;

  /// Good for as long as both this and the dialogs live.
  virtual Services ServicesFor(DialogApi& dialog) = 0;
  /// The first failure that no caller was told of, in one sentence; a face tells it once.
  virtual std::optional<std::string> FirstFailure() const = 0;
  /// What tells it from the computer that the program runs on; empty for that computer itself.
  virtual std::string Title() const = 0;
  /// What was odd when the machine was opened, a sentence each.
  virtual const std::vector<std::string>& Warnings() const = 0;
};

/// What a command line says about the machine. What is empty comes from the environment, else from
/// the defaults.
struct MachineOptions {
  std::string store = {};           ///< the registry's file
  std::string machine = {};         ///< a description's name, or its file
  std::string program_folder = {};  ///< the only folder for program files
  bool dry_run = false;             ///< nothing is kept, and no program is started
};

/// A machine that is described by a file.
struct MachineInfo {
  std::string name;  ///< as MachineOptions take it
  std::string title;
  std::string file;
  std::vector<std::string> warnings = {};  ///< what is odd about the file, a sentence each
};

/// Opens machines of one kind for a face. Only the main file of a program knows which kind.
class MachineSource {
 public:
  virtual ~MachineSource() = default;

  /// The reason of a failure is one sentence for a person.
  virtual Result<std::unique_ptr<Machine>> Open(const MachineOptions& options) = 0;
  /// Everything that such machines stand on, to be looked at without opening one.
  virtual Result<std::unique_ptr<Inspection>> Inspect(const MachineOptions& options) = 0;
  /// Whether the registry is a file that a command line can choose.
  virtual bool HasStores() const = 0;
  /// Whether there are several machines to choose from, by their descriptions.
  virtual bool HasDescriptions() const = 0;
  /// The descriptions by name. The title of a faulty one says what is wrong with it.
  virtual std::vector<MachineInfo> List(const MachineOptions& options) = 0;
  /// The description that a name or a file stands for.
  virtual Result<MachineInfo> Describe(const std::string& machine,
                                       const MachineOptions& options) = 0;
};

}  // namespace kestrune::platform
