#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "clocks/clocks.h"
#include "core/program_state.h"
#include "core/registry.h"
#include "detect/adapter.h"
#include "detect/versions.h"
#include "lang/language.h"
#include "platform/services.h"
#include "profiles/manager_controls.h"
#include "profiles/profile_file.h"
#include "regedit/database.h"

namespace kestrune::profiles {

/// What the last saving or applying came to.
struct ProfileState {
  bool done = false;  ///< nothing went wrong
  /// What applying did to the clocks; nothing where it didn't touch them.
  std::optional<platform::ClockPair> clocks_before;
  std::optional<platform::ClockPair> clocks_after;
  std::string command;  ///< of the application that was started
};

/// What the profiles work with; all of it outlives them.
struct Surroundings {
  const platform::Services& services;
  core::ProgramState& program;
  core::basRegistry& registry;
  const detect::VersionState& versions;
  const detect::AdapterState& adapter;
  clocks::Clocks& clocks;
  const lang::LangTable& LangText;
  const controls::ControlSet& controls;
  std::function<void()> read_settings;  ///< runs the Direct3D and the OpenGL reader
  std::function<void()> close_manager;
};

/// Saves the driver's values as a speed profile, and applies one. Both say in a message how it
/// ended, and leave in `state` what came of it.
class Profiles {
 public:
  explicit Profiles(Surroundings surroundings);

  /// Saves what the manager's boxes ask for. What they can't mean is refused before anything runs;
  /// a step that fails later is said, and the rest goes on.
  void SaveProfile();
  /// Applies the profile whose path is in the manager's name box, or the one that the command line
  /// named. It returns when the application has ended, where the profile waits for it. Changes of
  /// the registry are kept together up to the end, a fault, a message, or the application.
  void LoadIt();
  /// Delete every value that the driver's database lists.
  void DAD3D();
  void DAOGL();

  /// Takes a program as the application that goes with a profile.
  void ChooseApplication(const std::string& folder, const std::string& name);
  /// Shows an application's path; its tool tip repeats it.
  void ShowApplication(const std::string& path);
  /// Disables the clock boxes and shows what they are for.
  void ShowNoClocks();

  ProfileState state;

 private:
  /// How applying went on with a file: to its end, or no further than a message that it has shown
  /// or a failure of the registry that others say.
  enum class Course { kEnd, kStopped };

  bool CanSave();
  bool Refuse(const std::string& sentence);
  /// `left_out` gets the values that no profile can hold.
  std::string TextToSave(std::vector<std::string>& left_out);
  void AddValues(regedit::Category category, ProfileWriter& writer,
                 std::vector<std::string>& left_out);
  void WriteFile(const std::string& text);

  ProfileResult<Course> Apply(ProfileReader& reader);
  ProfileResult<Course> ApplyRecords(ProfileReader& reader, const ProfileHead& head);
  ProfileResult<Course> ApplyClocks(const std::string& text);
  ProfileResult<void> ApplyValue(const ProfileRecord& record);
  ProfileResult<Course> RunApplication(ProfileReader& reader, const ProfileRecord& record,
                                       const ProfileHead& head);
  void WaitAndRestore(platform::ChildProcess& child);
  bool Keep();
  void ShowError(ProfileError error);
  void ShowMessage(std::string_view text);
  void Delete(regedit::Category category);
  std::vector<regedit::DatabaseEntry> Entries(regedit::Category category);

  const Surroundings with_;
  const lang::LangTable& LangText;
  ManagerControls controls_;
  std::optional<platform::ChangeScope> changes_;
  std::optional<platform::ClockPair> previous_;  ///< to be put back
};

}  // namespace kestrune::profiles
