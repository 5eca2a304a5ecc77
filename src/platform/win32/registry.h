#pragma once

#include <optional>
#include <string>

#include "platform/code_page.h"
#include "platform/handle_table.h"
#include "platform/registry_api.h"

namespace kestrune::platform::win32 {

/// The computer's own registry, by its single-byte calls: text stands in the system code page. It
/// has no views and no groups of changes, so UndoingRegistry stands in front of it. Nothing is
/// flushed; what a call has written is as durable as the system makes it.
class SystemRegistry : public RegistryApi {
 public:
  /// `pages` must outlive this.
  explicit SystemRegistry(CodePages& pages) : pages_(pages) {}
  ~SystemRegistry() override;

  RegStatus OpenKey(RegRoot root, std::string_view path, RegHandle& key) override;
  RegStatus CreateKey(RegRoot root, std::string_view path, RegHandle& key) override;
  RegStatus QueryValue(RegHandle key, std::string_view name, RegType& type, std::size_t& size,
                       std::span<std::byte> data) override;
  RegStatus SetValue(RegHandle key, std::string_view name, RegType type,
                     std::span<const std::byte> data) override;
  RegStatus DeleteValue(RegHandle key, std::string_view name) override;
  void CloseKey(RegHandle key) override;
  RegStatus SetDefaultValue(RegRoot root, std::string_view path, std::string_view text) override;
  RegStatus DeleteKey(RegRoot root, std::string_view path) override;
  RegStatus ListKeys(RegHandle key, std::vector<std::string>& names) override;
  RegStatus ListValues(RegHandle key, std::vector<StoredValue>& values) override;
  void BeginReads() override {}
  void EndReads() override {}
  RegStatus BeginChanges() override { return RegStatus::kSuccess; }
  RegStatus EndChanges(bool) override { return RegStatus::kSuccess; }
  void BeginUnasked(HeldUp) override { ++unasked_; }
  void EndUnasked(HeldUp) override { --unasked_; }

  /// The first change that the system refused, in one sentence.
  const std::optional<std::string>& FirstFailure() const { return failure_; }

 private:
  struct OpenedKey {
    void* key = nullptr;
    RegRoot root{};
    std::string path;
  };

  RegHandle Keep(void* key, RegRoot root, std::string_view path);
  std::string Encoded(std::string_view text) { return pages_.Encode(text).bytes; }
  /// What a stored text is on this side of the seam; other data as they are.
  void TakeData(RegType type, std::string_view bytes, std::vector<std::byte>& data);
  /// The same for what goes there.
  std::string Stored(RegType type, std::span<const std::byte> data);
  /// The status of a change, which is remembered when the system refused it.
  RegStatus Told(long code, RegRoot root, std::string_view path);

  CodePages& pages_;
  HandleTable<OpenedKey> keys_;
  int unasked_ = 0;  ///< nested
  std::optional<std::string> failure_;
};

}  // namespace kestrune::platform::win32
