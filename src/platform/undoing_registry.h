#pragma once

#include <set>
#include <string>
#include <vector>

#include "platform/registry_wrapper.h"

namespace kestrune::platform {

/// Groups of changes in front of a registry that knows none: what was there is noted before each
/// change, and put back when the group is given up. Others see a group while it grows, and what
/// they change meanwhile in the same place is lost with it. A change that can't be put back makes
/// the end of its group a failure.
class UndoingRegistry : public RegistryWrapper {
 public:
  using RegistryWrapper::RegistryWrapper;

  RegStatus OpenKey(RegRoot root, std::string_view path, RegHandle& key) override;
  RegStatus CreateKey(RegRoot root, std::string_view path, RegHandle& key) override;
  RegStatus SetValue(RegHandle key, std::string_view name, RegType type,
                     std::span<const std::byte> data) override;
  RegStatus DeleteValue(RegHandle key, std::string_view name) override;
  void CloseKey(RegHandle key) override;
  RegStatus SetDefaultValue(RegRoot root, std::string_view path, std::string_view text) override;
  RegStatus DeleteKey(RegRoot root, std::string_view path) override;
  RegStatus BeginChanges() override;
  RegStatus EndChanges(bool keep) override;

 private:
  /// A key with what stood in it and below it.
  struct Branch {
    KeyAddress address;
    std::vector<StoredValue> values;
    std::vector<Branch> below;
  };
  /// What a change is put back by, in this order: the key is deleted, the branch is made again,
  /// values are deleted and stored.
  struct Undo {
    KeyAddress address;
    bool deletes_key = false;
    std::vector<std::string> deleted_values = {};
    std::vector<StoredValue> values = {};
    std::vector<Branch> branches = {};
    std::vector<RegHandle> handles = {};  ///< of the branch, open at that time
  };

  bool InGroup() const { return depth_ > 0; }
  /// A path whose last name is spelled as the registry keeps it.
  std::string SpelledAsThere(RegRoot root, std::string_view path);
  /// The open keys of a branch that is about to be deleted.
  std::vector<RegHandle> HandlesIn(const KeyAddress& address);
  /// What creating a key is undone by: deleting the first level that isn't there yet.
  void NoteCreation(RegRoot root, std::string_view path);
  void NoteValue(const KeyAddress& address, std::string_view name);
  Branch BranchAt(const KeyAddress& address);
  bool PutBack(const Undo& undo);
  bool PutBack(const Branch& branch);
  /// Puts back what was changed since so much had been noted.
  bool PutBackTo(std::size_t noted);
  /// The end of a change: what failed needs no undo, and where a part of the group was given up
  /// nothing is changed any more.
  RegStatus Settled(RegStatus status, std::size_t noted);

  int depth_ = 0;         ///< of groups in groups
  bool is_lost_ = false;  ///< a part of the group was given up
  std::vector<Undo> undos_;
  std::set<RegHandle> opened_;  ///< in the group
};

}  // namespace kestrune::platform
