#include "platform/win32/load_counters.h"

#include <windows.h>

#include <cstdint>
#include <iterator>
#include <string>

#include "platform/win32/library.h"
#include "platform/win32/text.h"

namespace kestrune::platform::win32 {

namespace {

/// A value of a counter, in the form that is asked for: here a floating-point number.
struct CounterValue {
  DWORD status;
  double number;
};

using OpenQuery = LONG WINAPI(const char*, DWORD_PTR, HANDLE*);
using CloseQuery = LONG WINAPI(HANDLE);
using AddCounter = LONG WINAPI(HANDLE, const char*, DWORD_PTR, HANDLE*);
using Collection = LONG WINAPI(HANDLE);
using FormattedValue = LONG WINAPI(HANDLE, DWORD, DWORD*, CounterValue*);
using NameByIndex = LONG WINAPI(const char*, DWORD, char*, DWORD*);

constexpr DWORD kAsDouble = 0x00000200;
/// What the counters are called in the system's language is found by their numbers.
constexpr DWORD kProcessor = 238;
constexpr DWORD kProcessorTime = 6;

class PdhCounters : public LoadCounters {
 public:
  PdhCounters() {
    open_ = library_.Find<OpenQuery>("PdhOpenQueryA");
    if (open_ == nullptr) open_ = library_.Find<OpenQuery>("PdhOpenQuery");
    for (std::size_t i = 0; i < std::size(queries_); ++i) Open(queries_[i], i);
  }
  ~PdhCounters() override {
    for (const Query& query : queries_) {
      if (query.query != nullptr && close_ != nullptr) close_(query.query);
    }
  }
  PdhCounters(const PdhCounters&) = delete;
  PdhCounters& operator=(const PdhCounters&) = delete;

  ProcessorLoads Collect() override {
    ProcessorLoads loads;
    for (std::size_t i = 0; i < std::size(queries_); ++i) loads[i] = LoadOf(queries_[i]);
    return loads;
  }

 private:
  struct Query {
    HANDLE query = nullptr;
    HANDLE counter = nullptr;  ///< null: there is no such processor
  };

  bool IsWhole() const {
    return open_ != nullptr && close_ != nullptr && add_ != nullptr && collect_ != nullptr &&
           format_ != nullptr;
  }
  /// A name in the system's language, or the English one where that can't be asked for.
  std::string NameOf(DWORD index, const char* english) const {
    char name[256];
    DWORD size = sizeof name;
    if (name_by_index_ == nullptr || name_by_index_(nullptr, index, name, &size) != 0) {
      return english;
    }
    return name;
  }
  void Open(Query& query, std::size_t processor) {
    if (!IsWhole() || open_(nullptr, 0, &query.query) != 0) return;
    const std::string path = '\\' + NameOf(kProcessor, "Processor") + '(' +
                             std::to_string(processor) + ")\\" +
                             NameOf(kProcessorTime, "% Processor Time");
    if (add_(query.query, path.c_str(), 0, &query.counter) != 0) query.counter = nullptr;
  }
  std::optional<double> LoadOf(const Query& query) const {
    CounterValue value{};
    if (query.counter == nullptr || collect_(query.query) != 0) return std::nullopt;
    if (format_(query.counter, kAsDouble, nullptr, &value) != 0) return std::nullopt;
    return value.number;
  }

  Library library_{"pdh.dll"};
  OpenQuery* open_ = nullptr;
  CloseQuery* close_ = library_.Find<CloseQuery>("PdhCloseQuery");
  AddCounter* add_ = FindEither<AddCounter>("PdhAddCounterA", "PdhAddCounter");
  Collection* collect_ = library_.Find<Collection>("PdhCollectQueryData");
  FormattedValue* format_ = library_.Find<FormattedValue>("PdhGetFormattedCounterValue");
  NameByIndex* name_by_index_ =
      FindEither<NameByIndex>("PdhLookupPerfNameByIndexA", "PdhLookupPerfNameByIndex");
  Query queries_[2];

  template <class Function>
  Function* FindEither(const char* newer, const char* older) const {
    Function* const found = library_.Find<Function>(newer);
    return found != nullptr ? found : library_.Find<Function>(older);
  }
};

/// A key below HKEY_DYN_DATA whose value is made when it is read.
std::optional<DWORD> DynamicNumber(const char* path) {
  constexpr std::uint32_t kDynData = 0x80000006u;
  HKEY key = nullptr;
  const HKEY root = reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG>(kDynData)));
  if (RegOpenKeyA(root, path, &key) != ERROR_SUCCESS) return std::nullopt;
  DWORD number = 0;
  DWORD size = sizeof number;
  const LONG code = RegQueryValueExA(key, "KERNEL\\CPUUsage", nullptr, nullptr,
                                     reinterpret_cast<BYTE*>(&number), &size);
  RegCloseKey(key);
  if (code != ERROR_SUCCESS || size != sizeof number) return std::nullopt;
  return number;
}

class DynamicCounters : public LoadCounters {
 public:
  ProcessorLoads Collect() override {
    // Reading it starts the statistic, and keeps it going.
    DynamicNumber("PerfStats\\StartStat");
    ProcessorLoads loads;
    if (const auto load = DynamicNumber("PerfStats\\StatData")) loads[0] = *load;
    return loads;
  }
};

}  // namespace

std::unique_ptr<LoadCounters> OpenCounters() {
  if (IsNt()) return std::make_unique<PdhCounters>();
  return std::make_unique<DynamicCounters>();
}

}  // namespace kestrune::platform::win32
