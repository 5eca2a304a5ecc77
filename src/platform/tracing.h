#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/display_api.h"
#include "platform/files_wrapper.h"
#include "platform/registry_wrapper.h"
#include "platform/shell_api.h"

/// Wrappers that tell what was done through a service, one line for each change that happened.
namespace kestrune::platform {

/// What a line tells: a change that a group may take back, or something that stays done.
enum class TraceKind { kChange, kCommand };

/// Takes a line: "write", "delete", "run" and so on, with its particulars, separated by tabs.
using TraceSink = std::function<void(TraceKind kind, const std::string& line)>;

/// The lines of several wrappers in their order. Those of a group of changes wait for its end; when
/// it is taken back only its commands are told.
class Trace {
 public:
  explicit Trace(TraceSink sink) : sink_(std::move(sink)) {}

  void Tell(TraceKind kind, std::string line);
  void BeginGroup() { ++groups_open_; }
  /// Groups nest; the outermost one counts.
  void EndGroup(bool kept);

 private:
  struct Line {
    TraceKind kind;
    std::string text;
  };

  TraceSink sink_;
  std::vector<Line> waiting_;
  int groups_open_ = 0;
};

/// Tells each value that was written, equal bytes included, and each that was deleted.
class TracingRegistry : public RegistryWrapper {
 public:
  TracingRegistry(RegistryApi& inner, Trace& trace) : RegistryWrapper(inner), trace_(trace) {}

  RegStatus SetValue(RegHandle key, std::string_view name, RegType type,
                     std::span<const std::byte> data) override;
  RegStatus DeleteValue(RegHandle key, std::string_view name) override;
  RegStatus SetDefaultValue(RegRoot root, std::string_view path, std::string_view text) override;
  RegStatus DeleteKey(RegRoot root, std::string_view path) override;
  RegStatus BeginChanges() override;
  RegStatus EndChanges(bool keep) override;

 private:
  void TellWrite(const KeyAddress& key, std::string_view name, RegType type,
                 std::span<const std::byte> data);
  void TellDelete(const std::string& key, std::string_view name);

  Trace& trace_;
};

/// Tells each change of mode that was made or waits for a restart, and each restart.
class TracingDisplay : public DisplayApi {
 public:
  TracingDisplay(DisplayApi& inner, Trace& trace) : inner_(inner), trace_(trace) {}

  std::optional<DisplayDevice> DeviceAt(int index) override { return inner_.DeviceAt(index); }
  std::optional<DisplayMode> ModeAt(int number) override { return inner_.ModeAt(number); }
  ModeChange ChangeMode(const ModeRequest& request) override;
  bool MustConfirm() override { return inner_.MustConfirm(); }
  void RestartComputer() override;

 private:
  DisplayApi& inner_;
  Trace& trace_;
};

/// Tells each command before it is started.
class TracingShell : public ShellApi {
 public:
  TracingShell(ShellApi& inner, Trace& trace) : inner_(inner), trace_(trace) {}

  bool StartCommand(std::string_view command_line, WindowState window) override;
  Result<std::unique_ptr<ChildProcess>, StartFault> StartProgram(std::string_view command_line,
                                                                 WindowState window) override;
  bool SetCurrentFolder(std::string_view folder) override {
    return inner_.SetCurrentFolder(folder);
  }
  bool OpenWebPage(std::string_view address) override;
  bool OpenControlPanelItem(std::string_view item) override;

 private:
  ShellApi& inner_;
  Trace& trace_;
};

/// Tells each file that was written or deleted. What is added to one belongs to a file that was
/// told when it was begun. No group of changes takes one back.
class TracingFiles : public FilesWrapper {
 public:
  TracingFiles(FilesApi& inner, Trace& trace) : FilesWrapper(inner), trace_(trace) {}

  Result<void, FileFailure> WriteFile(std::string_view path, std::string_view bytes) override;
  Result<void, FileFailure> RemoveFile(std::string_view path) override;
  Result<void> ReplaceAnyFile(const std::string& path, std::string_view bytes) override;
  Result<std::unique_ptr<OutputFile>> CreateAnyFile(const std::string& path) override;

 private:
  void Tell(std::string_view what, const std::string& path);
  /// Tells of a file by the path that it was asked for.
  void TellAny(const std::string& path);

  Trace& trace_;
};

}  // namespace kestrune::platform
