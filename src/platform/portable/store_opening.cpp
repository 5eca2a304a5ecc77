#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/portable/store.h"
#include "platform/portable/store_query.h"

// How a store comes into being and is opened.
namespace kestrune::platform::portable {
namespace {

constexpr std::int64_t kApplicationId = 0x4B535452;
constexpr std::int64_t kSchemaVersion = 1;

/// A row of sqlite_schema.
struct SchemaRow {
  const char* type;
  std::string_view name;
  std::string_view table;
  const char* sql;  ///< null where the library makes the row by itself
};

// In order of name, which is also an order to create them in. A key's path is its whole folded path
// from the root on, so that opening it is one look-up.
constexpr SchemaRow kSchema[] = {
    {"table", "machine_state", "machine_state",
     R"(CREATE TABLE machine_state(name TEXT PRIMARY KEY, text TEXT NOT NULL) WITHOUT ROWID)"},
    {"table", "registry_key", "registry_key", R"(CREATE TABLE registry_key(
    id INTEGER PRIMARY KEY, parent INTEGER NOT NULL, path TEXT NOT NULL UNIQUE, name TEXT NOT NULL))"},
    {"index", "registry_key_by_parent", "registry_key",
     R"(CREATE INDEX registry_key_by_parent ON registry_key(parent))"},
    {"table", "registry_value", "registry_value", R"(CREATE TABLE registry_value(
    key INTEGER NOT NULL, folded TEXT NOT NULL, name TEXT NOT NULL, type INTEGER NOT NULL,
    data BLOB NOT NULL, PRIMARY KEY(key, folded)) WITHOUT ROWID)"},
    {"index", "sqlite_autoindex_registry_key_1", "registry_key", nullptr},
};

constexpr const char* kFirstContent = R"(
  INSERT INTO registry_key VALUES
    (1, 0, 'HKEY_CLASSES_ROOT', 'HKEY_CLASSES_ROOT'),
    (2, 0, 'HKEY_CURRENT_USER', 'HKEY_CURRENT_USER'),
    (3, 0, 'HKEY_LOCAL_MACHINE', 'HKEY_LOCAL_MACHINE');
  PRAGMA application_id = 1263752274;
  PRAGMA user_version = 1;
)";
static_assert(kApplicationId == 1263752274 && kSchemaVersion == 1);

/// No row of a store is longer, nor a statement of its schema, so that a crafted one can't ask for
/// more memory.
constexpr int kLongestRow = 64 << 20;
constexpr int kLongestStatement = 4096;

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

bool Stands(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0;
}

bool HasBytes(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && status.st_size > 0;
}

/// Why there can't be a store at a path; empty when there can.
std::string ObstacleAt(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) {
    if (S_ISDIR(status.st_mode)) return "it is a folder";
    return S_ISREG(status.st_mode) ? "" : "it is no ordinary file";
  }
  const int error = errno;
  if (error == ENOENT && Stands(path)) return "it is a link to nowhere";
  // What is missing is made, with its folder, or that fails with a reason of its own.
  return error == ENOENT || error == ENOTDIR ? "" : std::generic_category().message(error);
}

/// Makes the folder for a new store.
Result<void> MakeFolderFor(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) {
    return Fail("The folder " + folder + " for the store can't be made: " + error.message() + ".");
  }
  if (faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0) return {};
  const std::string reason = std::generic_category().message(errno);
  return Fail("The store " + path + " can't be made: " + reason + ".");
}

}  // namespace

Result<std::unique_ptr<Store>> Store::Open(const StoreOptions& options) {
  if (options.path.empty()) return Fail("The store's path is empty.");
  StoreOptions absolute = options;
  std::error_code error;
  absolute.path = std::filesystem::absolute(options.path, error).string();
  if (error) {
    return Fail("The store " + options.path +
                " can't be opened: the working folder can't be told.");
  }
  if (const std::string obstacle = ObstacleAt(absolute.path); !obstacle.empty()) {
    return Fail("The store " + absolute.path + " can't be opened: " + obstacle + ".");
  }
  if (!options.dry_run) return OpenFile(absolute);

  if (!HasBytes(absolute.path)) return NewInMemory(absolute);
  Result<std::unique_ptr<Store>> file = OpenFile(absolute);
  if (!file.Ok()) return file;
  if (file.Value() == nullptr) return NewInMemory(absolute);
  return file.Value()->CopyToMemory();
}

Findings Store::Check(const std::string& path) {
  if (const std::string obstacle = ObstacleAt(path); !obstacle.empty()) return {{0, obstacle}};
  Store store(path);
  bool is_empty = false;
  std::optional<Refusal> refusal;
  int code = store.InspectApart(is_empty, refusal);
  if (code == SQLITE_OK && !refusal && !is_empty) code = store.CheckPages(refusal);
  if (code != SQLITE_OK) refusal = RefusalFor(code);
  if (refusal) return {{0, std::string("it ") + refusal->predicate}};
  if (code != SQLITE_OK) return {{0, "it can't be opened: " + store.Reason(code)}};
  return {};
}

/// Connects as one who looks and leaves everything as it is, whoever else has the store open.
int Store::InspectApart(bool& is_empty, std::optional<Refusal>& refusal) {
  const std::string log = path_ + "-wal";
  int code = ConnectApart(Stands(log));
  if (code == SQLITE_OK) code = Inspect(is_empty, refusal);
  const int kind = code & 0xFF;
  if (kind == SQLITE_BUSY) {
    code = Connect(path_, SQLITE_OPEN_READONLY, StoreOptions().busy_timeout);
    if (code == SQLITE_OK) code = Inspect(is_empty, refusal);
  } else if (kind == SQLITE_IOERR && !HasBytes(log)) {
    // Who may not write can't lock it either, and an empty log has nothing to add.
    code = ConnectApart(false);
    if (code == SQLITE_OK) code = Inspect(is_empty, refusal);
  }
  return code;
}

/// In a dry run, no store at all for a file that has yet to become one.
Result<std::unique_ptr<Store>> Store::OpenFile(const StoreOptions& options) {
  if (!options.dry_run && !Stands(options.path)) {
    if (auto made = MakeFolderFor(options.path); !made) return Fail(made.Reason());
  }
  std::unique_ptr<Store> store(new Store(options.path));
  bool is_empty = false;
  std::optional<Refusal> refusal;
  bool is_apart = false;
  int code = store->OpenApart(options, is_apart, is_empty, refusal);
  if (code == SQLITE_OK && !refusal && !(is_apart && options.dry_run)) {
    code = store->OpenAmongOthers(options, is_empty, refusal);
  }
  if (refusal) return Fail(store->Sentence(*refusal));
  if (code != SQLITE_OK) return Fail(store->OpeningFailed(code));
  if (is_empty && options.dry_run) return std::unique_ptr<Store>();
  if (is_empty) {
    if (auto created = store->Create(options); !created) return Fail(created.Reason());
  }
  if (!options.dry_run && !store->IsReadOnly()) store->UseWriteAheadLog();
  return store;
}

/// Connects without touching the file or what stands beside it. That works while no other program
/// has the store open.
int Store::ConnectApart(bool has_log) {
  int code = SQLITE_OK;
  if (has_log) {
    // The index of the log is then kept in memory instead of in its file.
    code = Connect(path_, SQLITE_OPEN_READWRITE, std::chrono::milliseconds(0));
    if (code == SQLITE_OK) code = Run("PRAGMA locking_mode = EXCLUSIVE");
  } else {
    code = Connect(ImmutableAddress(path_), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI,
                   std::chrono::milliseconds(0));
  }
  sqlite3_db_config(database_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  return code;
}

/// Looks at a store beside which files stand that the library would change by opening it. Where no
/// other program has it open, a log was left behind by one that didn't end in order, and all pages
/// are checked.
int Store::OpenApart(const StoreOptions& options, bool& is_apart, bool& is_empty,
                     std::optional<Refusal>& refusal) {
  const std::string log = options.path + "-wal";
  const bool has_log = Stands(log);
  const bool has_others = Stands(options.path + "-journal") || Stands(options.path + "-shm");
  if (!has_log && !has_others) return SQLITE_OK;
  const bool log_counts = has_log && HasBytes(log);
  int code = ConnectApart(has_log);
  if (code == SQLITE_OK) code = Inspect(is_empty, refusal);
  if (code == SQLITE_OK && !refusal && log_counts) code = CheckPages(refusal);
  is_apart = code == SQLITE_OK;
  const int kind = code & 0xFF;
  return kind == SQLITE_CORRUPT || kind == SQLITE_NOTADB ? code : SQLITE_OK;
}

int Store::OpenAmongOthers(const StoreOptions& options, bool& is_empty,
                           std::optional<Refusal>& refusal) {
  const bool has_log = Stands(options.path + "-wal");
  const int create = options.dry_run ? 0 : SQLITE_OPEN_CREATE;
  int code = Connect(options.path, SQLITE_OPEN_READWRITE | create, options.busy_timeout);
  // Closing folds the log in only when the file has proven to be a store.
  sqlite3_db_config(database_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, has_log, nullptr);
  if (code == SQLITE_OK) code = Inspect(is_empty, refusal);
  if (LacksPermission(code) && HasBytes(options.path) && !HasBytes(options.path + "-wal")) {
    // The file can be read, but what accompanies an open store can't be made beside it.
    code = Connect(ImmutableAddress(options.path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI,
                   options.busy_timeout);
    if (code == SQLITE_OK) code = Inspect(is_empty, refusal);
  }
  if (code != SQLITE_OK || refusal || options.dry_run) return code;
  sqlite3_db_config(database_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
  return Run("PRAGMA synchronous = FULL");
}

Result<std::unique_ptr<Store>> Store::NewInMemory(const StoreOptions& options) {
  std::unique_ptr<Store> store(new Store(options.path));
  const int code =
      store->Connect(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, options.busy_timeout);
  if (code != SQLITE_OK) return Fail(store->OpeningFailed(code));
  if (auto created = store->Create(options); !created) return Fail(created.Reason());
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
  busy_timeout_ = patience_ = busy_timeout;
  const int code = sqlite3_open_v2(file.c_str(), &database_,
                                   flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
  if (code != SQLITE_OK) return code;
  sqlite3_busy_handler(database_, WaitForOthers, this);
  // A store may come from anyone, so what its schema says isn't run as code.
  for (const auto& [option, value] : {std::pair{SQLITE_DBCONFIG_DEFENSIVE, 1},
                                      {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
                                      {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
                                      {SQLITE_DBCONFIG_ENABLE_VIEW, 0}}) {
    sqlite3_db_config(database_, option, value, nullptr);
  }
  sqlite3_limit(database_, SQLITE_LIMIT_LENGTH, kLongestRow);
  sqlite3_limit(database_, SQLITE_LIMIT_SQL_LENGTH, kLongestStatement);
  return SQLITE_OK;
}

/// Each wait takes from the store's patience, whatever it is for.
int Store::WaitForOthers(void* store, int waits) {
  constexpr int kLongestWait = 50;
  const std::chrono::milliseconds wait(std::min(1 + waits * 2, kLongestWait));
  Store& self = *static_cast<Store*>(store);
  std::chrono::milliseconds& patience = self.patience_;
  if (self.impatient_ || patience <= std::chrono::milliseconds(0)) return 0;
  std::this_thread::sleep_for(wait);
  patience -= wait;
  return 1;
}

void Store::Disconnect() {
  for (sqlite3_stmt*& statement : statements_) sqlite3_finalize(std::exchange(statement, nullptr));
  sqlite3_close_v2(std::exchange(database_, nullptr));
}

/// Finds out at one moment what the file is: empty, a store, or something to be refused.
int Store::Inspect(bool& is_empty, std::optional<Refusal>& refusal) {
  const bool is_open = sqlite3_get_autocommit(database_) == 0;
  int code = is_open ? SQLITE_OK : Run("BEGIN");
  std::int64_t application = 0;
  std::int64_t version = 0;
  bool is_ours = false;
  if (code == SQLITE_OK) code = ReadNumber("PRAGMA application_id", application);
  if (code == SQLITE_OK) code = ReadNumber("PRAGMA user_version", version);
  if (code == SQLITE_OK) code = CompareSchema(is_empty, is_ours);
  if (!is_open && sqlite3_get_autocommit(database_) == 0) Run("COMMIT");
  if (code != SQLITE_OK) return code;
  is_empty = is_empty && application == 0 && version == 0;
  if (is_empty) return code;
  if (application != kApplicationId) {
    refusal = kNoStore;
  } else if (version > kSchemaVersion) {
    refusal = kNewer;
  } else if (version != kSchemaVersion || !is_ours) {
    refusal = kDamaged;
  }
  return code;
}

/// `is_ours`: the schema is to the letter what this program makes.
int Store::CompareSchema(bool& is_empty, bool& is_ours) {
  sqlite3_stmt* rows = nullptr;
  int code = sqlite3_prepare_v2(database_,
                                "SELECT type, name, tbl_name, sql FROM sqlite_schema ORDER BY name",
                                -1, &rows, nullptr);
  const auto text = [rows = &rows](int column) -> std::string_view {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(*rows, column));
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(*rows, column))};
  };
  std::size_t count = 0;
  is_ours = true;
  if (code == SQLITE_OK) code = sqlite3_step(rows);
  for (; code == SQLITE_ROW && is_ours; code = sqlite3_step(rows)) {
    const bool is_known = count < std::size(kSchema);
    const SchemaRow& row = kSchema[is_known ? count : 0];
    const bool has_sql = sqlite3_column_type(rows, 3) != SQLITE_NULL;
    is_ours = is_known && text(0) == row.type && text(1) == row.name && text(2) == row.table &&
              has_sql == (row.sql != nullptr) && (!has_sql || text(3) == row.sql);
    ++count;
  }
  sqlite3_finalize(rows);
  is_empty = count == 0;
  is_ours = is_ours && count == std::size(kSchema);
  return code == SQLITE_ROW || code == SQLITE_DONE ? SQLITE_OK : code;
}

int Store::CheckPages(std::optional<Refusal>& refusal) {
  sqlite3_stmt* check = nullptr;
  int code = sqlite3_prepare_v2(database_, "PRAGMA integrity_check(1)", -1, &check, nullptr);
  if (code == SQLITE_OK) code = sqlite3_step(check);
  const auto* text = code == SQLITE_ROW ? sqlite3_column_text(check, 0) : nullptr;
  const bool sound = text != nullptr && std::strcmp(reinterpret_cast<const char*>(text), "ok") == 0;
  sqlite3_finalize(check);
  if (code != SQLITE_ROW) return code;
  if (!sound) refusal = kDamaged;
  return SQLITE_OK;
}

/// Makes an empty database a store. Where another program was faster, its store is the one.
Result<void> Store::Create(const StoreOptions& options) {
  if (const int code = UseWriteAheadLog(); code != SQLITE_OK) {
    return Fail(OpeningFailed(code));
  }
  Transaction creation(*this);
  if (!creation.IsOpen()) return Fail(*first_failure_);
  bool is_empty = false;
  std::optional<Refusal> refusal;
  int code = Inspect(is_empty, refusal);
  if (refusal) return Fail(Sentence(*refusal));
  if (code == SQLITE_OK && !is_empty) return {};
  for (const SchemaRow& row : kSchema) {
    if (code == SQLITE_OK && row.sql != nullptr) code = Run(row.sql);
  }
  if (code == SQLITE_OK) code = Run(kFirstContent);
  if (code != SQLITE_OK) return Fail(OpeningFailed(code));
  if (options.fill) {
    if (auto filled = options.fill(*this); !filled) return filled;
  }
  if (!creation.Commit()) return Fail(*first_failure_);
  is_new_ = true;
  return {};
}

/// SQLite doesn't wait by itself when two programs ask for this of a new file at the same time.
int Store::UseWriteAheadLog() {
  int waits = 0;
  int code = Run("PRAGMA journal_mode = WAL");
  while ((code & 0xFF) == SQLITE_BUSY && WaitForOthers(this, waits++) != 0) {
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

const Store::Refusal Store::kNoStore{"file", "isn't a registry store"};
const Store::Refusal Store::kDamaged{"store", "is damaged"};
const Store::Refusal Store::kNewer{"store", "was written by a newer version of this program"};

/// What a failure of the library means for the file; nothing where it says nothing of it.
std::optional<Store::Refusal> Store::RefusalFor(int code) {
  if (code == SQLITE_NOTADB) return kNoStore;
  switch (code & 0xFF) {
    case SQLITE_CORRUPT:
    case SQLITE_ERROR:
    case SQLITE_TOOBIG:
      return kDamaged;
  }
  return std::nullopt;
}

std::string Store::Sentence(const Refusal& refusal) const {
  return std::string("The ") + refusal.subject + " " + path_ + " " + refusal.predicate + ".";
}

std::string Store::OpeningFailed(int code) const {
  if (const auto refusal = RefusalFor(code)) return Sentence(*refusal);
  return "The store " + path_ + " can't be opened: " + Reason(code) + ".";
}

}  // namespace kestrune::platform::portable
