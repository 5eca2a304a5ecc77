#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fake_files.h"
#include "platform/driver.h"
#include "platform/memory_registry.h"
#include "platform/services.h"
#include "platform/tracing.h"
#include "ui/forms/program.h"

namespace kestrune::test {

inline constexpr std::string_view kTweakKey = R"(HKLM\SOFTWARE\NVIDIA Corporation\Global\NVTweak)";
inline constexpr std::string_view kDebugKey =
    R"(HKLM\SOFTWARE\NVIDIA Corporation\Global\OpenGL\Debug)";
inline constexpr std::string_view kOptionsKey = R"(HKCU\Software\Kestrune)";

/// What tells one machine from another. An empty device stands for no NVIDIA card.
struct MachineKind {
  int family = 3;     ///< 0 Windows 98, 1 NT 4, 2 Windows 2000, 3 XP, 4 Vista
  int driver = 8000;  ///< release times 100; 0 is no driver file
  std::string device = "0091";
  /// What the card's driver answers reload commands with; without any it never answers.
  std::optional<platform::DescribedClocks> clocks = {};
  bool ships_files = true;  ///< whether there are the shipped data files under those that are laid
};

/// A machine in memory: its registry, files over the shipped ones, and fakes for the rest. It logs
/// what is asked of it and what is done to it, one line each, in order.
class FakeMachine : public platform::DisplayApi,
                    public platform::VersionApi,
                    public platform::SystemApi,
                    public platform::ShellApi,
                    public platform::DialogApi {
 public:
  explicit FakeMachine(MachineKind setup = {});

  platform::Services Services();
  const MachineKind& Kind() const { return setup_; }

  /// Lays a file over the shipped ones; `path` as in "DATA/mt.dat".
  void Lay(std::string_view path, std::string_view bytes) { files_->Lay(path, bytes); }
  FakeFiles& Files() { return *files_; }

  /// The driver's key with its root, and the keys of both interfaces.
  std::string DriverKey() const;
  std::string Direct3DKey() const { return InterfaceKey("Direct3D"); }
  std::string OpenGLKey() const { return InterfaceKey("OpenGL"); }

  /// Stores a value: its key, name and "TYPE DATA".
  void Store(std::string_view key, std::string_view name, std::string_view value);
  /// A value as "TYPE DATA"; empty when it is not set.
  std::string Stored(std::string_view key, std::string_view name);
  void Unset(std::string_view key, std::string_view name);
  /// Stores a number where and as this system's driver keeps it; without one, unsets the value.
  void StoreDirect3D(std::string_view name, std::optional<std::uint32_t> number);
  void StoreOpenGL(std::string_view name, std::optional<std::uint32_t> number);
  /// How the driver keeps a number: as REG_DWORD on Windows 9x, else as four bytes.
  std::string Kept(std::uint32_t number) const;

  /// The lines of changes since the last call, in short: "write KEY NAME TYPE DATA", with K for
  /// the driver's key.
  std::vector<std::string> TakeTrace();
  /// The same in short, "nothing" for none: "D3D NAME = NUMBER" and "GL NAME = NUMBER" for the
  /// values of the interfaces where and as this system's driver keeps them, without the OGL_ of the
  /// NT family; "Tweak", "Debug" and "Options" for REG_DWORD in these keys; P the
  /// program folder of what is run. Whatever departs from
  /// that is written out.
  std::string TakeShortTrace();

  std::optional<platform::DisplayDevice> DeviceAt(int index) override;
  std::optional<platform::DisplayMode> ModeAt(int number) override;
  platform::ModeChange ChangeMode(const platform::ModeRequest& request) override;
  bool MustConfirm() override { return must_confirm; }
  void RestartComputer() override {}
  platform::OsVersion SystemVersion() override;
  platform::ProcessorInfo Processors() override { return processors; }
  platform::MemoryStatus Memory() override { return memory; }
  std::unique_ptr<platform::LoadCounters> OpenLoadCounters() override;
  std::optional<std::vector<platform::ProcessRecord>> Processes() override { return processes; }
  std::int64_t Milliseconds() override { return milliseconds; }
  void Pause(int length) override { milliseconds += length; }
  std::optional<std::string> FileVersionText(std::string_view file_name) override;
  bool StartCommand(std::string_view command_line, platform::WindowState window) override;
  platform::Result<std::unique_ptr<platform::ChildProcess>, platform::StartFault> StartProgram(
      std::string_view command_line, platform::WindowState window) override;
  bool SetCurrentFolder(std::string_view folder) override;
  bool OpenWebPage(std::string_view) override { return true; }
  bool OpenControlPanelItem(std::string_view) override { return true; }
  platform::Answer Ask(std::string_view title, std::string_view text,
                       const platform::Question& question) override;
  void Notify(std::string_view sentence) override { notes.emplace_back(sentence); }
  void RunPendingEvents() override { log.push_back("events"); }
  void WaitWhile(const std::function<bool()>& goes_on) override;

  std::int64_t milliseconds = 0;  ///< of real time, which passes in pauses alone
  std::vector<std::string> log;
  std::vector<std::string> messages;
  platform::Question last_question;
  std::optional<platform::Answer> answer;  ///< to every message; absent: its preset one
  std::vector<std::string> notes;
  std::vector<platform::DisplayDevice> devices;
  std::vector<platform::DisplayMode> modes = {
      {640, 480, 16, 60}, {800, 600, 16, 75}, {1024, 768, 32, 85}};
  platform::ModeChange mode_change = platform::ModeChange::kDone;  ///< of every change
  bool must_confirm = false;
  platform::OsVersion os;
  platform::ProcessorInfo processors{1, 586};
  platform::MemoryStatus memory{512 << 20, 128 << 20};
  platform::ProcessorLoads loads;  ///< what every collection gives
  std::optional<std::vector<platform::ProcessRecord>> processes;
  std::string driver_version;    ///< empty: no such file
  std::string direct3d_version;  ///< empty: no such file
  platform::WindowState last_window = platform::WindowState::kNormal;
  std::optional<platform::StartFault> start_fault;  ///< of every program that is waited for
  std::vector<platform::ChildState> child_states;   ///< one a wait, in order; then it has ended
  bool has_folders = true;                          ///< whether any folder can be made current

 private:
  std::string InterfaceKey(std::string_view name) const;
  std::string Prefixed(std::string_view name) const;

  MachineKind setup_;
  platform::MemoryRegistry registry_;
  std::optional<platform::DescribedDriver> driver_;
  platform::Trace trace_;
  std::unique_ptr<platform::TracingRegistry> tracing_;
  platform::TracingDisplay display_;
  platform::TracingShell shell_;
  std::unique_ptr<FakeFiles> files_;
};

/// A started program, driven as a person at its window drives it. An action that the control
/// doesn't take fails the test.
class Driven {
 public:
  explicit Driven(FakeMachine& machine, std::string_view command_line = "");

  void Choose(std::string_view id, std::string_view item);
  void Choose(std::string_view id, int position);
  void Type(std::string_view id, std::string_view text);
  void Tick(std::string_view id, bool on = true);
  void Move(std::string_view id, int value);
  void Press(std::string_view id);
  void Hover(std::string_view id);
  /// Does to a control what `value` asks of its kind: an item, "on", "off" or a number.
  void Use(std::string_view id, std::string_view value);
  /// Makes the program read the settings again, as it does after a change of SLI antialiasing.
  void ReadAgain();

  /// The value as the page shows it.
  std::string Text(std::string_view id) const { return Find(id).ValueText(); }
  std::string Caption(std::string_view id) const { return Find(id).Caption(); }
  bool Enabled(std::string_view id) const { return Find(id).Enabled(); }
  bool Visible(std::string_view id) const { return Find(id).Visible(); }
  std::vector<std::string> Items(std::string_view id) const;
  /// A shared value by its name, as text.
  std::string State(std::string_view name) const;

  template <typename T>
  T& Get(std::string_view id) const {
    return dynamic_cast<T&>(Find(id));
  }

  forms::Program program;
  bool started;

 private:
  controls::Control& Find(std::string_view id) const;
};

/// What every start writes, as the joined lines of TakeTrace tell it: the profiles' file type and
/// the program's version.
inline constexpr std::string_view kStartUpTrace =
    R"(write HKCR\KestruneSE @ REG_SZ KestruneSE secure preset file, )"
    R"(write HKCR\.ksp @ REG_SZ KestruneSE, )"
    R"(write HKCR\KestruneSE\Shell\open\command @ REG_SZ )" KESTRUNE_DATA_FOLDER
    R"(\KestruneSE.exe %1, write HKCR\KestruneSE\DefaultIcon @ REG_SZ )" KESTRUNE_DATA_FOLDER
    R"(\KestruneSE.exe,0, write HKCU\Software\Kestrune Version REG_DWORD 353)";

/// A number as a reader thinks of it: bit patterns in hexadecimal.
std::string NumberText(std::int32_t number);
std::string NumberText(std::optional<std::int32_t> number);

/// What a running program shows or keeps is compared with this in one text.
std::string Joined(const std::vector<std::string>& lines, std::string_view between = ", ");

}  // namespace kestrune::test
