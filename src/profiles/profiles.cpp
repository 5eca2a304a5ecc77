#include "profiles/profiles.h"

#include "core/number.h"
#include "core/options.h"
#include "core/outcome.h"
#include "lang/texts.h"
#include "platform/case_fold.h"
#include "regedit/value_place.h"

namespace kestrune::profiles {

namespace texts = lang::texts;

using core::RegRoot;
using platform::ClockPair;
using platform::FailWith;
using regedit::Category;
using regedit::DatabaseEntry;

namespace {

constexpr std::string_view kClockError = "O/C Error";
/// How long the application is waited for before the window is drawn again.
constexpr int kWaitMs = 20;

/// A value that a profile can hold, as a number; nothing for the others and for one that isn't set.
std::optional<std::int32_t> NumberToSave(const core::RegValue& value) {
  if (value.IsNumber()) return value.Number();
  const std::string text = value.Text();
  const auto number = core::ParseWholeNumber(text);
  // Only decimal text is a number here.
  if (!number || text.find('&') != text.npos) return std::nullopt;
  return number.Value();
}

ProfileError ErrorOf(platform::StartFault fault) {
  switch (fault) {
    case platform::StartFault::kNotFound:
      return ProfileError::kFileNotFound;
    case platform::StartFault::kNoFolder:
      return ProfileError::kPathNotFound;
    case platform::StartFault::kNotExecutable:
      break;
  }
  return ProfileError::kInvalidCall;
}

bool IsClock(std::string_view text) { return ReadClockText(std::string(text) + ",0").Ok(); }

}  // namespace

ManagerControls::ManagerControls(const controls::ControlSet& controls)
    : name(controls.Get<controls::TextBox>("profile-manager.profile-name")),
      application(controls.Get<controls::TextBox>("profile-manager.associated-application")),
      folder(controls.Get<controls::TextBox>("profile-manager.application-folder")),
      cleans(controls.Get<controls::CheckBox>(
          "profile-manager.delete-all-registry-keys-before-applying-preset")),
      restores_clocks(controls.Get<controls::CheckBox>(
          "profile-manager.restore-clock-speed-after-terminating-associated-application")),
      has_clocks(controls.Get<controls::CheckBox>("profile-manager.preset-clock-speed")),
      core_clock(controls.Get<controls::TextBox>("profile-manager.core-clock")),
      memory_clock(controls.Get<controls::TextBox>("profile-manager.memory-clock")),
      direct3d(controls.Get<controls::OptionButton>("profile-manager.direct3d")),
      opengl(controls.Get<controls::OptionButton>("profile-manager.opengl")) {}

Profiles::Profiles(Surroundings surroundings)
    : with_(std::move(surroundings)), LangText(with_.LangText), controls_(with_.controls) {}

void Profiles::ShowMessage(std::string_view text) {
  core::Ignore(
      with_.services.dialog.ShowMessage(core::kProgramTitle, text, platform::Buttons::kOk));
}

void Profiles::ShowApplication(const std::string& path) {
  controls_.application.ShowText(path);
  controls_.application.SetToolTip(path);
}

void Profiles::ChooseApplication(const std::string& folder, const std::string& name) {
  controls_.folder.ShowText(folder);
  ShowApplication(with_.services.files.PathOf(folder, name));
}

void Profiles::ShowNoClocks() {
  controls_.core_clock.ShowText(LangText[texts::kCoreClock]);
  controls_.memory_clock.ShowText(LangText[texts::kMemoryClock]);
  controls_.core_clock.SetEnabled(false);
  controls_.memory_clock.SetEnabled(false);
}

std::vector<DatabaseEntry> Profiles::Entries(Category category) {
  (category == Category::kDirect3D ? controls_.direct3d : controls_.opengl).Show(true);
  auto database = regedit::OpenDatabase(with_.services.files, category, with_.versions.DrvVer,
                                        regedit::kMostProfileEntries);
  return std::move(database.entries).value_or(std::vector<DatabaseEntry>());
}

// ---- Saving

bool Profiles::Refuse(const std::string& sentence) {
  ShowMessage(sentence);
  return false;
}

bool Profiles::CanSave() {
  platform::FilesApi& files = with_.services.files;
  if (!IsProfileName(files, controls_.name.Text())) return Refuse(LangText[texts::kRefusedName]);
  const bool has_clocks = controls_.has_clocks.Checked();
  for (const controls::TextBox* box : {&controls_.core_clock, &controls_.memory_clock}) {
    if (has_clocks && !IsClock(box->Text())) return Refuse(LangText[texts::kRefusedClock]);
  }
  for (const controls::TextBox* box : {&controls_.folder, &controls_.application}) {
    if (!CanHold(files, box->Text())) return Refuse(LangText[texts::kRefusedApplication]);
  }
  return true;
}

void Profiles::SaveProfile() {
  state = {};
  if (!CanSave()) return;
  state.done = true;
  std::vector<std::string> left_out;
  const std::string text = TextToSave(left_out);
  if (controls_.has_clocks.Checked()) controls_.has_clocks.PassOn(0);
  for (const std::string& name : left_out) {
    state.done = false;
    with_.services.dialog.Notify("A profile can't hold the value " + name + ".");
  }
  WriteFile(text);
  ShowMessage(LangText[texts::kSaved]);
}

std::string Profiles::TextToSave(std::vector<std::string>& left_out) {
  const platform::ReadScope view(with_.services.registry);
  ProfileWriter writer({.card = with_.adapter.DeviceId,
                        .cleans = controls_.cleans.Checked(),
                        .restores_clocks = controls_.restores_clocks.Checked()});
  AddValues(Category::kDirect3D, writer, left_out);
  AddValues(Category::kOpenGL, writer, left_out);
  if (controls_.has_clocks.Checked()) {
    writer.AddRecord(kClockRecord,
                     controls_.core_clock.Text() + "," + controls_.memory_clock.Text());
  }
  if (!controls_.application.Text().empty()) {
    writer.AddRecord(kApplicationRecord, controls_.folder.Text());
    writer.AddField(controls_.application.Text());
  }
  return writer.Text();
}

void Profiles::AddValues(Category category, ProfileWriter& writer,
                         std::vector<std::string>& left_out) {
  for (const DatabaseEntry& entry : Entries(category)) {
    const auto place = regedit::PlaceOf(category, entry.name, regedit::Purpose::kSave,
                                        with_.versions, with_.adapter);
    if (!place) continue;
    const auto number =
        NumberToSave(with_.registry.ReadRegValue(RegRoot::kLocalMachine, place->key, place->name));
    if (!number) continue;
    if (CanHold(with_.services.files, place->name)) {
      writer.AddRecord(place->name, std::to_string(*number));
    } else {
      left_out.push_back(place->name);
    }
  }
}

void Profiles::WriteFile(const std::string& text) {
  platform::FilesApi& files = with_.services.files;
  const std::string path = PathInProgramFolder(controls_.name.Text());
  const auto written = files.WriteFile(path, files.EncodeText(text, 0).bytes);
  if (written) return;
  state.done = false;
  with_.services.dialog.Notify(path + " can't be written: " + written.Reason().reason + ".");
}

// ---- Applying

void Profiles::LoadIt() {
  state = {};
  previous_.reset();
  if (!with_.program.CommandLinePreset.empty()) {
    controls_.name.ShowText(with_.program.CommandLinePreset);
  }
  if (controls_.name.Text().empty()) return with_.close_manager();
  const auto bytes = with_.services.files.ReadFile(controls_.name.Text());
  if (!bytes) return ShowError(profiles::ErrorOf(bytes.Reason().fault));
  const std::string text = with_.services.files.DecodeText(bytes.Value(), 0);
  ProfileReader reader(text);
  if (!reader.ReadSignature()) return ShowMessage(LangText[texts::kNoProfile]);
  const auto course = Apply(reader);
  // What stands before a fault stays.
  const bool kept = Keep();
  if (!course) return ShowError(course.Reason());
  state.done = kept && course.Value() == Course::kEnd;
}

bool Profiles::Keep() {
  const bool kept = !changes_ || changes_->Commit() == platform::RegStatus::kSuccess;
  changes_.reset();
  return kept;
}

void Profiles::ShowError(ProfileError error) {
  controls_.name.ShowText("");
  ShowMessage("Error: " + std::string(ErrorText(error)) + " " +
              std::to_string(static_cast<int>(error)));
  with_.close_manager();
}

ProfileResult<Profiles::Course> Profiles::Apply(ProfileReader& reader) {
  const auto head = reader.ReadHead();
  if (!head) return FailWith(head.Reason());
  changes_.emplace(with_.services.registry);
  if (changes_->Status() != platform::RegStatus::kSuccess) return Course::kStopped;
  if (head.Value().cleans) {
    DAOGL();
    DAD3D();
  }
  return ApplyRecords(reader, head.Value());
}

ProfileResult<Profiles::Course> Profiles::ApplyRecords(ProfileReader& reader,
                                                       const ProfileHead& head) {
  const bool takes_clocks =
      platform::SameWithoutCase(head.card, with_.adapter.DeviceId) || head.card == kAnyCard;
  while (true) {
    const auto read = reader.ReadRecord();
    if (!read) return FailWith(read.Reason());
    if (!read.Value()) break;
    const ProfileRecord& record = *read.Value();
    if (record.name == kApplicationRecord) return RunApplication(reader, record, head);
    if (record.name == kClockRecord) {
      if (!takes_clocks) continue;
      const auto course = ApplyClocks(record.value);
      if (!course || course.Value() == Course::kStopped) return course;
    } else if (const auto applied = ApplyValue(record); !applied) {
      return FailWith(applied.Reason());
    }
  }
  if (!Keep()) return Course::kStopped;
  with_.read_settings();
  controls_.name.ShowText("");
  return Course::kEnd;
}

ProfileResult<void> Profiles::ApplyValue(const ProfileRecord& record) {
  with_.registry.WriteAsBinary = 1;
  const auto number = ReadNumber(record.value);
  if (!number) return FailWith(number.Reason());
  std::string key = with_.adapter.PureKey;
  if (with_.versions.OSFamily == detect::kWindows9x) {
    const auto category = CategoryOn9x(record.name);
    if (!category) return {};
    key += regedit::RowOf(*category).subkey;
  }
  core::Ignore(
      with_.registry.WriteRegValue(RegRoot::kLocalMachine, key, record.name, number.Value()));
  return {};
}

ProfileResult<Profiles::Course> Profiles::ApplyClocks(const std::string& text) {
  const auto wanted = ReadClockText(text);
  if (!wanted) return FailWith(wanted.Reason());
  clocks::Clocks& clocks = with_.clocks;
  if (!clocks.ReadPlausible(clocks::Clocks::kMostPlausibleMHz)) {
    if (Keep()) ShowMessage(kClockError);
    return Course::kStopped;
  }
  previous_ = {clocks.state.CoreMHz, clocks.state.MemoryMHz};
  if (!state.clocks_before) state.clocks_before = previous_;
  state.clocks_after = wanted.Value();
  clocks.state.CoreMHz = wanted.Value().core;
  clocks.state.MemoryMHz = wanted.Value().memory;
  clocks.SetRequested();
  return Course::kEnd;
}

ProfileResult<Profiles::Course> Profiles::RunApplication(ProfileReader& reader,
                                                         const ProfileRecord& record,
                                                         const ProfileHead& head) {
  platform::ShellApi& shell = with_.services.shell;
  if (!shell.SetCurrentFolder(record.value)) return FailWith(ProfileError::kPathNotFound);
  const auto command = reader.ReadField();
  if (!command) return FailWith(command.Reason());
  if (core::TrimBlanks(command.Value()).empty()) return FailWith(ProfileError::kInvalidCall);
  if (!Keep()) return Course::kStopped;
  const auto child = shell.StartProgram(command.Value(), platform::WindowState::kNormal);
  if (!child) return FailWith(ErrorOf(child.Reason()));
  state.command = command.Value();
  if (head.restores_clocks && previous_) WaitAndRestore(*child.Value());
  return Course::kEnd;
}

void Profiles::WaitAndRestore(platform::ChildProcess& child) {
  // A request to end this program comes back with the child's end, after the clocks.
  with_.services.dialog.WaitWhile(
      [&child] { return child.Wait(kWaitMs) == platform::ChildState::kRuns; });
  changes_.emplace(with_.services.registry);
  if (changes_->Status() != platform::RegStatus::kSuccess) return;
  with_.clocks.state.MemoryMHz = previous_->memory;
  with_.clocks.state.CoreMHz = previous_->core;
  with_.clocks.SetRequested();
  state.clocks_after = previous_;
}

void Profiles::DAOGL() { Delete(Category::kOpenGL); }

void Profiles::DAD3D() { Delete(Category::kDirect3D); }

void Profiles::Delete(Category category) {
  for (const DatabaseEntry& entry : Entries(category)) {
    const auto place = regedit::PlaceOf(category, entry.name, regedit::Purpose::kEdit,
                                        with_.versions, with_.adapter);
    if (place) with_.registry.DeleteRegValue(RegRoot::kLocalMachine, place->key, place->name);
  }
}

}  // namespace kestrune::profiles
