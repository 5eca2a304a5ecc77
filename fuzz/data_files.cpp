// Language files, card tables and the wizard's files of any content are taken. The first byte
// chooses the card.
#include <memory>

#include "detect/card_data.h"
#include "input.h"
#include "lang/language.h"
#include "platform/portable/files.h"
#include "platform/portable/store.h"
#include "platform/portable/store_registry.h"
#include "platform/windowless_dialog.h"
#include "wizard/tuning.h"

using namespace kestrune;

namespace {

/// Every file has the same bytes.
class OneFile : public platform::portable::FolderFiles {
 public:
  explicit OneFile(std::string_view bytes) : FolderFiles({}, 1252), bytes_(bytes) {}

  std::optional<std::string> ReadBytes(std::string_view) override { return std::string(bytes_); }
  std::vector<std::string> ListFiles(std::string_view, std::string_view) override {
    return {"en.dat"};
  }

 private:
  std::string_view bytes_;
};

std::unique_ptr<platform::portable::Store> MakeStore() {
  auto store = platform::portable::Store::Open({.path = "/nowhere/a.store", .dry_run = true});
  fuzz::Require(store.Ok());
  return std::move(store).Value();
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::unique_ptr<platform::portable::Store> store = MakeStore();
  if (size == 0) return 0;
  OneFile files(fuzz::Text(data + 1, size - 1));
  platform::portable::StoreRegistry store_registry(*store);
  core::basRegistry registry(store_registry);
  platform::WindowlessDialog dialog;
  lang::Language language(registry, files, dialog);
  language.LoadLanguage();
  language.ListLanguages();
  detect::AdapterState adapter;
  adapter.DeviceId = data[0] % 2 == 0 ? "0041" : "00F1";
  detect::CardData cards(files, adapter);
  for (const char* table : {"mt", "ps", "vs", "af", "aa"}) cards.GetCardData(table, data[0] > 127);
  wizard::Factors factors;
  wizard::ReadIndex(files);
  wizard::ReadFactors(files, wizard::kDefaultEntry, adapter.DeviceId, factors);
  wizard::Optimize({9, 4, 0, true}, 0, factors);
  wizard::Optimize({0, 0, 4, true}, 7, factors);
  return 0;
}
