#include "cli/registry_commands.h"

#include "cli/control_text.h"
#include "platform/open_key.h"
#include "platform/reg_file.h"
#include "platform/value_text.h"

namespace kestrune::cli {

namespace {

using platform::KeyAddress;
using platform::OpenKey;
using platform::RegistryApi;
using platform::RegStatus;
using platform::RegType;

std::string ValueName(const std::string& name) { return name == "@" ? std::string() : name; }

std::optional<KeyAddress> KeyOf(const std::string& key, const Streams& streams) {
  std::optional<KeyAddress> address = platform::ParseKey(key);
  if (!address) {
    streams.Complain("\"" + key + "\" is no key: it starts with HKLM\\, HKCU\\ or HKCR\\.");
  }
  return address;
}

}  // namespace

Status ReadRegistry(Session& session, const GlobalOptions& options, const Streams& streams,
                    const std::string& key, const std::string& name) {
  const std::optional<KeyAddress> address = KeyOf(key, streams);
  if (!address) return Status::kWrongUsage;
  RegistryApi& registry = session.Registry();
  OpenKey opened(registry);
  if (opened.Open(address->root, address->path) != RegStatus::kSuccess) {
    return Status::kNo;
  }
  RegType type = RegType::kNone;
  std::size_t size = 0;
  if (registry.QueryValue(opened.Handle(), ValueName(name), type, size, {}) !=
      RegStatus::kSuccess) {
    return Status::kNo;
  }
  std::vector<std::byte> data(size);
  if (registry.QueryValue(opened.Handle(), ValueName(name), type, size, data) !=
      RegStatus::kSuccess) {
    return Status::kNo;
  }
  if (options.json) {
    const Json json = {{"type", platform::TypeText(type)},
                       {"data", platform::DataText(type, data)}};
    streams.out << json.dump(2) << '\n';
  } else {
    streams.out << platform::ValueText(type, data) << '\n';
  }
  return Status::kDone;
}

Status WriteRegistry(Session& session, const Streams& streams, const std::string& key,
                     const std::string& name, const std::string& type,
                     const std::vector<std::string>& data) {
  const std::optional<KeyAddress> address = KeyOf(key, streams);
  if (!address) return Status::kWrongUsage;
  const std::optional<RegType> reg_type = platform::ParseType(type);
  if (!reg_type) {
    streams.Complain("\"" + type +
                     "\" is no type: REG_DWORD, REG_BINARY, REG_SZ or TYPE_ and a number.");
    return Status::kWrongUsage;
  }
  const auto bytes = platform::ParseData(*reg_type, data);
  if (!bytes) {
    streams.Complain("the data is no " + platform::TypeText(*reg_type) + ".");
    return Status::kWrongUsage;
  }
  RegistryApi& registry = session.Registry();
  OpenKey opened(registry);
  if (opened.Create(address->root, address->path) != RegStatus::kSuccess ||
      registry.SetValue(opened.Handle(), ValueName(name), *reg_type, *bytes) !=
          RegStatus::kSuccess) {
    streams.Complain(key + " can't be written.");
    return Status::kImpossible;
  }
  return Status::kDone;
}

Status DeleteRegistry(Session& session, const Streams& streams, const std::string& key,
                      const std::string& name) {
  const std::optional<KeyAddress> address = KeyOf(key, streams);
  if (!address) return Status::kWrongUsage;
  RegistryApi& registry = session.Registry();
  OpenKey opened(registry);
  if (opened.Open(address->root, address->path) != RegStatus::kSuccess) {
    return Status::kNo;
  }
  const RegStatus status = registry.DeleteValue(opened.Handle(), ValueName(name));
  return status == RegStatus::kSuccess ? Status::kDone : Status::kNo;
}

Status ListRegistry(Session& session, const GlobalOptions& options, const Streams& streams,
                    const std::string& key) {
  const std::optional<KeyAddress> address = KeyOf(key, streams);
  if (!address) return Status::kWrongUsage;
  RegistryApi& registry = session.Registry();
  const platform::ReadScope view(registry);
  OpenKey opened(registry);
  std::vector<std::string> keys;
  std::vector<platform::StoredValue> values;
  if (opened.Open(address->root, address->path) != RegStatus::kSuccess ||
      registry.ListKeys(opened.Handle(), keys) != RegStatus::kSuccess ||
      registry.ListValues(opened.Handle(), values) != RegStatus::kSuccess) {
    return Status::kNo;
  }
  Json json = Json::array();
  for (const std::string& name : keys) {
    if (options.json) {
      json.push_back({{"key", name}});
    } else {
      streams.out << name << "\\\n";
    }
  }
  for (const platform::StoredValue& value : values) {
    const std::string name = platform::ValueNameText(value.name);
    if (options.json) {
      json.push_back({{"name", name},
                      {"type", platform::TypeText(value.type)},
                      {"data", platform::DataText(value.type, value.data)}});
    } else {
      streams.out << OneLine(name) << '\t' << platform::ValueText(value.type, value.data) << '\n';
    }
  }
  if (options.json) streams.out << json.dump(2) << '\n';
  return Status::kDone;
}

Status ImportRegistry(Session& session, const Streams& streams, const std::string& file) {
  const auto bytes = session.Files().ReadAnyFile(file);
  if (!bytes.Ok()) {
    streams.Complain(file + " can't be read.");
    return Status::kImpossible;
  }
  const auto changes = platform::ParseRegFile(bytes.Value(), session.Files());
  if (!changes.Ok()) {
    streams.Complain(file + ":" + std::to_string(changes.Reason().line) + ": " +
                     changes.Reason().reason);
    return Status::kImpossible;
  }
  const auto applied = platform::ApplyRegFile(changes.Value(), session.Registry());
  if (applied) return Status::kDone;
  // What the machine remembers is told at the end.
  if (!session.HasFailed()) streams.Complain(applied.Reason());
  return Status::kImpossible;
}

}  // namespace kestrune::cli
