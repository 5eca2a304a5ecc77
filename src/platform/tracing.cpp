#include "platform/tracing.h"

#include <utility>

#include "platform/open_key.h"
#include "platform/plain_text.h"
#include "platform/program_path.h"
#include "platform/value_text.h"

namespace kestrune::platform {

namespace {

/// A value that is about to be deleted.
struct DoomedValue {
  std::string key;
  std::string name;
};

/// Every value of a key and of all below it: a key before the keys below it, each in order of name.
void ListTree(RegistryApi& registry, RegRoot root, const std::string& path,
              std::vector<DoomedValue>& list) {
  OpenKey key(registry);
  std::vector<StoredValue> values;
  std::vector<std::string> below;
  if (key.Open(root, path) != RegStatus::kSuccess ||
      registry.ListValues(key.Handle(), values) != RegStatus::kSuccess ||
      registry.ListKeys(key.Handle(), below) != RegStatus::kSuccess) {
    return;
  }
  for (StoredValue& value : values) list.push_back({KeyText(root, path), std::move(value.name)});
  for (const std::string& name : below) {
    ListTree(registry, root, std::string(path).append(1, '\\').append(name), list);
  }
}

}  // namespace

void Trace::Tell(TraceKind kind, std::string line) {
  if (groups_open_ > 0) {
    waiting_.push_back({kind, std::move(line)});
  } else {
    sink_(kind, line);
  }
}

void Trace::EndGroup(bool kept) {
  if (--groups_open_ > 0) return;
  for (const Line& line : std::exchange(waiting_, {})) {
    if (kept || line.kind == TraceKind::kCommand) sink_(line.kind, line.text);
  }
}

RegStatus TracingRegistry::SetValue(RegHandle key, std::string_view name, RegType type,
                                    std::span<const std::byte> data) {
  const RegStatus status = RegistryWrapper::SetValue(key, name, type, data);
  if (status == RegStatus::kSuccess) TellWrite(Opened(key)->address, name, type, data);
  return status;
}

RegStatus TracingRegistry::DeleteValue(RegHandle key, std::string_view name) {
  const RegStatus status = RegistryWrapper::DeleteValue(key, name);
  if (status == RegStatus::kSuccess) {
    const KeyAddress& address = Opened(key)->address;
    TellDelete(KeyText(address.root, address.path), name);
  }
  return status;
}

RegStatus TracingRegistry::SetDefaultValue(RegRoot root, std::string_view path,
                                           std::string_view text) {
  const RegStatus status = RegistryWrapper::SetDefaultValue(root, path, text);
  if (status == RegStatus::kSuccess) {
    TellWrite({root, std::string(path)}, "", RegType::kSz, TextData(text));
  }
  return status;
}

RegStatus TracingRegistry::DeleteKey(RegRoot root, std::string_view path) {
  std::vector<DoomedValue> values;
  {
    const ReadScope view(Inner());
    ListTree(Inner(), root, std::string(WithoutLastBackslash(path)), values);
  }
  const RegStatus status = RegistryWrapper::DeleteKey(root, path);
  if (status != RegStatus::kSuccess) return status;
  for (const DoomedValue& value : values) TellDelete(value.key, value.name);
  return status;
}

RegStatus TracingRegistry::BeginChanges() {
  const RegStatus status = RegistryWrapper::BeginChanges();
  if (status == RegStatus::kSuccess) trace_.BeginGroup();
  return status;
}

RegStatus TracingRegistry::EndChanges(bool keep) {
  const RegStatus status = RegistryWrapper::EndChanges(keep);
  trace_.EndGroup(keep && status == RegStatus::kSuccess);
  return status;
}

void TracingRegistry::TellWrite(const KeyAddress& key, std::string_view name, RegType type,
                                std::span<const std::byte> data) {
  trace_.Tell(TraceKind::kChange, "write\t" + PlainText(KeyText(key.root, key.path)) + "\t" +
                                      ValueNameText(name) + "\t" + ValueText(type, data));
}

void TracingRegistry::TellDelete(const std::string& key, std::string_view name) {
  trace_.Tell(TraceKind::kChange, "delete\t" + PlainText(key) + "\t" + ValueNameText(name));
}

ModeChange TracingDisplay::ChangeMode(const ModeRequest& request) {
  const ModeChange change = inner_.ChangeMode(request);
  if (change == ModeChange::kFailed) return change;
  trace_.Tell(TraceKind::kCommand, "mode\t" + std::to_string(request.width) + "x" +
                                       std::to_string(request.height) +
                                       (request.depth ? "x" + std::to_string(*request.depth) : "") +
                                       "\t" + (request.is_saved ? "saved" : "unsaved"));
  return change;
}

void TracingDisplay::RestartComputer() {
  trace_.Tell(TraceKind::kCommand, "restart");
  inner_.RestartComputer();
}

bool TracingShell::StartCommand(std::string_view command_line, WindowState window) {
  trace_.Tell(TraceKind::kCommand, "run\t" + PlainText(command_line));
  return inner_.StartCommand(command_line, window);
}

Result<std::unique_ptr<ChildProcess>, StartFault> TracingShell::StartProgram(
    std::string_view command_line, WindowState window) {
  trace_.Tell(TraceKind::kCommand, "run\t" + PlainText(command_line));
  return inner_.StartProgram(command_line, window);
}

bool TracingShell::OpenWebPage(std::string_view address) {
  trace_.Tell(TraceKind::kCommand, "open\t" + PlainText(address));
  return inner_.OpenWebPage(address);
}

bool TracingShell::OpenControlPanelItem(std::string_view item) {
  trace_.Tell(TraceKind::kCommand, "open\t" + PlainText(item));
  return inner_.OpenControlPanelItem(item);
}

void TracingFiles::Tell(std::string_view what, const std::string& path) {
  trace_.Tell(TraceKind::kCommand, "file\t" + std::string(what) + '\t' + PlainText(path));
}

void TracingFiles::TellAny(const std::string& path) {
  const std::string whole = WholePath(path);
  const auto in_folder = InProgramFolder(whole, ProgramFolder());
  Tell("write", in_folder ? ProgramPathText(*in_folder) : whole);
}

Result<void, FileFailure> TracingFiles::WriteFile(std::string_view path, std::string_view bytes) {
  Result<void, FileFailure> written = FilesWrapper::WriteFile(path, bytes);
  if (written) Tell("write", ProgramPathText(path));
  return written;
}

Result<void, FileFailure> TracingFiles::RemoveFile(std::string_view path) {
  Result<void, FileFailure> removed = FilesWrapper::RemoveFile(path);
  if (removed) Tell("delete", ProgramPathText(path));
  return removed;
}

Result<void> TracingFiles::ReplaceAnyFile(const std::string& path, std::string_view bytes) {
  Result<void> written = FilesWrapper::ReplaceAnyFile(path, bytes);
  if (written) TellAny(path);
  return written;
}

Result<std::unique_ptr<OutputFile>> TracingFiles::CreateAnyFile(const std::string& path) {
  auto created = FilesWrapper::CreateAnyFile(path);
  if (created) TellAny(path);
  return created;
}

}  // namespace kestrune::platform
