#include "platform/win32/registry.h"

#include <windows.h>

#include <algorithm>

#include "platform/case_fold.h"
#include "platform/key_address.h"
#include "platform/registry_limits.h"
#include "platform/value_text.h"
#include "platform/win32/text.h"

namespace kestrune::platform::win32 {

namespace {

HKEY RootKey(RegRoot root) {
  return reinterpret_cast<HKEY>(
      static_cast<ULONG_PTR>(static_cast<LONG>(static_cast<std::uint32_t>(root))));
}

/// A path that the registry would take in one of two ways is refused in one.
RegStatus PathStatus(RegRoot root, std::string_view path) {
  if (RootName(root) == "?") return RegStatus::kInvalidHandle;
  const bool is_bad = path.starts_with('\\') || path.find("\\\\") != path.npos;
  return is_bad ? RegStatus::kBadPath : RegStatus::kSuccess;
}

/// The limits of a new key.
RegStatus NewPathStatus(RegRoot root, std::string_view path) {
  const RegStatus status = PathStatus(root, path);
  if (status != RegStatus::kSuccess || KeyFault(path) == nullptr) return status;
  return RegStatus::kInvalidParameter;
}

RegStatus StatusOf(long code) { return static_cast<RegStatus>(code); }

/// A status for an open key; that of the key itself where it was deleted since.
RegStatus StatusIn(void* key, RegStatus status) {
  const LONG code = RegQueryInfoKeyA(static_cast<HKEY>(key), nullptr, nullptr, nullptr, nullptr,
                                     nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
  return code == ERROR_KEY_DELETED ? RegStatus::kKeyDeleted : status;
}

bool IsText(RegType type) { return type == RegType::kSz; }

using OpenOrCreate = LONG WINAPI(HKEY, const char*, HKEY*);

/// Opens or creates a key in steps, since the single-byte calls take no path of any length.
LONG InSteps(OpenOrCreate* step, HKEY root, std::string_view path, HKEY& key) {
  constexpr std::size_t kLongestStep = 256;
  HKEY above = root;
  LONG code = ERROR_SUCCESS;
  do {
    std::size_t end = path.size();
    if (end > kLongestStep) {
      end = path.rfind('\\', kLongestStep);
      if (end == path.npos) end = std::min(path.find('\\'), path.size());
    }
    HKEY next = nullptr;
    code = step(above, std::string(path.substr(0, end)).c_str(), &next);
    if (above != root) RegCloseKey(above);
    above = next;
    path.remove_prefix(std::min(end + 1, path.size()));
  } while (code == ERROR_SUCCESS && !path.empty());
  if (code == ERROR_SUCCESS) key = above;
  return code;
}

/// Deletes a key with all below it, which Windows NT doesn't do by itself.
LONG DeleteBranch(HKEY above, const std::string& path) {
  HKEY key = nullptr;
  LONG code = RegOpenKeyA(above, path.c_str(), &key);
  if (code != ERROR_SUCCESS) return code;
  char name[MAX_PATH + 1];
  while (code == ERROR_SUCCESS && RegEnumKeyA(key, 0, name, sizeof name) == ERROR_SUCCESS) {
    code = DeleteBranch(key, name);
  }
  RegCloseKey(key);
  return code == ERROR_SUCCESS ? RegDeleteKeyA(above, path.c_str()) : code;
}

/// A value by its number, with room that grows as far as it must.
LONG EnumValue(HKEY key, DWORD index, std::string& name, DWORD& type, std::string& data) {
  name.resize(kLongestValueName + 1);
  for (;;) {
    DWORD name_size = static_cast<DWORD>(name.size());
    DWORD size = static_cast<DWORD>(data.size());
    const LONG code = RegEnumValueA(key, index, name.data(), &name_size, nullptr, &type,
                                    reinterpret_cast<BYTE*>(data.data()), &size);
    if (code == ERROR_MORE_DATA && size > data.size()) {
      data.resize(size);
      continue;
    }
    if (code != ERROR_SUCCESS) return code;
    name.resize(name_size);
    data.resize(size);
    return code;
  }
}

}  // namespace

SystemRegistry::~SystemRegistry() {
  keys_.ForEach([](OpenedKey& opened) { RegCloseKey(static_cast<HKEY>(opened.key)); });
}

RegStatus SystemRegistry::OpenKey(RegRoot root, std::string_view path, RegHandle& key) {
  const RegStatus status = PathStatus(root, path);
  if (status != RegStatus::kSuccess) return status;
  if (KeyFault(path) != nullptr) return RegStatus::kNotFound;
  HKEY opened = nullptr;
  const std::string text = Encoded(WithoutLastBackslash(path));
  const LONG code = InSteps(RegOpenKeyA, RootKey(root), text, opened);
  if (code == ERROR_SUCCESS) key = Keep(opened, root, path);
  return StatusOf(code);
}

RegStatus SystemRegistry::CreateKey(RegRoot root, std::string_view path, RegHandle& key) {
  const RegStatus status = NewPathStatus(root, path);
  if (status != RegStatus::kSuccess) return status;
  HKEY opened = nullptr;
  const std::string text = Encoded(WithoutLastBackslash(path));
  const LONG code = InSteps(RegCreateKeyA, RootKey(root), text, opened);
  if (code == ERROR_SUCCESS) key = Keep(opened, root, path);
  return Told(code, root, path);
}

RegStatus SystemRegistry::QueryValue(RegHandle key, std::string_view name, RegType& type,
                                     std::size_t& size, std::span<std::byte> data) {
  const OpenedKey* opened = keys_.Find(key);
  if (opened == nullptr) return RegStatus::kInvalidHandle;
  if (ValueNameFault(name) != nullptr) return StatusIn(opened->key, RegStatus::kNotFound);
  const std::string encoded = Encoded(name);
  char room[256];
  std::string large;
  char* bytes = room;
  DWORD length = sizeof room;
  DWORD found = 0;
  LONG code = 0;
  for (;;) {
    code = RegQueryValueExA(static_cast<HKEY>(opened->key), encoded.c_str(), nullptr, &found,
                            reinterpret_cast<BYTE*>(bytes), &length);
    if (code != ERROR_MORE_DATA) break;
    large.resize(std::max<std::size_t>(length, large.size() * 2));
    bytes = large.data();
    length = static_cast<DWORD>(large.size());
  }
  if (code != ERROR_SUCCESS) return StatusOf(code);
  std::vector<std::byte> taken;
  TakeData(static_cast<RegType>(found), {bytes, length}, taken);
  type = static_cast<RegType>(found);
  size = taken.size();
  if (data.data() == nullptr) return RegStatus::kSuccess;
  if (data.size() < taken.size()) return RegStatus::kMoreData;
  std::copy(taken.begin(), taken.end(), data.begin());
  return RegStatus::kSuccess;
}

RegStatus SystemRegistry::SetValue(RegHandle key, std::string_view name, RegType type,
                                   std::span<const std::byte> data) {
  const OpenedKey* opened = keys_.Find(key);
  if (opened == nullptr) return RegStatus::kInvalidHandle;
  if (opened->path.empty()) return RegStatus::kAccessDenied;
  if (ValueNameFault(name) != nullptr) return RegStatus::kInvalidParameter;
  if (DataFault(data.size()) != nullptr) return RegStatus::kNoResources;
  std::string stored = Stored(type, data);
  const auto size = static_cast<DWORD>(stored.size());
  // Windows NT counts a NUL right behind a text that has none as its own; Windows 9x looks for one
  // whatever the size says.
  stored.push_back(IsNt() ? 'x' : '\0');
  const LONG code =
      RegSetValueExA(static_cast<HKEY>(opened->key), Encoded(name).c_str(), 0,
                     static_cast<DWORD>(type), reinterpret_cast<const BYTE*>(stored.data()), size);
  return Told(code, opened->root, opened->path);
}

RegStatus SystemRegistry::DeleteValue(RegHandle key, std::string_view name) {
  const OpenedKey* opened = keys_.Find(key);
  if (opened == nullptr) return RegStatus::kInvalidHandle;
  if (opened->path.empty()) return RegStatus::kAccessDenied;
  if (ValueNameFault(name) != nullptr) return StatusIn(opened->key, RegStatus::kNotFound);
  const LONG code = RegDeleteValueA(static_cast<HKEY>(opened->key), Encoded(name).c_str());
  return Told(code, opened->root, opened->path);
}

void SystemRegistry::CloseKey(RegHandle key) {
  if (const OpenedKey* opened = keys_.Find(key)) RegCloseKey(static_cast<HKEY>(opened->key));
  keys_.Remove(key);
}

RegStatus SystemRegistry::SetDefaultValue(RegRoot root, std::string_view path,
                                          std::string_view text) {
  const RegStatus status = NewPathStatus(root, path);
  if (status != RegStatus::kSuccess) return status;
  if (path.empty()) return RegStatus::kAccessDenied;
  RegHandle key = 0;
  const RegStatus created = CreateKey(root, path, key);
  if (created != RegStatus::kSuccess) return created;
  const RegStatus set = SetValue(key, "", RegType::kSz, TextData(text));
  CloseKey(key);
  return set;
}

RegStatus SystemRegistry::DeleteKey(RegRoot root, std::string_view path) {
  const RegStatus status = PathStatus(root, path);
  if (status != RegStatus::kSuccess) return status;
  const std::string text = Encoded(WithoutLastBackslash(path));
  if (text.empty()) return RegStatus::kAccessDenied;
  if (KeyFault(path) != nullptr) return RegStatus::kNotFound;
  const std::size_t name = text.rfind('\\');
  HKEY above = RootKey(root);
  if (name != text.npos) {
    const LONG code = InSteps(RegOpenKeyA, above, text.substr(0, name), above);
    if (code != ERROR_SUCCESS) return StatusOf(code);
  }
  const LONG code = DeleteBranch(above, text.substr(name + 1));
  if (name != text.npos) RegCloseKey(above);
  return Told(code, root, path);
}

RegStatus SystemRegistry::ListKeys(RegHandle key, std::vector<std::string>& names) {
  const OpenedKey* opened = keys_.Find(key);
  if (opened == nullptr) return RegStatus::kInvalidHandle;
  std::vector<std::string> found;
  char name[MAX_PATH + 1];
  LONG code = 0;
  for (DWORD i = 0; code == ERROR_SUCCESS; ++i) {
    code = RegEnumKeyA(static_cast<HKEY>(opened->key), i, name, sizeof name);
    if (code == ERROR_SUCCESS) found.push_back(pages_.Decode(name));
  }
  if (code != ERROR_NO_MORE_ITEMS) return StatusOf(code);
  SortWithoutCase(found);
  names = std::move(found);
  return RegStatus::kSuccess;
}

RegStatus SystemRegistry::ListValues(RegHandle key, std::vector<StoredValue>& values) {
  const OpenedKey* opened = keys_.Find(key);
  if (opened == nullptr) return RegStatus::kInvalidHandle;
  std::vector<StoredValue> found;
  std::string name;
  std::string data(256, '\0');
  DWORD type = 0;
  LONG code = 0;
  for (DWORD i = 0; code == ERROR_SUCCESS; ++i) {
    data.resize(std::max<std::size_t>(data.capacity(), 256));
    code = EnumValue(static_cast<HKEY>(opened->key), i, name, type, data);
    if (code != ERROR_SUCCESS) break;
    StoredValue& value = found.emplace_back();
    value.name = pages_.Decode(name);
    value.type = static_cast<RegType>(type);
    TakeData(value.type, data, value.data);
  }
  if (code != ERROR_NO_MORE_ITEMS) return StatusOf(code);
  std::sort(found.begin(), found.end(), [](const StoredValue& a, const StoredValue& b) {
    return FoldCase(a.name) < FoldCase(b.name);
  });
  values = std::move(found);
  return RegStatus::kSuccess;
}

RegHandle SystemRegistry::Keep(void* key, RegRoot root, std::string_view path) {
  RegHandle handle = 0;
  OpenedKey& opened = keys_.Add(handle);
  opened.key = key;
  opened.root = root;
  opened.path.assign(path);
  return handle;
}

void SystemRegistry::TakeData(RegType type, std::string_view bytes, std::vector<std::byte>& data) {
  const std::string text = IsText(type) ? pages_.Decode(bytes) : std::string(bytes);
  const auto taken = std::as_bytes(std::span(text));
  data.assign(taken.begin(), taken.end());
}

std::string SystemRegistry::Stored(RegType type, std::span<const std::byte> data) {
  std::string bytes;
  bytes.reserve(data.size() + 1);
  for (const std::byte each : data) bytes.push_back(static_cast<char>(each));
  return IsText(type) ? Encoded(bytes) : bytes;
}

RegStatus SystemRegistry::Told(long code, RegRoot root, std::string_view path) {
  const bool is_answer = code == ERROR_SUCCESS || code == ERROR_FILE_NOT_FOUND ||
                         code == ERROR_KEY_DELETED || code == ERROR_INVALID_HANDLE;
  if (!is_answer && unasked_ == 0 && !failure_) {
    failure_ = "The registry can't be changed at " + KeyText(root, path) + ": " +
               ErrorText(static_cast<unsigned long>(code)) + ".";
  }
  return StatusOf(code);
}

}  // namespace kestrune::platform::win32
