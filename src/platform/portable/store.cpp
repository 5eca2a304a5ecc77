#include "platform/portable/store.h"

#include <sqlite3.h>

#include <algorithm>
#include <system_error>
#include <utility>

#include "platform/case_fold.h"
#include "platform/key_address.h"
#include "platform/portable/store_query.h"
#include "platform/registry_limits.h"

namespace kestrune::platform::portable {
namespace {

constexpr KeyId kLastRootKey = 3;

/// The highest number that a deleted key may have had, in the machine's state.
constexpr std::string_view kHighestKey = "highest_key";

}  // namespace

/// An open view ends for a change, and a new one shows what came of it.
class Store::ViewPause {
 public:
  explicit ViewPause(Store& store) : store_(store) { store_.EndView(); }
  ~ViewPause() { store_.BeginView(); }
  ViewPause(const ViewPause&) = delete;
  ViewPause& operator=(const ViewPause&) = delete;

 private:
  Store& store_;
};

bool Store::IsReadOnly() const { return sqlite3_db_readonly(database_, "main") == 1; }

RegStatus Store::FindKey(RegRoot root, std::string_view path, KeyId& key) {
  // Most values are asked for one after the other in the same key.
  if (IsHeld() && last_found_.id != 0 && last_found_.root == root && last_found_.path == path) {
    key = last_found_.id;
    return RegStatus::kSuccess;
  }
  std::string folded;
  const std::string_view asked = path;
  RegStatus status = FoldKeyPath(root, path, folded);
  if (status == RegStatus::kSuccess) status = FindFolded(folded, key);
  if (status == RegStatus::kSuccess) last_found_ = {key, root, std::string(asked)};
  return status;
}

RegStatus Store::FindFolded(std::string_view folded, KeyId& key) {
  Query query(*this, kFindKey);
  const int code = query.Bind(1, folded).Step();
  if (code == SQLITE_DONE) return RegStatus::kNotFound;
  if (code != SQLITE_ROW) return ReadFailed(code);
  key = query.Number(0);
  last_found_ = {.id = key};
  return RegStatus::kSuccess;
}

RegStatus Store::CreateKey(RegRoot root, std::string_view path, KeyId& key) {
  RegStatus status = FindKey(root, path, key);
  if (status != RegStatus::kNotFound) return status;
  std::string folded;
  status = FoldKeyPath(root, path, folded);
  if (status != RegStatus::kSuccess) return status;
  if (KeyFault(path) != nullptr) return RegStatus::kInvalidParameter;
  Transaction change(*this);
  if (!change.IsOpen() || Doomed()) return RegStatus::kWriteFault;
  KeyId created = 0;
  status = InsertMissingKeys(folded, path, created);
  if (status != RegStatus::kSuccess) return status;
  if (!change.Commit()) return RegStatus::kWriteFault;
  key = created;
  return status;
}

/// Goes down a key's path, level by level. `path` gives the names as they are written.
RegStatus Store::InsertMissingKeys(std::string_view folded, std::string_view path, KeyId& key) {
  std::size_t end = folded.find('\\');
  RegStatus status = FindFolded(folded.substr(0, end), key);
  while (status == RegStatus::kSuccess && end != folded.npos) {
    const std::string_view name = path.substr(0, path.find('\\'));
    path.remove_prefix(std::min(name.size() + 1, path.size()));
    end = folded.find('\\', end + 1);
    const KeyId parent = key;
    status = FindFolded(folded.substr(0, end), key);
    if (status != RegStatus::kNotFound) continue;
    Query query(*this, kInsertKey);
    query.Bind(1, parent).Bind(2, folded.substr(0, end)).Bind(3, name);
    status = Finish(query.Bind(4, kHighestKey));
    key = sqlite3_last_insert_rowid(database_);
    if (status == RegStatus::kSuccess) last_found_ = {.id = key};
  }
  return status;
}

RegStatus Store::DeleteKey(RegRoot root, std::string_view path) {
  std::string folded;
  RegStatus status = FoldKeyPath(root, path, folded);
  if (status != RegStatus::kSuccess) return status;
  if (path.empty()) return RegStatus::kAccessDenied;
  RenewView();
  KeyId key = 0;
  status = FindFolded(folded, key);
  if (status != RegStatus::kSuccess) return status;
  Transaction change(*this);
  if (!change.IsOpen() || Doomed()) return RegStatus::kWriteFault;
  last_found_ = {};
  status = Finish(Query(*this, kKeepHighestKey).Bind(1, kHighestKey));
  // All paths below a key lie between its own with a backslash and with the character behind that.
  const std::string first = folded + '\\';
  const std::string last = folded + static_cast<char>('\\' + 1);
  for (const Sql drop : {kDropValuesBelow, kDropKeysBelow}) {
    if (status != RegStatus::kSuccess) return status;
    status = Finish(Query(*this, drop).Bind(1, folded).Bind(2, first).Bind(3, last));
  }
  if (status != RegStatus::kSuccess) return status;
  return change.Commit() ? status : RegStatus::kWriteFault;
}

/// Puts a query on a value.
RegStatus Store::FindValue(Query& query, KeyId key, std::string_view folded) {
  const int code = query.Bind(1, key).Bind(2, folded).Step();
  if (code == SQLITE_ROW) return RegStatus::kSuccess;
  if (code != SQLITE_DONE) return ReadFailed(code);
  const RegStatus status = RequireKey(key);
  return status == RegStatus::kSuccess ? RegStatus::kNotFound : status;
}

RegStatus Store::QueryValue(KeyId key, std::string_view name, RegType& type, std::size_t& size,
                            std::span<std::byte> data) {
  const std::string folded = FoldCase(name);
  Query query(*this, kGetValue);
  const RegStatus found = FindValue(query, key, folded);
  if (found != RegStatus::kSuccess) return found;
  const std::span<const std::byte> stored = query.Data(1);
  type = query.Type(0);
  size = stored.size();
  if (data.data() == nullptr) return RegStatus::kSuccess;
  if (data.size() < stored.size()) return RegStatus::kMoreData;
  std::copy(stored.begin(), stored.end(), data.begin());
  return RegStatus::kSuccess;
}

RegStatus Store::SetValue(KeyId key, std::string_view name, RegType type,
                          std::span<const std::byte> data) {
  if (key <= kLastRootKey) return RegStatus::kAccessDenied;
  if (ValueNameFault(name) != nullptr) return RegStatus::kInvalidParameter;
  if (DataFault(data.size()) != nullptr) return RegStatus::kNoResources;
  RenewView();
  if (Doomed()) return RegStatus::kWriteFault;
  const std::string folded = FoldCase(name);
  const Row row{key, folded, name, type, data};
  if (changes_open_ > 0) return PutValue(row);
  // What stands there already takes no lock, so nobody waits for it, nor needs to be able to write.
  if (HasValue(row)) return RegStatus::kSuccess;
  // The key must still be there when its value comes in.
  Transaction change(*this);
  if (!change.IsOpen()) return RegStatus::kWriteFault;
  const RegStatus status = PutValue(row);
  if (status != RegStatus::kSuccess) return status;
  return change.Commit() ? status : RegStatus::kWriteFault;
}

RegStatus Store::PutValue(const Row& row) {
  const RegStatus status = RequireKey(row.key);
  if (status != RegStatus::kSuccess) return status;
  Query query(*this, kPutValue);
  query.Bind(1, row.key).Bind(2, row.folded).Bind(3, row.name);
  return Finish(query.Bind(4, static_cast<std::int64_t>(row.type)).Bind(5, row.data));
}

bool Store::HasValue(const Row& row) {
  Query query(*this, kGetValue);
  if (query.Bind(1, row.key).Bind(2, row.folded).Step() != SQLITE_ROW) return false;
  const std::span<const std::byte> stored = query.Data(1);
  return query.Type(0) == row.type &&
         std::equal(stored.begin(), stored.end(), row.data.begin(), row.data.end());
}

RegStatus Store::DeleteValue(KeyId key, std::string_view name) {
  if (key <= kLastRootKey) return RegStatus::kAccessDenied;
  RenewView();
  const std::string folded = FoldCase(name);
  {
    Query query(*this, kGetValue);
    const RegStatus found = FindValue(query, key, folded);
    if (found != RegStatus::kSuccess) return found;
  }
  if (Doomed()) return RegStatus::kWriteFault;
  const ViewPause pause(*this);
  Query query(*this, kDropValue);
  const RegStatus status = Finish(query.Bind(1, key).Bind(2, folded));
  if (status != RegStatus::kSuccess) return status;
  return sqlite3_changes(database_) > 0 ? status : RegStatus::kNotFound;
}

RegStatus Store::ListKeys(KeyId key, std::vector<std::string>& names) {
  std::vector<std::string> found;
  Query query(*this, kListKeys);
  query.Bind(1, key);
  int code = query.Step();
  for (; code == SQLITE_ROW; code = query.Step()) found.push_back(query.Text(0));
  if (code != SQLITE_DONE) return ReadFailed(code);
  const RegStatus status = found.empty() ? RequireKey(key) : RegStatus::kSuccess;
  if (status == RegStatus::kSuccess) names = std::move(found);
  return status;
}

RegStatus Store::ListValues(KeyId key, std::vector<StoredValue>& values) {
  std::vector<StoredValue> found;
  Query query(*this, kListValues);
  query.Bind(1, key);
  int code = query.Step();
  for (; code == SQLITE_ROW; code = query.Step()) {
    const std::span<const std::byte> data = query.Data(2);
    found.push_back({query.Text(0), query.Type(1), {data.begin(), data.end()}});
  }
  if (code != SQLITE_DONE) return ReadFailed(code);
  const RegStatus status = found.empty() ? RequireKey(key) : RegStatus::kSuccess;
  if (status == RegStatus::kSuccess) values = std::move(found);
  return status;
}

RegStatus Store::RequireKey(KeyId key) {
  if (IsHeld() && key == last_found_.id) return RegStatus::kSuccess;
  Query query(*this, kHasKey);
  const int code = query.Bind(1, key).Step();
  if (code == SQLITE_DONE) return RegStatus::kKeyDeleted;
  if (code != SQLITE_ROW) return ReadFailed(code);
  last_found_ = {.id = key};
  return RegStatus::kSuccess;
}

std::optional<std::string> Store::MachineState(std::string_view name) {
  Query query(*this, kGetState);
  const int code = query.Bind(1, name).Step();
  if (code == SQLITE_ROW) return query.Text(0);
  if (code != SQLITE_DONE) ReadFailed(code);
  return std::nullopt;
}

RegStatus Store::SetMachineState(std::string_view name, std::string_view text) {
  RenewView();
  if (Doomed()) return RegStatus::kWriteFault;
  if (MachineState(name) == text) return RegStatus::kSuccess;
  const ViewPause pause(*this);
  Query query(*this, kPutState);
  return Finish(query.Bind(1, name).Bind(2, text));
}

void Store::BeginUnasked(HeldUp held_up) {
  ++unasked_open_;
  if (held_up == HeldUp::kPassedOver) ++passing_over_open_;
}

void Store::EndUnasked(HeldUp held_up) {
  --unasked_open_;
  if (held_up == HeldUp::kPassedOver) --passing_over_open_;
}

void Store::BeginReads() {
  if (reads_open_++ == 0) BeginView();
}

void Store::BeginView() {
  if (view_open_ || reads_open_ == 0 || changes_open_ > 0) return;
  view_open_ = Query(*this, kBeginReading).Step() == SQLITE_DONE;
  last_found_ = {};
}

void Store::EndReads() {
  if (reads_open_ > 0 && --reads_open_ == 0) EndView();
}

void Store::EndView() {
  if (!std::exchange(view_open_, false)) return;
  const int code = Query(*this, kCommit).Step();
  if (code != SQLITE_DONE) ReadFailed(code);
}

/// What a change meets counts as it is now, not as it was when the view was opened.
void Store::RenewView() {
  EndView();
  BeginView();
}

bool Store::BeginChange() {
  if (changes_open_ == 0) {
    EndView();
    Query query(*this, kBeginChange);
    const int code = StepChange(query);
    if (code != SQLITE_DONE) return WriteFailed(code), false;
    last_found_ = {};
  }
  ++changes_open_;
  return true;
}

bool Store::EndChange(bool keep) {
  const bool kept = EndOpenChange(keep);
  BeginView();
  return kept;
}

bool Store::EndOpenChange(bool keep) {
  if (!keep) doomed_ = true;
  if (--changes_open_ > 0) return !doomed_;
  const bool take_back = std::exchange(doomed_, false);
  if (!take_back) {
    const int code = Query(*this, kCommit).Step();
    if (code == SQLITE_DONE) return Succeeded(), true;
    WriteFailed(code);
  }
  // SQLite may have taken it back by itself when the disk failed.
  if (sqlite3_get_autocommit(database_) == 0) Query(*this, kRollback).Step();
  return false;
}

/// Whether the open transaction can only be taken back, so that nothing may be written on its
/// behalf any more.
bool Store::Doomed() {
  if (changes_open_ > 0 && sqlite3_get_autocommit(database_) != 0) doomed_ = true;
  return doomed_;
}

RegStatus Store::Finish(Query& query) {
  const int code = StepChange(query);
  if (code != SQLITE_DONE) return WriteFailed(code);
  if (changes_open_ == 0) Succeeded();
  return RegStatus::kSuccess;
}

/// Carries out a change, without waiting where it may be passed over.
int Store::StepChange(Query& query) {
  impatient_ = passing_over_open_ > 0;
  const int code = query.Step();
  impatient_ = false;
  return code;
}

/// After a change that has been kept others are waited for anew.
void Store::Succeeded() { patience_ = busy_timeout_; }

RegStatus Store::ReadFailed(int code) {
  Remember("read", code);
  return RegStatus::kReadFault;
}

RegStatus Store::WriteFailed(int code) {
  doomed_ = changes_open_ > 0;
  const bool is_passed_over = (unasked_open_ > 0 && IsReadOnly()) ||
                              (passing_over_open_ > 0 && (code & 0xFF) == SQLITE_BUSY);
  if (!is_passed_over) Remember("written", code);
  return RegStatus::kWriteFault;
}

void Store::Remember(const char* what, int code) {
  if ((code & 0xFF) == SQLITE_BUSY) patience_ = std::chrono::milliseconds(0);
  if (first_failure_) return;
  first_failure_ = "The store " + path_ + " can't be " + what + ": " + Reason(code) + ".";
}

std::string Store::Reason(int code) const {
  const int error = database_ != nullptr ? sqlite3_system_errno(database_) : 0;
  switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return "another program has kept it locked for too long";
    case SQLITE_READONLY:
      return "it is read-only";
    case SQLITE_FULL:
      return "the disk is full";
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return "it is damaged";
    case SQLITE_NOMEM:
      return "there is no memory left";
    default:
      if (error != 0) return std::generic_category().message(error);
      return std::string("its file can't be used (") + sqlite3_errstr(code) + ")";
  }
}

}  // namespace kestrune::platform::portable
