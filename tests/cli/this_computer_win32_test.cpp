// kestrunectl on the computer's own registry, shell and files. The only thing that it has not is a
// card: the tests say which there is, and put a driver's libraries into the system folder that
// answer for it. They change what belongs to the real driver, so they run under Wine alone.

#include <windows.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/outcome.h"
#include "cli/saved_profiles.h"
#include "platform/clock_word.h"
#include "platform/driver_keys.h"
#include "platform/temp_folder.h"
#include "platform/win32/driver_key.h"
#include "platform/win32/file_calls.h"
#include "platform/win32/text.h"
#include "platform/win32/win32_machine.h"

namespace kestrune::cli {
namespace {

using namespace platform;

/// The card, and where what belongs to it stands.
struct Card {
  const char* instance;  ///< the part of its identifier that names its clock key
  DWORD core;
  DWORD memory;
  /// Control\Video, where the drivers of newer systems have it, takes no keys under Wine.
  const char* driver_path;
  const char* mode_path;
  SavedProfile profile;
};

constexpr Card kNtCard = {"VEN_10DE&DEV_0091&SUBSYS_C5153842&REV_A1",
                          275,
                          1200,
                          R"(System\KestruneTests\0000)",
                          R"(System\KestruneTests\0000)",
                          kSavedOnNt};
constexpr Card k9xCard = {"VEN_10DE&DEV_0342&SUBSYS_00000000&REV_A1",
                          425,
                          500,
                          R"(System\CurrentControlSet\Services\Class\Display\0000)",
                          R"(System\CurrentControlSet\Services\Class\Display\0000\NVidia\Direct3D)",
                          kSavedOn9x};
constexpr DWORD kHomer = 77727671;

const Card& TheCard() { return win32::IsNt() ? kNtCard : k9xCard; }
std::string HardwareId() { return std::string("PCI\\") + TheCard().instance; }

class CardDisplays : public DisplayApi {
 public:
  explicit CardDisplays(DisplayApi& inner) : inner_(inner) {}

  std::optional<DisplayDevice> DeviceAt(int index) override {
    if (index != 0) return std::nullopt;
    return DisplayDevice{R"(\\.\DISPLAY1)", "NVIDIA card", 5, HardwareId(),
                         std::string("\\Registry\\Machine\\") + TheCard().driver_path};
  }
  std::optional<DisplayMode> ModeAt(int number) override { return inner_.ModeAt(number); }
  ModeChange ChangeMode(const ModeRequest&) override { return ModeChange::kFailed; }
  bool MustConfirm() override { return inner_.MustConfirm(); }
  void RestartComputer() override {}

 private:
  DisplayApi& inner_;
};

class DriverVersions : public VersionApi {
 public:
  explicit DriverVersions(VersionApi& inner) : inner_(inner) {}

  OsVersion SystemVersion() override { return inner_.SystemVersion(); }
  std::optional<std::string> FileVersionText(std::string_view name) override {
    const bool is_drivers = name == "NvCpl.dll" || name == "nv4_disp.dll" || name == "nvd3dum.dll";
    return is_drivers ? "6.14.10.8195" : inner_.FileVersionText(name);
  }

 private:
  VersionApi& inner_;
};

class ComputerWithCard : public Machine {
 public:
  explicit ComputerWithCard(std::unique_ptr<Machine> computer) : computer_(std::move(computer)) {}

  Services ServicesFor(DialogApi& dialog) override {
    const Services all = computer_->ServicesFor(dialog);
    displays_.emplace(all.display);
    versions_.emplace(all.version);
    return {all.registry, *displays_, *versions_, all.system, all.shell, all.files, all.dialog};
  }
  std::optional<std::string> FirstFailure() const override { return computer_->FirstFailure(); }
  std::string Title() const override { return computer_->Title(); }
  const std::vector<std::string>& Warnings() const override { return computer_->Warnings(); }

 private:
  std::unique_ptr<Machine> computer_;
  std::optional<CardDisplays> displays_;
  std::optional<DriverVersions> versions_;
};

class ComputersWithCard : public win32::ThisComputer {
 public:
  Result<std::unique_ptr<Machine>> Open(const MachineOptions& options) override {
    auto computer = ThisComputer::Open(options);
    if (!computer) return computer;
    return std::unique_ptr<Machine>(
        std::make_unique<ComputerWithCard>(std::move(computer).Value()));
  }
};

bool IsWine() {
  const HMODULE system = GetModuleHandleA("ntdll.dll");
  return system != nullptr && GetProcAddress(system, "wine_get_version") != nullptr;
}

void DeleteTree(HKEY root, const std::string& path) {
  HKEY key = nullptr;
  if (RegOpenKeyA(root, path.c_str(), &key) != ERROR_SUCCESS) return;
  char name[MAX_PATH + 1];
  while (RegEnumKeyA(key, 0, name, sizeof name) == ERROR_SUCCESS) {
    DeleteTree(root, path + "\\" + name);
  }
  RegCloseKey(key);
  RegDeleteKeyA(root, path.c_str());
}

void DeleteKeys() {
  DeleteTree(HKEY_CURRENT_USER, "Software\\Kestrune");
  DeleteTree(HKEY_CURRENT_USER, "Software\\KestruneTests");
  DeleteTree(HKEY_CURRENT_USER, "Software\\NVIDIA Corporation");
  DeleteTree(HKEY_LOCAL_MACHINE, "Software\\NVIDIA Corporation");
  DeleteTree(HKEY_LOCAL_MACHINE, TheCard().driver_path);
}

/// A number's bytes, of any type; nothing where no value of four bytes stands.
std::optional<std::int32_t> StoredNumber(HKEY root, const std::string& path, const char* name) {
  HKEY key = nullptr;
  if (RegOpenKeyA(root, path.c_str(), &key) != ERROR_SUCCESS) return std::nullopt;
  std::int32_t number = 0;
  DWORD size = sizeof number;
  const LONG code =
      RegQueryValueExA(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &size);
  RegCloseKey(key);
  if (code != ERROR_SUCCESS || size != sizeof number) return std::nullopt;
  return number;
}

void StoreForDriver(const char* name, DWORD type, const void* data, std::size_t size) {
  HKEY key = nullptr;
  RegCreateKeyA(HKEY_CURRENT_USER, std::string(test::kDriverKey).c_str(), &key);
  RegSetValueExA(key, name, 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(size));
  RegCloseKey(key);
}

class ThisWindowsComputerTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!IsWine()) GTEST_SKIP() << "these tests change the driver's own values";
    DeleteKeys();
    const std::string id = HardwareId();
    StoreForDriver("HardwareId", REG_SZ, id.c_str(), id.size() + 1);
    const Card& card = TheCard();
    const std::pair<const char*, DWORD> numbers[] = {
        {"Release", 8195},     {"Core", card.core},       {"Memory", card.memory},
        {"Core3D", card.core}, {"Memory3D", card.memory}, {"Homer", kHomer}};
    for (const auto& [name, number] : numbers) {
      StoreForDriver(name, REG_DWORD, &number, sizeof number);
    }
    std::filesystem::copy(KESTRUNE_DATA_FOLDER "/DATA", program_ / "DATA",
                          std::filesystem::copy_options::recursive);
  }
  void TearDown() override {
    if (!IsWine()) return;
    DeleteKeys();
    for (const std::string& file : libraries_) DeleteFileA(file.c_str());
  }

  /// Puts the driver's libraries into the system folder.
  void InstallDriver() {
    char folder[MAX_PATH];
    GetSystemDirectoryA(folder, sizeof folder);
    const std::string program = win32::ProgramFile();
    for (const char* name : {"\\NvCpl.dll", "\\NvQTwk.dll"}) {
      const std::string from = program.substr(0, program.rfind('\\')) + name;
      libraries_.push_back(folder + std::string(name));
      ASSERT_TRUE(CopyFileA(from.c_str(), libraries_.back().c_str(), FALSE)) << GetLastError();
    }
  }

  Outcome Run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--program-folder", program_ / ""});
    return RunOn(machines_, arguments);
  }
  /// What a run prints, which must succeed.
  std::string Out(const std::vector<std::string>& arguments) {
    const Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.status, 0) << testing::PrintToString(arguments) << ": " << outcome.err;
    return outcome.out;
  }
  static ClockPair DefaultClocks() {
    return {static_cast<std::int16_t>(TheCard().core), static_cast<std::int16_t>(TheCard().memory)};
  }
  /// What a clock value holds, as the driver's user has it.
  static std::optional<ClockPair> StoredClocks(const char* name) {
    const std::string instance = TheCard().instance;
    const auto word =
        StoredNumber(HKEY_CURRENT_USER, ClockKeyOf(DeviceInstanceKeyOf(instance)), name);
    if (!word) return std::nullopt;
    const auto device = static_cast<std::int16_t>(std::stoi(instance.substr(13, 4), nullptr, 16));
    return DecodeClockWord(*word, {device, static_cast<std::int32_t>(kHomer)});
  }

  TempFolder program_;
  ComputersWithCard machines_;
  std::vector<std::string> libraries_;
};

TEST_F(ThisWindowsComputerTest, ASettingStandsInTheRealRegistry) {
  const Outcome outcome = Run({"--trace", "set", std::string(kMode) + "=4x"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  const std::string path = TheCard().mode_path;
  EXPECT_NE(outcome.err.find("write\tHKLM\\" + path + "\tD3DOGL_70835937\t"), std::string::npos)
      << outcome.err;
  EXPECT_EQ(StoredNumber(HKEY_LOCAL_MACHINE, path, "D3DOGL_70835937"), 0x10000010);
  EXPECT_EQ(Out({"get", kMode}), "4x\n");

  const std::string before = Out({"registry", "export", "HKLM\\" + path});
  const Outcome dry =
      Run({"--dry-run", "do", std::string(kMode) + "=Off", "?" + std::string(kMode)});
  EXPECT_EQ(dry.out, "Off\n") << dry.err;
  EXPECT_EQ(Out({"registry", "export", "HKLM\\" + path}), before);
}

TEST_F(ThisWindowsComputerTest, TheDriversLibrariesAnswerBeforeTheCommandReturns) {
  InstallDriver();
  const Outcome outcome = Run({"clocks", "set", "--2d", "300", "520"});
  if (LOBYTE(GetVersion()) >= 6 && win32::IsNt()) {
    // Its drivers take no clocks, so the page can't be reached.
    EXPECT_EQ(outcome.status, 3) << outcome.err;
    EXPECT_EQ(StoredClocks("Krusty"), std::nullopt);
    return;
  }
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(StoredClocks("Krusty"), (ClockPair{300, 520}));
  EXPECT_EQ(StoredClocks("Bart"), DefaultClocks());
  EXPECT_EQ(Out({"clocks", "show", "--2d"}),
            "Default Core speed: " + std::to_string(TheCard().core) +
                " MHz\nDefault Memory speed: " + std::to_string(TheCard().memory) +
                " MHz\nCurrent Core speed: 300 MHz\nCurrent Memory speed: 520 MHz\n");
}

TEST_F(ThisWindowsComputerTest, AProfileOfThePortableProgramIsAppliedAndSavedAsItWas) {
  InstallDriver();
  const SavedProfile& saved = TheCard().profile;
  const std::string clocks = saved.clocks;
  Out({"profile", "apply", program_.Write("portable.ksp", saved.bytes)});
  EXPECT_EQ(Out({"get", kLimit, kTripleBuffering}), "5\non\n");
  const auto in_force = StoredClocks("Krusty");
  ASSERT_TRUE(in_force);
  EXPECT_EQ(std::to_string(in_force->core) + "," + std::to_string(in_force->memory), clocks);
  Out({"profile", "save", "--clocks=" + clocks, "again"});
  EXPECT_EQ(ReadAll(program_ / "DATA/Presets/again.ksp"), saved.bytes);
}

}  // namespace
}  // namespace kestrune::cli
