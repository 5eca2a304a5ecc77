#include "platform/tracing.h"

#include "platform/value_text.h"

namespace kestrune::platform {

RegStatus TracingRegistry::OpenKey(RegRoot root, std::string_view path, RegHandle& key) {
  const RegStatus status = inner_.OpenKey(root, path, key);
  if (status == RegStatus::kSuccess) open_keys_[key] = KeyText(root, path);
  return status;
}

RegStatus TracingRegistry::CreateKey(RegRoot root, std::string_view path, RegHandle& key) {
  const RegStatus status = inner_.CreateKey(root, path, key);
  if (status == RegStatus::kSuccess) open_keys_[key] = KeyText(root, path);
  return status;
}

RegStatus TracingRegistry::SetValue(RegHandle key, std::string_view name, RegType type,
                                    std::span<const std::byte> data) {
  const RegStatus status = inner_.SetValue(key, name, type, data);
  if (status == RegStatus::kSuccess) Tell("write", key, name, "\t" + ValueText(type, data));
  return status;
}

RegStatus TracingRegistry::DeleteValue(RegHandle key, std::string_view name) {
  const RegStatus status = inner_.DeleteValue(key, name);
  if (status == RegStatus::kSuccess) Tell("delete", key, name, "");
  return status;
}

void TracingRegistry::CloseKey(RegHandle key) {
  open_keys_.erase(key);
  inner_.CloseKey(key);
}

void TracingRegistry::Tell(std::string_view what, RegHandle key, std::string_view name,
                           const std::string& value) const {
  const auto open = open_keys_.find(key);
  const std::string shown = name.empty() ? "@" : std::string(name);
  sink_(std::string(what) + "\t" + (open == open_keys_.end() ? "?" : open->second) + "\t" + shown +
        value);
}

bool TracingShell::StartCommand(std::string_view command_line, WindowState window) {
  sink_("run\t" + std::string(command_line));
  return inner_.StartCommand(command_line, window);
}

bool TracingShell::OpenWebPage(std::string_view address) {
  sink_("open\t" + std::string(address));
  return inner_.OpenWebPage(address);
}

bool TracingShell::OpenControlPanelItem(std::string_view item) {
  sink_("open\t" + std::string(item));
  return inner_.OpenControlPanelItem(item);
}

}  // namespace kestrune::platform
