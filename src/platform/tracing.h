#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/registry_api.h"
#include "platform/shell_api.h"

/// Wrappers that tell what was done through a service, one line for each change that happened.
namespace kestrune::platform {

/// Takes a line: "write", "delete", "run" and so on, with its particulars, separated by tabs.
using TraceSink = std::function<void(const std::string& line)>;

/// Tells each value that was written, equal bytes included, and each that was deleted.
class TracingRegistry : public RegistryApi {
 public:
  TracingRegistry(RegistryApi& inner, TraceSink sink) : inner_(inner), sink_(std::move(sink)) {}

  RegStatus OpenKey(RegRoot root, std::string_view path, RegHandle& key) override;
  RegStatus CreateKey(RegRoot root, std::string_view path, RegHandle& key) override;
  RegStatus QueryValue(RegHandle key, std::string_view name, RegType& type, std::size_t& size,
                       std::span<std::byte> data) override {
    return inner_.QueryValue(key, name, type, size, data);
  }
  RegStatus SetValue(RegHandle key, std::string_view name, RegType type,
                     std::span<const std::byte> data) override;
  RegStatus DeleteValue(RegHandle key, std::string_view name) override;
  void CloseKey(RegHandle key) override;
  void BeginReads() override { inner_.BeginReads(); }
  void EndReads() override { inner_.EndReads(); }

 private:
  void Tell(std::string_view what, RegHandle key, std::string_view name,
            const std::string& value) const;

  RegistryApi& inner_;
  TraceSink sink_;
  std::map<RegHandle, std::string> open_keys_;
};

/// Tells each command before it is started.
class TracingShell : public ShellApi {
 public:
  TracingShell(ShellApi& inner, TraceSink sink) : inner_(inner), sink_(std::move(sink)) {}

  bool StartCommand(std::string_view command_line, WindowState window) override;
  bool OpenWebPage(std::string_view address) override;
  bool OpenControlPanelItem(std::string_view item) override;

 private:
  ShellApi& inner_;
  TraceSink sink_;
};

}  // namespace kestrune::platform
