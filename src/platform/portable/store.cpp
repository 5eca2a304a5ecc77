#include "platform/portable/store.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/portable/case_fold.h"

namespace kestrune::platform::portable {
namespace {

constexpr std::int64_t kApplicationId = 0x4B535452;
constexpr std::int64_t kSchemaVersion = 1;

// A key's path is its whole folded path from the root on, so that opening it is one look-up.
constexpr const char* kSchema = R"(
  CREATE TABLE registry_key(
    id INTEGER PRIMARY KEY, parent INTEGER NOT NULL, path TEXT NOT NULL UNIQUE, name TEXT NOT NULL);
  CREATE INDEX registry_key_by_parent ON registry_key(parent);
  CREATE TABLE registry_value(
    key INTEGER NOT NULL, folded TEXT NOT NULL, name TEXT NOT NULL, type INTEGER NOT NULL,
    data BLOB NOT NULL, PRIMARY KEY(key, folded)) WITHOUT ROWID;
  CREATE TABLE machine_state(name TEXT PRIMARY KEY, text TEXT NOT NULL) WITHOUT ROWID;
  INSERT INTO registry_key VALUES
    (1, 0, 'HKEY_CLASSES_ROOT', 'HKEY_CLASSES_ROOT'),
    (2, 0, 'HKEY_CURRENT_USER', 'HKEY_CURRENT_USER'),
    (3, 0, 'HKEY_LOCAL_MACHINE', 'HKEY_LOCAL_MACHINE');
  PRAGMA application_id = 1263752274;
  PRAGMA user_version = 1;
)";
static_assert(kApplicationId == 1263752274 && kSchemaVersion == 1);

constexpr KeyId kLastRootKey = 3;

std::string_view RootName(RegRoot root) {
  switch (root) {
    case RegRoot::kClassesRoot:
      return "HKEY_CLASSES_ROOT";
    case RegRoot::kCurrentUser:
      return "HKEY_CURRENT_USER";
    case RegRoot::kLocalMachine:
      return "HKEY_LOCAL_MACHINE";
  }
  return {};
}

/// Puts a key's whole path together and folds it; `path` loses the one backslash that may end it.
RegStatus FoldPath(RegRoot root, std::string_view& path, std::string& folded) {
  folded = RootName(root);
  if (folded.empty()) return RegStatus::kInvalidHandle;
  if (path.starts_with('\\')) return RegStatus::kBadPath;
  if (path.ends_with('\\')) path.remove_suffix(1);
  if (path.ends_with('\\') || path.find("\\\\") != path.npos) return RegStatus::kBadPath;
  if (!path.empty()) folded.append(1, '\\').append(FoldCase(path));
  return RegStatus::kSuccess;
}

/// The same path as an address that tells SQLite to take the file as it is, without its
/// companions.
std::string ImmutableAddress(const std::string& path) {
  std::string address = "file:";
  for (const char c : path) {
    if (c == '%' || c == '?' || c == '#') {
      constexpr char kDigits[] = "0123456789ABCDEF";
      address.append({'%', kDigits[c >> 4], kDigits[c & 15]});
    } else {
      address.push_back(c);
    }
  }
  return address + "?immutable=1";
}

bool LacksPermission(int code) {
  const int kind = code & 0xFF;
  return kind == SQLITE_CANTOPEN || kind == SQLITE_READONLY || kind == SQLITE_PERM;
}

bool HasBytes(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && status.st_size > 0;
}

/// Makes the folder for a new store. Gives the sentence that says why there can't be one.
std::optional<std::string> MakeFolderFor(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) {
    return "The folder " + folder + " for the store can't be made: " + error.message() + ".";
  }
  if (faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0) return std::nullopt;
  const std::string reason = std::generic_category().message(errno);
  return "The store " + path + " can't be made: " + reason + ".";
}

}  // namespace

enum Store::Sql : std::size_t {
  kBeginReading,
  kBeginChange,
  kCommit,
  kRollback,
  kFindKey,
  kInsertKey,
  kGetValue,
  kPutValue,
  kFindValue,
  kDropValue,
  kListKeys,
  kListValues,
  kGetState,
  kPutState,
  kSqlEnd,
};

namespace {

constexpr const char* kStatements[] = {
    "BEGIN",
    "BEGIN IMMEDIATE",
    "COMMIT",
    "ROLLBACK",
    "SELECT id FROM registry_key WHERE path = ?1",
    "INSERT INTO registry_key(parent, path, name) VALUES(?1, ?2, ?3)",
    "SELECT type, data FROM registry_value WHERE key = ?1 AND folded = ?2",
    R"(INSERT INTO registry_value(key, folded, name, type, data) VALUES(?1, ?2, ?3, ?4, ?5)
       ON CONFLICT DO UPDATE SET type = excluded.type, data = excluded.data
       WHERE type <> excluded.type OR data <> excluded.data)",
    "SELECT 1 FROM registry_value WHERE key = ?1 AND folded = ?2",
    "DELETE FROM registry_value WHERE key = ?1 AND folded = ?2",
    "SELECT name FROM registry_key WHERE parent = ?1 ORDER BY path",
    "SELECT name, type, data FROM registry_value WHERE key = ?1 ORDER BY folded",
    "SELECT text FROM machine_state WHERE name = ?1",
    "INSERT INTO machine_state VALUES(?1, ?2) ON CONFLICT DO UPDATE SET text = excluded.text",
};

}  // namespace

/// One use of a prepared statement, which is made on its first use. It ends, with its read lock,
/// when this goes out of scope. What is bound must live as long.
class Store::Query {
 public:
  Query(Store& store, Sql sql) : statement_(store.statements_[sql]) {
    static_assert(std::size(kStatements) == kSqlEnd && kSqlEnd <= kSqlCount);
    if (statement_ != nullptr) return;
    prepared_ = sqlite3_prepare_v3(store.database_, kStatements[sql], -1, SQLITE_PREPARE_PERSISTENT,
                                   &statement_, nullptr);
    store.statements_[sql] = statement_;
  }
  ~Query() { sqlite3_reset(statement_); }
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  Query& Bind(int place, std::int64_t number) {
    sqlite3_bind_int64(statement_, place, number);
    return *this;
  }
  Query& Bind(int place, std::string_view text) {
    // A null pointer would be bound as NULL, which is no text.
    sqlite3_bind_text64(statement_, place, text.data() == nullptr ? "" : text.data(), text.size(),
                        SQLITE_STATIC, SQLITE_UTF8);
    return *this;
  }
  Query& Bind(int place, std::span<const std::byte> data) {
    if (data.empty()) {
      sqlite3_bind_zeroblob(statement_, place, 0);
    } else {
      sqlite3_bind_blob64(statement_, place, data.data(), data.size(), SQLITE_STATIC);
    }
    return *this;
  }
  int Step() { return prepared_ == SQLITE_OK ? sqlite3_step(statement_) : prepared_; }

  std::int64_t Number(int column) const { return sqlite3_column_int64(statement_, column); }
  RegType Type(int column) const {
    return static_cast<RegType>(static_cast<std::uint32_t>(Number(column)));
  }
  std::span<const std::byte> Data(int column) const {
    const auto* bytes = static_cast<const std::byte*>(sqlite3_column_blob(statement_, column));
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
  }
  std::string Text(int column) const {
    const std::span<const std::byte> data = Data(column);
    return {reinterpret_cast<const char*>(data.data()), data.size()};
  }

 private:
  sqlite3_stmt* statement_;
  int prepared_ = SQLITE_OK;
};

Result<std::unique_ptr<Store>> Store::Open(const StoreOptions& options) {
  StoreOptions absolute = options;
  std::error_code error;
  absolute.path = std::filesystem::absolute(options.path, error).string();
  if (error || options.path.empty()) return Fail("The store's path is empty.");
  const bool is_folder = std::filesystem::is_directory(absolute.path, error);
  if (is_folder) return Fail("The store " + absolute.path + " can't be opened: it is a folder.");
  if (!options.dry_run) return OpenFile(absolute);

  // What stands where nothing can be found is told by OpenFile; what isn't there is made in memory.
  if (!HasBytes(absolute.path)) return NewInMemory(absolute);
  Result<std::unique_ptr<Store>> file = OpenFile(absolute);
  if (!file.Ok()) return file;
  if (file.Value() == nullptr) return NewInMemory(absolute);
  return file.Value()->CopyToMemory();
}

/// In a dry run, no store at all for a file that has yet to become one.
Result<std::unique_ptr<Store>> Store::OpenFile(const StoreOptions& options) {
  if (!options.dry_run && !std::filesystem::exists(options.path)) {
    if (auto failure = MakeFolderFor(options.path)) return Fail(*failure);
  }
  std::unique_ptr<Store> store(new Store(options.path));
  const int create = options.dry_run ? 0 : SQLITE_OPEN_CREATE;
  bool is_empty = false;
  std::optional<std::string> refusal;
  int code = store->Connect(options.path, SQLITE_OPEN_READWRITE | create, options.busy_timeout);
  if (code == SQLITE_OK) code = store->Inspect(is_empty, refusal);
  if (LacksPermission(code) && HasBytes(options.path) && !HasBytes(options.path + "-wal")) {
    // The file can be read, but what accompanies an open store can't be made beside it.
    code = store->Connect(ImmutableAddress(options.path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI,
                          options.busy_timeout);
    if (code == SQLITE_OK) code = store->Inspect(is_empty, refusal);
  }
  if (code == SQLITE_OK && !refusal && !is_empty) code = store->CheckPages(refusal);
  if (refusal) return Fail(*refusal);
  if (code != SQLITE_OK) return Fail(store->OpeningFailed(code));
  if (is_empty && options.dry_run) return std::unique_ptr<Store>();
  if (is_empty) refusal = store->Create(options);
  if (refusal) return Fail(*refusal);
  if (!options.dry_run && !store->IsReadOnly()) {
    store->UseWriteAheadLog(std::chrono::milliseconds(0));
  }
  return store;
}

Result<std::unique_ptr<Store>> Store::NewInMemory(const StoreOptions& options) {
  std::unique_ptr<Store> store(new Store(options.path));
  const int code =
      store->Connect(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, options.busy_timeout);
  if (code != SQLITE_OK) return Fail(store->OpeningFailed(code));
  if (auto failure = store->Create(options)) return Fail(*failure);
  return store;
}

Result<std::unique_ptr<Store>> Store::CopyToMemory() {
  EndView();
  std::unique_ptr<Store> copy(new Store(path_));
  int code = copy->Connect(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, busy_timeout_);
  if (code == SQLITE_OK) {
    sqlite3_backup* backup = sqlite3_backup_init(copy->database_, "main", database_, "main");
    if (backup != nullptr) sqlite3_backup_step(backup, -1);
    code = backup != nullptr ? sqlite3_backup_finish(backup) : sqlite3_errcode(copy->database_);
  }
  if (code != SQLITE_OK) return Fail(OpeningFailed(code));
  return copy;
}

Store::~Store() { Disconnect(); }

int Store::Connect(const std::string& file, int flags, std::chrono::milliseconds busy_timeout) {
  Disconnect();
  busy_timeout_ = busy_timeout;
  const int code = sqlite3_open_v2(file.c_str(), &database_,
                                   flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
  if (code != SQLITE_OK) return code;
  sqlite3_busy_timeout(database_, static_cast<int>(busy_timeout.count()));
  // A store may come from anyone, so what its schema says isn't run as code.
  sqlite3_db_config(database_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(database_, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  return Run("PRAGMA synchronous = FULL");
}

void Store::Disconnect() {
  for (sqlite3_stmt*& statement : statements_) sqlite3_finalize(std::exchange(statement, nullptr));
  sqlite3_close_v2(std::exchange(database_, nullptr));
}

/// Finds out what the file is: empty, a store that can be used, or something to be refused.
int Store::Inspect(bool& is_empty, std::optional<std::string>& refusal) {
  std::int64_t application = 0;
  std::int64_t version = 0;
  int code = ReadNumber("PRAGMA application_id", application);
  if (code == SQLITE_OK) code = ReadNumber("PRAGMA user_version", version);
  if (code == SQLITE_OK && application == 0 && version == 0) {
    std::int64_t tables = 0;
    code = ReadNumber("SELECT count(*) FROM sqlite_schema", tables);
    is_empty = code == SQLITE_OK && tables == 0;
    if (is_empty) return code;
  }
  if (code == SQLITE_OK && application != kApplicationId) {
    refusal = OpeningFailed(SQLITE_NOTADB);
  } else if (code == SQLITE_OK && version > kSchemaVersion) {
    refusal = "The store " + path_ + " was written by a newer version of this program.";
  }
  return code;
}

int Store::CheckPages(std::optional<std::string>& refusal) {
  sqlite3_stmt* check = nullptr;
  int code = sqlite3_prepare_v2(database_, "PRAGMA quick_check(1)", -1, &check, nullptr);
  if (code == SQLITE_OK) code = sqlite3_step(check);
  const auto* text = code == SQLITE_ROW ? sqlite3_column_text(check, 0) : nullptr;
  const bool sound = text != nullptr && std::strcmp(reinterpret_cast<const char*>(text), "ok") == 0;
  sqlite3_finalize(check);
  if (code != SQLITE_ROW && (code & 0xFF) != SQLITE_CORRUPT) return code;
  // A sound file that lacks a table isn't one that this program can have left behind.
  bool complete = sound;
  for (const Sql sql : {kFindKey, kGetValue}) {
    complete = complete && Query(*this, sql).Step() == SQLITE_DONE;
  }
  if (!complete) refusal = OpeningFailed(SQLITE_CORRUPT);
  return SQLITE_OK;
}

/// Makes an empty database a store. Where another program was faster, its store is the one.
std::optional<std::string> Store::Create(const StoreOptions& options) {
  if (const int code = UseWriteAheadLog(options.busy_timeout); code != SQLITE_OK) {
    return OpeningFailed(code);
  }
  Transaction creation(*this);
  if (!creation.IsOpen()) return first_failure_;
  bool is_empty = false;
  std::optional<std::string> refusal;
  int code = Inspect(is_empty, refusal);
  if (code == SQLITE_OK && !is_empty) return refusal;
  if (code == SQLITE_OK) code = Run(kSchema);
  if (code != SQLITE_OK) return OpeningFailed(code);
  if (options.fill) {
    if (auto failure = options.fill(*this)) return failure;
  }
  if (!creation.Commit()) return first_failure_;
  is_new_ = true;
  return std::nullopt;
}

/// SQLite doesn't wait by itself when two programs ask for this of a new file at the same time.
int Store::UseWriteAheadLog(std::chrono::milliseconds patience) {
  const auto end = std::chrono::steady_clock::now() + patience;
  int code = Run("PRAGMA journal_mode = WAL");
  while ((code & 0xFF) == SQLITE_BUSY && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    code = Run("PRAGMA journal_mode = WAL");
  }
  return code;
}

int Store::Run(const char* sql) { return sqlite3_exec(database_, sql, nullptr, nullptr, nullptr); }

int Store::ReadNumber(const char* sql, std::int64_t& number) {
  sqlite3_stmt* statement = nullptr;
  int code = sqlite3_prepare_v2(database_, sql, -1, &statement, nullptr);
  if (code == SQLITE_OK) code = sqlite3_step(statement);
  if (code == SQLITE_ROW) number = sqlite3_column_int64(statement, 0);
  sqlite3_finalize(statement);
  return code == SQLITE_ROW ? SQLITE_OK : code;
}

bool Store::IsReadOnly() const { return sqlite3_db_readonly(database_, "main") == 1; }

RegStatus Store::FindKey(RegRoot root, std::string_view path, KeyId& key) {
  std::string folded;
  const RegStatus status = FoldPath(root, path, folded);
  return status == RegStatus::kSuccess ? FindFolded(folded, key) : status;
}

RegStatus Store::FindFolded(std::string_view folded, KeyId& key) {
  Query query(*this, kFindKey);
  const int code = query.Bind(1, folded).Step();
  if (code == SQLITE_DONE) return RegStatus::kNotFound;
  if (code != SQLITE_ROW) return ReadFailed(code);
  key = query.Number(0);
  return RegStatus::kSuccess;
}

RegStatus Store::CreateKey(RegRoot root, std::string_view path, KeyId& key) {
  std::string folded;
  RegStatus status = FoldPath(root, path, folded);
  if (status == RegStatus::kSuccess) status = FindFolded(folded, key);
  if (status != RegStatus::kNotFound) return status;
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
    status = Finish(query.Bind(1, parent).Bind(2, folded.substr(0, end)).Bind(3, name));
    key = sqlite3_last_insert_rowid(database_);
  }
  return status;
}

RegStatus Store::QueryValue(KeyId key, std::string_view name, RegType& type, std::size_t& size,
                            std::span<std::byte> data) {
  const std::string folded = FoldCase(name);
  Query query(*this, kGetValue);
  const int code = query.Bind(1, key).Bind(2, folded).Step();
  if (code == SQLITE_DONE) return RegStatus::kNotFound;
  if (code != SQLITE_ROW) return ReadFailed(code);
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
  EndView();
  if (Doomed()) return RegStatus::kWriteFault;
  const std::string folded = FoldCase(name);
  int code = SQLITE_OK;
  {
    Query query(*this, kPutValue);
    query.Bind(1, key).Bind(2, folded).Bind(3, name);
    code = query.Bind(4, static_cast<std::int64_t>(type)).Bind(5, data).Step();
  }
  // Where nothing can be written, what stands there already counts as written.
  if (code == SQLITE_DONE || HasValue(key, folded, type, data)) return RegStatus::kSuccess;
  return WriteFailed(code);
}

bool Store::HasValue(KeyId key, std::string_view folded, RegType type,
                     std::span<const std::byte> data) {
  Query query(*this, kGetValue);
  if (query.Bind(1, key).Bind(2, folded).Step() != SQLITE_ROW) return false;
  const std::span<const std::byte> stored = query.Data(1);
  return query.Type(0) == type &&
         std::equal(stored.begin(), stored.end(), data.begin(), data.end());
}

RegStatus Store::DeleteValue(KeyId key, std::string_view name) {
  if (key <= kLastRootKey) return RegStatus::kAccessDenied;
  EndView();
  const std::string folded = FoldCase(name);
  {
    Query query(*this, kFindValue);
    const int code = query.Bind(1, key).Bind(2, folded).Step();
    if (code == SQLITE_DONE) return RegStatus::kNotFound;
    if (code != SQLITE_ROW) return ReadFailed(code);
  }
  if (Doomed()) return RegStatus::kWriteFault;
  Query query(*this, kDropValue);
  const RegStatus status = Finish(query.Bind(1, key).Bind(2, folded));
  if (status != RegStatus::kSuccess) return status;
  return sqlite3_changes(database_) > 0 ? status : RegStatus::kNotFound;
}

std::optional<std::vector<std::string>> Store::Subkeys(RegRoot root, std::string_view path) {
  KeyId key = 0;
  if (FindKey(root, path, key) != RegStatus::kSuccess) return std::nullopt;
  std::vector<std::string> names;
  Query query(*this, kListKeys);
  query.Bind(1, key);
  int code = query.Step();
  for (; code == SQLITE_ROW; code = query.Step()) names.push_back(query.Text(0));
  if (code != SQLITE_DONE) ReadFailed(code);
  return names;
}

std::optional<std::vector<StoredValue>> Store::Values(RegRoot root, std::string_view path) {
  KeyId key = 0;
  if (FindKey(root, path, key) != RegStatus::kSuccess) return std::nullopt;
  std::vector<StoredValue> values;
  Query query(*this, kListValues);
  query.Bind(1, key);
  int code = query.Step();
  for (; code == SQLITE_ROW; code = query.Step()) {
    const std::span<const std::byte> data = query.Data(2);
    values.push_back({query.Text(0), query.Type(1), {data.begin(), data.end()}});
  }
  if (code != SQLITE_DONE) ReadFailed(code);
  return values;
}

std::optional<std::string> Store::MachineState(std::string_view name) {
  Query query(*this, kGetState);
  const int code = query.Bind(1, name).Step();
  if (code == SQLITE_ROW) return query.Text(0);
  if (code != SQLITE_DONE) ReadFailed(code);
  return std::nullopt;
}

RegStatus Store::SetMachineState(std::string_view name, std::string_view text) {
  EndView();
  if (Doomed()) return RegStatus::kWriteFault;
  Query query(*this, kPutState);
  return Finish(query.Bind(1, name).Bind(2, text));
}

void Store::BeginReads() {
  if (reads_open_++ > 0 || changes_open_ > 0) return;
  view_open_ = Query(*this, kBeginReading).Step() == SQLITE_DONE;
}

void Store::EndReads() {
  if (reads_open_ > 0 && --reads_open_ == 0) EndView();
}

void Store::EndView() {
  if (!std::exchange(view_open_, false)) return;
  const int code = Query(*this, kCommit).Step();
  if (code != SQLITE_DONE) ReadFailed(code);
}

bool Store::BeginChange() {
  if (changes_open_ == 0) {
    EndView();
    const int code = Query(*this, kBeginChange).Step();
    if (code != SQLITE_DONE) return WriteFailed(code), false;
  }
  ++changes_open_;
  return true;
}

bool Store::EndChange(bool keep) {
  if (!keep) doomed_ = true;
  if (--changes_open_ > 0) return !doomed_;
  const bool take_back = std::exchange(doomed_, false);
  if (!take_back) {
    const int code = Query(*this, kCommit).Step();
    if (code == SQLITE_DONE) return true;
    WriteFailed(code);
  }
  ++rollbacks_;
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
  const int code = query.Step();
  return code == SQLITE_DONE ? RegStatus::kSuccess : WriteFailed(code);
}

RegStatus Store::ReadFailed(int code) {
  Remember("read", code);
  return RegStatus::kReadFault;
}

RegStatus Store::WriteFailed(int code) {
  doomed_ = changes_open_ > 0;
  Remember("written", code);
  return RegStatus::kWriteFault;
}

void Store::Remember(const char* what, int code) {
  if (first_failure_) return;
  first_failure_ = "The store " + path_ + " can't be " + what + ": " + Reason(code) + ".";
}

std::string Store::OpeningFailed(int code) const {
  if (code == SQLITE_NOTADB) return "The file " + path_ + " isn't a registry store.";
  if ((code & 0xFF) == SQLITE_CORRUPT) return "The store " + path_ + " is damaged.";
  return "The store " + path_ + " can't be opened: " + Reason(code) + ".";
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
      return error != 0 ? std::generic_category().message(error) : sqlite3_errstr(code);
  }
}

}  // namespace kestrune::platform::portable
