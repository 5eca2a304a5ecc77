#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/finding.h"
#include "platform/machine_memory.h"
#include "platform/registry_api.h"
#include "platform/result.h"

struct sqlite3;
struct sqlite3_stmt;

namespace kestrune::platform::portable {

class Store;

/// A key's number in the store. It is never given to another key, unless the transaction that
/// created the key is taken back.
using KeyId = std::int64_t;

struct StoreOptions {
  std::string path = {};
  /// Works on a copy in memory: the file is neither changed nor created.
  bool dry_run = false;
  /// How long this may wait for other programs in all, until a change has succeeded.
  std::chrono::milliseconds busy_timeout{5000};
  /// Runs once, in the transaction that creates the store. A failure takes the creation back and
  /// becomes the reason why the store can't be opened.
  std::function<Result<void>(Store&)> fill = nullptr;
};

/// A registry in one SQLite file that several programs may use at a time.
///
/// What a call changed has reached the disk when it returns, unless a Transaction is open. Paths
/// and names are UTF-8, matched without regard to case and kept as first written. What is done with
/// a key that was deleted, here or by another program, gives kKeyDeleted. Every failure of the file
/// comes back as kReadFault or kWriteFault, and the first one is remembered. For one thread.
class Store : public MachineMemory {
 public:
  /// Opens the store at a path, or creates it with its folder. A file that isn't a store, has
  /// another schema or is of a newer version is refused untouched, with all that stands beside it;
  /// so is a damaged one whose log was left behind. Other damage shows itself as a failure when it
  /// is come across. One that can't be written is opened for reading.
  static Result<std::unique_ptr<Store>> Open(const StoreOptions& options);
  /// What is wrong with the store at a path, after a check of all its pages; nothing for a sound
  /// one, and for an empty file, which will become one. Neither the file nor what stands beside it
  /// is changed, made or deleted.
  static Findings Check(const std::string& path);
  /// A copy in memory, of which nothing is kept. Not while a Transaction is open.
  Result<std::unique_ptr<Store>> CopyToMemory();
  ~Store() override;
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;

  const std::string& Path() const { return path_; }
  /// Whether the store came into being with this opening.
  bool IsNew() const { return is_new_; }
  bool IsReadOnly() const;
  /// The first failure of the file since it was opened, in one sentence with its path.
  const std::optional<std::string>& FirstFailure() const { return first_failure_; }

  RegStatus FindKey(RegRoot root, std::string_view path, KeyId& key);
  RegStatus CreateKey(RegRoot root, std::string_view path, KeyId& key);
  RegStatus DeleteKey(RegRoot root, std::string_view path);
  RegStatus QueryValue(KeyId key, std::string_view name, RegType& type, std::size_t& size,
                       std::span<std::byte> data);
  /// Writes nothing when the value has this type and data already.
  RegStatus SetValue(KeyId key, std::string_view name, RegType type,
                     std::span<const std::byte> data);
  RegStatus DeleteValue(KeyId key, std::string_view name);
  RegStatus ListKeys(KeyId key, std::vector<std::string>& names);
  RegStatus ListValues(KeyId key, std::vector<StoredValue>& values);
  /// Between these two calls a store that can only be read remembers no failure to write. With
  /// kPassedOver no change waits for other programs either, nor is it remembered that they kept
  /// the store locked.
  void BeginUnasked(HeldUp held_up);
  void EndUnasked(HeldUp held_up);
  void BeginReads();
  void EndReads();
  /// What a Transaction does: false when it could not be begun, or is not kept.
  bool BeginChange();
  bool EndChange(bool keep);

  std::optional<std::string> MachineState(std::string_view name) override;
  RegStatus SetMachineState(std::string_view name, std::string_view text) override;

 private:
  class Query;
  class ViewPause;
  /// A value as its table holds it.
  struct Row {
    KeyId key;
    std::string_view folded;
    std::string_view name;
    RegType type;
    std::span<const std::byte> data;
  };
  struct FoundKey {
    KeyId id = 0;
    RegRoot root{};
    std::string path = {};  ///< as it was asked for; neither where only the number was known
  };
  enum Sql : std::size_t;
  static constexpr std::size_t kSqlCount = 18;

  explicit Store(std::string path) : path_(std::move(path)) {}

  static Result<std::unique_ptr<Store>> OpenFile(const StoreOptions& options);
  static Result<std::unique_ptr<Store>> NewInMemory(const StoreOptions& options);
  int Connect(const std::string& file, int flags, std::chrono::milliseconds busy_timeout);
  void Disconnect();
  static int WaitForOthers(void* store, int waits);
  /// Why a file is no store to work with: what it is, and what is said of it.
  struct Refusal {
    const char* subject;
    const char* predicate;
  };
  static const Refusal kNoStore;
  static const Refusal kDamaged;
  static const Refusal kNewer;

  int ConnectApart(bool has_log);
  int InspectApart(bool& is_empty, std::optional<Refusal>& refusal);
  int OpenApart(const StoreOptions& options, bool& is_apart, bool& is_empty,
                std::optional<Refusal>& refusal);
  int OpenAmongOthers(const StoreOptions& options, bool& is_empty, std::optional<Refusal>& refusal);
  int Inspect(bool& is_empty, std::optional<Refusal>& refusal);
  int CompareSchema(bool& is_empty, bool& is_ours);
  int CheckPages(std::optional<Refusal>& refusal);
  Result<void> Create(const StoreOptions& options);
  int UseWriteAheadLog();
  int Run(const char* sql);
  int ReadNumber(const char* sql, std::int64_t& number);

  RegStatus FindFolded(std::string_view folded, KeyId& key);
  RegStatus InsertMissingKeys(std::string_view folded, std::string_view path, KeyId& key);
  RegStatus FindValue(Query& query, KeyId key, std::string_view folded);
  bool HasValue(const Row& row);
  RegStatus PutValue(const Row& row);
  RegStatus RequireKey(KeyId key);
  RegStatus Finish(Query& query);
  int StepChange(Query& query);
  RegStatus ReadFailed(int code);
  RegStatus WriteFailed(int code);
  void Remember(const char* what, int code);
  std::string Reason(int code) const;
  static std::optional<Refusal> RefusalFor(int code);
  std::string Sentence(const Refusal& refusal) const;
  std::string OpeningFailed(int code) const;

  bool EndOpenChange(bool keep);
  bool Doomed();
  /// Whether nobody else can delete a key at the moment, as far as this program sees.
  bool IsHeld() const { return view_open_ || changes_open_ > 0; }
  void BeginView();
  void EndView();
  void RenewView();
  void Succeeded();

  std::string path_;
  sqlite3* database_ = nullptr;
  std::array<sqlite3_stmt*, kSqlCount> statements_{};
  std::optional<std::string> first_failure_;
  std::chrono::milliseconds busy_timeout_{0};
  std::chrono::milliseconds patience_{0};  ///< what is left of it
  int changes_open_ = 0;                   ///< nested transactions
  int reads_open_ = 0;                     ///< nested BeginReads
  int unasked_open_ = 0;                   ///< nested BeginUnasked
  int passing_over_open_ = 0;              ///< those of them with kPassedOver
  bool impatient_ = false;                 ///< waits for nobody
  bool doomed_ = false;                    ///< the open transaction can only be taken back
  bool view_open_ = false;
  FoundKey last_found_;  ///< stays there while the view or the transaction is open
  bool is_new_ = false;
};

/// Everything done to a store during its life is one change: kept by Commit(), else taken back,
/// with keys opened meanwhile becoming invalid. Inside another one it becomes a part of it; when a
/// part is taken back, the whole is.
class Transaction {
 public:
  explicit Transaction(Store& store) : store_(store), open_(store.BeginChange()) {}
  ~Transaction() {
    if (open_) store_.EndChange(false);
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  /// Whether it could be begun; if not, the store's failure says why.
  [[nodiscard]] bool IsOpen() const { return open_; }
  /// False when something failed on the way; then nothing of it is kept.
  [[nodiscard]] bool Commit() {
    const bool was_open = open_;
    open_ = false;
    return was_open && store_.EndChange(true);
  }

 private:
  Store& store_;
  bool open_;
};

}  // namespace kestrune::platform::portable
