#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "controls/focus.h"
#include "controls/gate.h"
#include "controls/timer.h"
#include "platform/services.h"
#include "profiles/profiles.h"
#include "regedit/database.h"
#include "ui/forms/form.h"

namespace kestrune::forms {

class MainForm;
class Windows;

/// A shared value by its name: a number or a text.
using StateRow = std::pair<std::string_view, std::variant<int, std::string>>;

/// The program: it owns the shared state and the forms and connects them with a machine. Several
/// may live in one process. The services outlive it.
class Program {
 public:
  explicit Program(const platform::Services& services);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// Runs the whole start-up. `command_line` is the path of a speed profile, or empty; with a path
  /// the profile is applied and the program ends without showing its window. False when it could
  /// not be applied.
  [[nodiscard]] bool Start(std::string_view command_line);
  /// Applies a profile as a command line with its path does, and goes on. False when it could not
  /// be applied.
  [[nodiscard]] bool ApplyProfile(std::string_view path);
  profiles::Profiles& Profiles();
  const detect::VersionState& Versions() const;
  const core::ProgramState& RunState() const;

  MainForm& Main();
  /// The form of the window with that id, which must exist.
  Form& FormOf(std::string_view window);
  Windows& TheWindows();
  controls::Scheduler& Timers();
  /// What every act of a person goes through.
  controls::Gate& Gate();
  controls::Focus& Focus();
  /// Every form, the main window's first.
  const std::vector<Form*>& Forms() const;
  /// The control with that id in any form, or null.
  controls::Control* Find(std::string_view id) const;
  /// The page on which a control stands, 0 to 15; -1 for a control that stands on none.
  int PageOf(const controls::Control& control) const;
  int ActivePage() const;
  /// Goes to a page as its menu item does.
  void GoToPage(int page);
  /// Whether nothing of the program was stored before this start.
  bool IsFirstStart() const;
  /// Whether the main window has been closed.
  bool Ended() const;
  /// The shared values, in their fixed order.
  std::vector<StateRow> State() const;
  /// The display names of the languages that can be chosen.
  const std::vector<std::string>& Languages() const;
  /// The chosen language's file, as a path with slashes, where it can't be read; else empty.
  const std::string& MissingFile() const;
  /// The processes behind the first lines of the list of processes, in their order.
  const std::vector<platform::ProcessRecord>& Processes() const;
  /// What the registry editor lists of a category for the driver.
  regedit::Database DatabaseOf(regedit::Category category) const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace kestrune::forms
