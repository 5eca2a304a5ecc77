#include "cli/registry_commands.h"

#include <optional>

#include "platform/open_key.h"
#include "platform/plain_text.h"
#include "platform/reg_file.h"
#include "platform/reg_text.h"
#include "platform/reg_writer.h"
#include "platform/registry_limits.h"
#include "platform/utf16.h"
#include "platform/value_text.h"

namespace kestrune::cli {

namespace {

using platform::KeyAddress;
using platform::OpenKey;
using platform::RegistryApi;
using platform::RegStatus;
using platform::RegType;
using platform::StoredValue;

constexpr std::string_view kUtf16Mark = "\xFF\xFE";

/// The name of the value that is meant.
std::string NameOf(const Run& run) {
  const std::string& name = run.arguments.Word("NAME");
  return name == "@" ? std::string() : name;
}

std::optional<KeyAddress> KeyOf(const Run& run) {
  const std::string& key = run.arguments.Word("KEY");
  std::optional<KeyAddress> address = platform::ParseKey(key);
  if (!address) {
    run.streams.Complain("\"" + key + "\" is no key: it starts with HKLM\\, HKCU\\ or HKCR\\.");
  }
  return address;
}

/// The machine makes its description itself. False, after a sentence, for a key of it.
bool MayChange(const Run& run, const KeyAddress& address) {
  if (!platform::IsHardwareDescription(address.root, address.path)) return true;
  run.streams.Complain(run.arguments.Word("KEY") +
                       " describes the machine's hardware, which nobody changes.");
  return false;
}

Json ValueJson(RegType type, std::span<const std::byte> data) {
  // A text has the escapes of JSON alone.
  const std::optional<std::string> text = platform::TextOf(type, data);
  return {{"type", platform::TypeText(type, data)},
          {"data", text ? *text : platform::DataText(type, data)}};
}

/// Which of the registry's limits keeps a value from being written.
std::string LimitBroken(std::string_view path, std::string_view name, std::size_t size) {
  for (const char* fault :
       {platform::KeyFault(path), platform::ValueNameFault(name), platform::DataFault(size)}) {
    if (fault != nullptr) return std::string(": ") + fault;
  }
  return {};
}

bool Exists(RegistryApi& registry, const KeyAddress& address) {
  OpenKey key(registry);
  return key.Open(address.root, address.path) == RegStatus::kSuccess;
}

/// Puts exported text where it is asked for: on standard output, or into a file, where version 5 is
/// UTF-16.
Status PutExport(Run& run, platform::FilesApi& files, platform::RegTextForm form,
                 const std::string& text) {
  const std::string& file = run.arguments.Word("FILE");
  const bool is_version5 = form == platform::RegTextForm::kVersion5;
  if (file.empty()) {
    run.out.Text(text);
    run.out.Document(is_version5 ? text : files.DecodeText(text, 0));
    return Status::kDone;
  }
  if (run.options.machine.dry_run) return Status::kDone;
  const auto written = files.ReplaceAnyFile(
      file, is_version5 ? std::string(kUtf16Mark) + platform::ToUtf16(text) : text);
  if (written) return Status::kDone;
  run.streams.Complain(file + " can't be written: " + written.Reason() + ".");
  return Status::kImpossible;
}

}  // namespace

Status ReadRegistry(Run& run, Session& session) {
  const std::optional<KeyAddress> address = KeyOf(run);
  if (!address) return Status::kWrongUsage;
  RegistryApi& registry = session.Registry();
  const platform::ReadScope view(registry);
  OpenKey opened(registry);
  const std::string name = NameOf(run);
  RegType type = RegType::kNone;
  std::size_t size = 0;
  if (opened.Open(address->root, address->path) != RegStatus::kSuccess ||
      registry.QueryValue(opened.Handle(), name, type, size, {}) != RegStatus::kSuccess) {
    return Status::kNo;
  }
  std::vector<std::byte> data(size);
  if (registry.QueryValue(opened.Handle(), name, type, size, data) != RegStatus::kSuccess) {
    return Status::kNo;
  }
  run.out.Document(ValueJson(type, data));
  run.out.Line(platform::ValueText(type, data));
  return Status::kDone;
}

Status WriteRegistry(Run& run, Session& session) {
  const std::optional<KeyAddress> address = KeyOf(run);
  if (!address) return Status::kWrongUsage;
  const std::string& type_text = run.arguments.Word("TYPE");
  const std::optional<RegType> type = platform::ParseType(type_text);
  if (!type) {
    run.streams.Complain("\"" + type_text +
                         "\" is no type: REG_DWORD, REG_BINARY, REG_SZ or TYPE_ and a number.");
    return Status::kWrongUsage;
  }
  const auto data = platform::ParseData(type_text, run.arguments.List("DATA"));
  if (!data) {
    run.streams.Complain("the data is no " + type_text + ".");
    return Status::kWrongUsage;
  }
  if (!MayChange(run, *address)) return Status::kImpossible;
  RegistryApi& registry = session.Registry();
  OpenKey opened(registry);
  if (opened.Create(address->root, address->path) != RegStatus::kSuccess ||
      registry.SetValue(opened.Handle(), NameOf(run), *type, *data) != RegStatus::kSuccess) {
    // What the machine remembers is told at the end.
    if (!session.HasFailed()) {
      run.streams.Complain(run.arguments.Word("KEY") + " can't be written" +
                           LimitBroken(address->path, NameOf(run), data->size()) + ".");
    }
    return Status::kImpossible;
  }
  return Status::kDone;
}

Status DeleteRegistry(Run& run, Session& session) {
  const std::optional<KeyAddress> address = KeyOf(run);
  if (!address) return Status::kWrongUsage;
  if (!MayChange(run, *address)) return Status::kImpossible;
  RegistryApi& registry = session.Registry();
  OpenKey opened(registry);
  if (opened.Open(address->root, address->path) != RegStatus::kSuccess) return Status::kNo;
  const RegStatus status = registry.DeleteValue(opened.Handle(), NameOf(run));
  return status == RegStatus::kSuccess ? Status::kDone : Status::kNo;
}

Status ListRegistry(Run& run, Session& session) {
  const std::optional<KeyAddress> address = KeyOf(run);
  if (!address) return Status::kWrongUsage;
  RegistryApi& registry = session.Registry();
  const platform::ReadScope view(registry);
  OpenKey opened(registry);
  std::vector<std::string> keys;
  std::vector<StoredValue> values;
  if (opened.Open(address->root, address->path) != RegStatus::kSuccess ||
      registry.ListKeys(opened.Handle(), keys) != RegStatus::kSuccess ||
      registry.ListValues(opened.Handle(), values) != RegStatus::kSuccess) {
    return Status::kNo;
  }
  run.out.BeginList();
  for (const std::string& name : keys) {
    run.out.Item({{"key", name}});
    run.out.Line(platform::PlainText(name) + "\\");
  }
  for (const StoredValue& value : values) {
    Json item = {{"name", value.name.empty() ? "@" : value.name}};
    item.update(ValueJson(value.type, value.data));
    run.out.Item(std::move(item));
    run.out.Line(platform::ValueNameText(value.name) + '\t' +
                 platform::ValueText(value.type, value.data));
  }
  return Status::kDone;
}

Status ExportRegistry(Run& run, Session& session) {
  const std::optional<KeyAddress> address = KeyOf(run);
  if (!address) return Status::kWrongUsage;
  RegistryApi& registry = session.Registry();
  if (!Exists(registry, *address)) return Status::kNo;
  const auto form = run.arguments.Flag("--regedit4") ? platform::RegTextForm::kVersion4
                                                     : platform::RegTextForm::kVersion5;
  const auto text =
      platform::WriteRegText(registry, address->root, address->path, form, session.Files());
  if (text) return PutExport(run, session.Files(), form, text.Value());
  run.streams.Complain(text.Reason());
  return Status::kImpossible;
}

Status ImportRegistry(Run& run, Session& session) {
  const std::string& file = run.arguments.Word("FILE");
  const auto bytes = session.Files().ReadAnyFile(file);
  if (!bytes.Ok()) {
    run.streams.Complain(file + " can't be read: " + bytes.Reason() + ".");
    return Status::kImpossible;
  }
  const auto applied =
      platform::ImportRegFile(bytes.Value(), file, session.Files(), session.Registry());
  if (applied) {
    const auto [keys, values] = applied.Value();
    run.out.Document({{"keys", keys}, {"values", values}});
    run.out.Line(std::to_string(keys) + " keys, " + std::to_string(values) + " values");
    return Status::kDone;
  }
  // What the machine remembers is told at the end.
  if (!session.HasFailed()) run.streams.Complain(applied.Reason());
  return Status::kImpossible;
}

}  // namespace kestrune::cli
