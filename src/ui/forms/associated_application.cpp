#include "ui/forms/associated_application.h"

#include <string>
#include <vector>

#include "core/outcome.h"
#include "profiles/profiles.h"
#include "ui/forms/shared.h"
#include "ui/forms/windows.h"

namespace kestrune::forms {

namespace {

constexpr std::string_view kWindow = "associated-application";

constexpr ControlRow kRows[] = {
    Row(Kind::kList, "associated-application.drives", kWindow, {150, 150, 3600, 1275}),
    // Says where the search is.
    Row(Kind::kLabel, "associated-application.folders-label", kWindow, {150, 1530, 3600, 270},
        kFilledText)
        .Names("associated-application.folders"),
    Row(Kind::kPlaces, "associated-application.folders", kWindow, {150, 1845, 3600, 3555}),
    Row(Kind::kList, "associated-application.files", kWindow, {3900, 150, 4950, 5250}),
    Row(Kind::kReadOnlyText, "associated-application.path", kWindow, {150, 5550, 8700, 375}),
    Row(Kind::kButton, "associated-application.confirm", kWindow, {4200, 6090, 2250, 435}, 263),
    Row(Kind::kButton, "associated-application.cancel", kWindow, {6600, 6090, 2250, 435}, 204),
};

constexpr std::string_view kFolderAbove = "..";

class AssociatedApplication : public WindowPart {
 public:
  explicit AssociatedApplication(const Shared& shared);

  void Load() override;

 private:
  /// False when the folder can't be opened; then all stays as it was.
  bool GoTo(const std::string& folder);
  std::string PathOf(std::string_view name) const;
  void DriveChosen();
  void FolderChosen();
  void FileChosen();
  void Confirm();

  const Shared& shared_;
  controls::Window& window_;
  controls::ListBox& drives_;
  controls::ListBox& folders_;
  controls::ListBox& files_;
  controls::Label& place_;
  controls::TextBox& path_;
  controls::TextBox& application_folder_;
  std::string folder_;
};

AssociatedApplication::AssociatedApplication(const Shared& shared)
    : shared_(shared),
      window_(shared.controls.Get<controls::Window>(kWindow)),
      drives_(shared.controls.Get<controls::ListBox>("associated-application.drives")),
      folders_(shared.controls.Get<controls::ListBox>("associated-application.folders")),
      files_(shared.controls.Get<controls::ListBox>("associated-application.files")),
      place_(shared.controls.Get<controls::Label>("associated-application.folders-label")),
      path_(shared.controls.Get<controls::TextBox>("associated-application.path")),
      application_folder_(
          shared.controls.Get<controls::TextBox>("profile-manager.application-folder")) {
  drives_.on_change = [this] { DriveChosen(); };
  folders_.on_change = [this] { FolderChosen(); };
  files_.on_change = [this] { FileChosen(); };
  shared.controls.Get<controls::Button>("associated-application.confirm").on_click = [this] {
    Confirm();
  };
  shared.controls.Get<controls::Button>("associated-application.cancel").on_click = [this] {
    shared_.windows.Close(window_);
  };
}

void AssociatedApplication::Load() {
  drives_.SetItems(shared_.services.files.Drives());
  drives_.ShowPosition(0);
  DriveChosen();
}

bool AssociatedApplication::GoTo(const std::string& folder) {
  auto listing = shared_.services.files.ListFolder(folder);
  if (!listing) return false;
  folder_ = folder;
  place_.SetCaption(folder_);
  std::vector<std::string> folders = std::move(listing->folders);
  if (PathOf(kFolderAbove) != folder_) folders.insert(folders.begin(), std::string(kFolderAbove));
  folders_.SetItems(std::move(folders));
  files_.SetItems(std::move(listing->programs));
  return true;
}

std::string AssociatedApplication::PathOf(std::string_view name) const {
  return shared_.services.files.PathOf(folder_, std::string(name));
}

void AssociatedApplication::DriveChosen() {
  if (drives_.Position() < 0 || GoTo(drives_.ValueText())) return;
  // A drive without a medium: back to the first one, which is always there.
  drives_.ShowPosition(0);
  core::Ignore(GoTo(drives_.ValueText()));
}

void AssociatedApplication::FolderChosen() {
  // A folder that can't be opened leaves the lists where they are.
  if (!GoTo(PathOf(folders_.ValueText()))) folders_.ShowPosition(-1);
}

void AssociatedApplication::FileChosen() {
  path_.ShowText(PathOf(files_.ValueText()));
  application_folder_.ShowText(folder_);
}

void AssociatedApplication::Confirm() {
  shared_.profiles.ShowApplication(path_.Text());
  shared_.windows.Close(window_);
}

}  // namespace

const WindowRow kAssociatedApplication = {
    .window = Row(Kind::kWindow, kWindow, "", {0, 0, 9000, 6675}, 238).Hidden(),
    .controls = kRows,
    .owner = "profile-manager",
    .modal = true,
    .default_key = "associated-application.confirm",
    .cancel_key = "associated-application.cancel",
    .opened_by = "profile-manager.browse",
    .make = [](const Shared& shared) -> std::unique_ptr<WindowPart> {
      return std::make_unique<AssociatedApplication>(shared);
    }};

}  // namespace kestrune::forms
