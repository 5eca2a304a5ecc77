#include "ui/forms/profile_manager.h"

#include <string>
#include <vector>

#include "core/options.h"
#include "core/outcome.h"
#include "lang/texts.h"
#include "profiles/profiles.h"
#include "regedit/database.h"
#include "ui/forms/shared.h"
#include "ui/forms/windows.h"

namespace kestrune::forms {

namespace texts = lang::texts;

namespace {

using core::RegRoot;
using regedit::kCategories;

constexpr std::string_view kWindow = "profile-manager";
constexpr std::string_view kLoadFrame = "profile-manager.load-profile-frame";
constexpr std::string_view kSaveFrame = "profile-manager.save-profile-frame";

constexpr ControlRow kRows[] = {
    Row(Kind::kFrame, kLoadFrame, kWindow, {150, 150, 7800, 1050}, 220),
    Row(Kind::kLabel, "profile-manager.load-profile-label", kLoadFrame, {150, 480, 3045, 270}, 223)
        .Names("profile-manager.load-profile"),
    Row(Kind::kCombo, "profile-manager.load-profile", kLoadFrame, {3300, 435, 4350, 375}),
    Row(Kind::kFrame, kSaveFrame, kWindow, {150, 1350, 7800, 4335}, 221),
    Row(Kind::kLabel, "profile-manager.profile-name-label", kSaveFrame, {150, 480, 3045, 270}, 230)
        .Names("profile-manager.profile-name"),
    Row(Kind::kText, "profile-manager.profile-name", kSaveFrame, {3300, 435, 4350, 375}),
    Row(Kind::kLabel, "profile-manager.associated-application-label", kSaveFrame,
        {150, 990, 3045, 270}, 224)
        .Names("profile-manager.associated-application"),
    Row(Kind::kText, "profile-manager.associated-application", kSaveFrame, {3300, 945, 3750, 375}),
    Row(Kind::kButton, "profile-manager.browse", kSaveFrame, {7155, 930, 495, 405})
        .Design("...")
        .Does(Action::Kind::kOpenWindow, "associated-application"),
    Row(Kind::kText, "profile-manager.application-folder", kSaveFrame, {3300, 1455, 4350, 375}),
    Row(Kind::kCheck, "profile-manager.preset-clock-speed", kSaveFrame, {150, 1995, 3045, 330},
        225),
    Row(Kind::kText, "profile-manager.core-clock", kSaveFrame, {3300, 1965, 2100, 375})
        .Tip(231)
        .Disabled(),
    Row(Kind::kText, "profile-manager.memory-clock", kSaveFrame, {5550, 1965, 2100, 375})
        .Tip(243)
        .Disabled(),
    Row(Kind::kCheck,
        "profile-manager.restore-clock-speed-after-terminating-associated-application", kSaveFrame,
        {150, 2475, 7500, 420}, 229),
    Row(Kind::kCheck, "profile-manager.delete-all-registry-keys-before-applying-preset", kSaveFrame,
        {150, 2955, 7500, 420}, 228),
    Row(Kind::kButton, "profile-manager.save", kSaveFrame, {3300, 3660, 2100, 435}, 237),
    Row(Kind::kButton, "profile-manager.clear", kSaveFrame, {5550, 3660, 2100, 435}, 236),
    // Which category's database is read; chosen while a profile is saved or applied.
    Row(Kind::kOption, "profile-manager.direct3d", kWindow, {150, 6150, 1200, 330})
        .Design(kCategories[0].name)
        .Chosen()
        .Hidden(),
    Row(Kind::kOption, "profile-manager.opengl", kWindow, {1350, 6150, 1200, 330})
        .Design(kCategories[1].name)
        .Hidden(),
    Row(Kind::kOption, "profile-manager.system-control-panel", kWindow, {2550, 6150, 2400, 330})
        .Design(kCategories[2].name)
        .Hidden(),
    Row(Kind::kCheck, "profile-manager.run-speed-profile-on-startup", kWindow,
        {300, 5895, 5100, 330}, 222)
        .Chosen(),
    Row(Kind::kButton, "profile-manager.close", kWindow, {5700, 5850, 2100, 435}, 204),
};

constexpr std::string_view kStartUpValue = "Kestrune Speed Profile";
constexpr std::string_view kStarter = "\\sp.exe";
/// How many profiles of the list can be applied.
constexpr std::size_t kMostFiles = 129;
/// The most that the default clocks are taken for here.
constexpr std::int16_t kMostPresetMHz = 3000;

class ProfileManager : public WindowPart {
 public:
  explicit ProfileManager(const Shared& shared);

  void Load() override;

 private:
  void ReadStartUp();
  void WriteStartUp();
  void StartUpTicked();
  void FillList();
  void ShowListText();
  void ProfileChosen();
  void ClocksTicked();
  void Save();
  void Clear();
  std::string StartUpCommand() const;

  const Shared& shared_;
  const lang::LangTable& LangText;
  core::basRegistry& registry_;
  controls::Window& window_;
  profiles::ManagerControls controls_;
  controls::ComboBox& list_;
  controls::CheckBox& start_up_;
  std::vector<std::string> files_;  ///< in the order of the list, no more than can be applied
};

ProfileManager::ProfileManager(const Shared& shared)
    : shared_(shared),
      LangText(shared.LangText()),
      registry_(shared.registry),
      window_(shared.controls.Get<controls::Window>(kWindow)),
      controls_(shared.controls),
      list_(shared.controls.Get<controls::ComboBox>("profile-manager.load-profile")),
      start_up_(
          shared.controls.Get<controls::CheckBox>("profile-manager.run-speed-profile-on-startup")) {
  const auto on_press = [&shared](std::string_view id, std::function<void()> act) {
    shared.controls.Get<controls::Button>(id).on_click = std::move(act);
  };
  controls::OptionButton::Group(
      {&controls_.direct3d, &controls_.opengl,
       &shared.controls.Get<controls::OptionButton>("profile-manager.system-control-panel")});
  list_.on_change = [this](controls::ComboChange) { ProfileChosen(); };
  start_up_.on_change = [this] { StartUpTicked(); };
  controls_.has_clocks.on_change = [this] { ClocksTicked(); };
  controls_.application.on_change = [this] {
    // The folder belonged to another application.
    controls_.folder.ShowText("");
    controls_.application.SetToolTip(controls_.application.Text());
  };
  on_press("profile-manager.save", [this] { Save(); });
  on_press("profile-manager.clear", [this] { Clear(); });
  on_press("profile-manager.close", [this] { shared_.windows.Close(window_); });
}

void ProfileManager::Load() {
  ReadStartUp();
  controls_.application.SetToolTip("");
  shared_.profiles.ShowNoClocks();
  FillList();
  ShowListText();
}

std::string ProfileManager::StartUpCommand() const {
  return shared_.services.files.ProgramFolder().append(kStarter);
}

void ProfileManager::ReadStartUp() {
  const core::RegValue stored =
      registry_.ReadRegValue(RegRoot::kCurrentUser, core::kLogOnKey, kStartUpValue);
  start_up_.Show(stored.IsEmpty() ? 0 : 1);
  if (stored.IsEmpty() || stored.Text() == StartUpCommand()) return;
  const platform::UnaskedScope unasked = registry_.Unasked(platform::HeldUp::kPassedOver);
  WriteStartUp();
}

void ProfileManager::WriteStartUp() {
  registry_.WriteAsBinary = 0;
  core::Ignore(registry_.WriteRegValue(RegRoot::kCurrentUser, core::kLogOnKey, kStartUpValue,
                                       StartUpCommand()));
}

void ProfileManager::StartUpTicked() {
  if (start_up_.Checked()) return WriteStartUp();
  registry_.DeleteRegValue(RegRoot::kCurrentUser, core::kLogOnKey, kStartUpValue);
}

void ProfileManager::FillList() {
  std::vector<std::string> names = profiles::ListProfiles(shared_.services.files);
  files_.clear();
  for (const std::string& name : names) {
    if (files_.size() < kMostFiles) files_.push_back(name + std::string(profiles::kEnding));
  }
  list_.SetItems(std::move(names));
}

void ProfileManager::ShowListText() {
  list_.ShowText(LangText[list_.Items().empty() ? texts::kNoProfiles : texts::kSelectProfile]);
}

void ProfileManager::ProfileChosen() {
  const auto position = static_cast<std::size_t>(list_.Position());
  if (position >= files_.size()) {
    core::Ignore(shared_.services.dialog.ShowMessage(
        core::kProgramTitle, LangText[texts::kBeyondList], platform::Buttons::kOk));
    return;
  }
  controls_.name.ShowText(profiles::WholePath(shared_.services.files, files_[position]));
  shared_.profiles.LoadIt();
}

void ProfileManager::ClocksTicked() {
  if (!controls_.has_clocks.Checked()) return shared_.profiles.ShowNoClocks();
  controls_.core_clock.SetEnabled(true);
  controls_.memory_clock.SetEnabled(true);
  if (!shared_.clocks.ReadPlausible(kMostPresetMHz)) return controls_.has_clocks.PassOn(0);
  controls_.core_clock.ShowText(std::to_string(shared_.clocks.state.CoreMHz));
  controls_.memory_clock.ShowText(std::to_string(shared_.clocks.state.MemoryMHz));
}

void ProfileManager::Save() {
  shared_.profiles.SaveProfile();
  if (!shared_.profiles.state.done) return;
  FillList();
  if (list_.Text() == LangText[texts::kNoProfiles]) ShowListText();
}

void ProfileManager::Clear() {
  controls_.name.ShowText("");
  shared_.profiles.ShowApplication("");
  for (controls::CheckBox* box :
       {&controls_.cleans, &controls_.has_clocks, &controls_.restores_clocks}) {
    box->Show(0);
  }
  shared_.profiles.ShowNoClocks();
}

}  // namespace

const WindowRow kProfileManager = {
    .window = Row(Kind::kWindow, kWindow, "", {0, 0, 8100, 6525}, 219).Hidden(),
    .controls = kRows,
    .owner = "main",
    .cancel_key = "profile-manager.close",
    .opened_by = "main.pedit",
    .make = [](const Shared& shared) -> std::unique_ptr<WindowPart> {
      return std::make_unique<ProfileManager>(shared);
    }};

}  // namespace kestrune::forms
