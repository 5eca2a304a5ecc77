#include "ui/forms/program.h"

#include <algorithm>

#include "core/options.h"
#include "core/outcome.h"
#include "detect/system_information.h"
#include "lang/texts.h"
#include "profiles/associate.h"
#include "ui/forms/lower_panel.h"
#include "ui/forms/page_groups.h"
#include "ui/forms/reasons.h"
#include "ui/forms/toolbar.h"
#include "ui/forms/window_table.h"
#include "ui/forms/windows.h"

namespace kestrune::forms {

namespace texts = lang::texts;

/// Everything that makes up one program, each part after those that it works with.
struct Program::Parts {
  explicit Parts(const platform::Services& machine);

  void MakeWindows();
  void ShowAtFirst();
  void LoadTexts();
  void DetectDriver();
  void DetectAdapter();
  void FillSettings();
  void ShowVersion();
  void ShowRememberedPage();
  void ReadSettings();
  controls::Window& Manager() const { return controls.Get<controls::Window>("profile-manager"); }
  bool ApplyProfile(std::string_view path);
  void Close();

  const platform::Services services;
  core::ProgramState state;
  core::basRegistry registry{services.registry};
  controls::Scheduler timers;
  controls::Gate gate;
  controls::Focus focus;
  lang::Language language{registry, services.files, services.dialog};
  const lang::LangTable& LangText = language.LangText;

  MainForm main;
  std::vector<std::unique_ptr<Form>> other_forms;
  std::vector<Form*> forms{&main};
  controls::ControlSet controls = AllControls();
  Windows windows{LangText, gate};

  detect::Versions versions{services.version, services.dialog, registry, LangText, controls};
  detect::Adapter adapter{services.display, registry, versions.state, LangText, controls};
  detect::SystemInformation information{services.system, registry, adapter.state,
                                        state,           LangText, controls};
  detect::CardData cards{services.files, adapter.state};
  const settings::Hardware hardware{versions.state, adapter.state, state};
  clocks::Clocks clocks{registry,      services.shell, services.dialog, versions.state,
                        adapter.state, LangText,       controls};
  profiles::Profiles profiles{{.services = services,
                               .program = state,
                               .registry = registry,
                               .versions = versions.state,
                               .adapter = adapter.state,
                               .clocks = clocks,
                               .LangText = LangText,
                               .controls = controls,
                               .read_settings = [this] { ReadSettings(); },
                               .close_manager = [this] { windows.Close(Manager()); }}};
  const Shared shared{services, state,    registry, timers,         focus,
                      controls, windows,  language, versions.state, adapter.state,
                      cards,    hardware, clocks,   profiles,       &pages};

  PageGroups pages{shared};
  HelpWindow help{shared};
  Navigation navigation{main, shared, pages};
  Toolbar toolbar{shared, navigation, help};
  LowerPanel lower_panel{main, shared, help};
  std::vector<std::unique_ptr<WindowPart>> window_parts;
  bool closed = false;
  bool is_first_start = false;

 private:
  controls::ControlSet AllControls();
};

controls::ControlSet Program::Parts::AllControls() {
  for (const WindowRow* row : kWindows) {
    other_forms.push_back(std::make_unique<Form>(*row));
    forms.push_back(other_forms.back().get());
  }
  controls::ControlSet all;
  for (const Form* form : forms) form->AddTo(all);
  return all;
}

Program::Parts::Parts(const platform::Services& machine) : services(machine) {
  for (Form* form : forms) {
    help.Connect(*form);
    toolbar.Connect(*form);
  }
  MakeWindows();
}

void Program::Parts::MakeWindows() {
  for (const Form* form : forms) {
    windows.Add(*form);
    const WindowRow& row = form->WindowsRow();
    if (row.make == nullptr) continue;
    window_parts.push_back(row.make(shared));
    windows.OnLoad(form->TheWindow(), [part = window_parts.back().get()] { part->Load(); });
  }
  main.TheWindow().on_close = [this] { Close(); };
  main.TheWindow().on_activate = [this] { windows.Close(controls.Get<controls::Window>("about")); };
  help.TakeWindow();
}

void Program::Parts::LoadTexts() {
  language.LoadLanguage();
  lower_panel.ShowLanguageHeader();
  services.dialog.RunPendingEvents();
  for (const Form* form : forms) form->ShowTexts(LangText);
  // The driver decides on the shader versions until they have been read.
  pages.driver.State().PixelShaderVersionText = LangText[texts::kEnabled];
  pages.driver.State().VertexShaderVersionText = LangText[texts::kEnabled];
}

void Program::Parts::DetectDriver() {
  {
    const platform::ReadScope view = registry.Reading();
    versions.DetectOSAndDirectX();
    adapter.FindVideoKey();
    adapter.ReadCardName();
  }
  // It may have a message, during which no view is open.
  versions.ReadDriverVersion();
}

void Program::Parts::DetectAdapter() {
  adapter.FindDisplayAdapter();
  adapter.ReadCardName();
  adapter.IdentifyGpu();
  adapter.ReadGpuRevision();
  information.FillSystemInfo();
}

void Program::Parts::FillSettings() {
  const platform::ReadScope view = registry.Reading();
  // The next start changes what another program's lock keeps from being changed now.
  const platform::UnaskedScope unasked = registry.Unasked(platform::HeldUp::kPassedOver);
  constexpr int kFewestUnits = 2;
  const int units = core::RegValue(cards.GetCardData("mt", false)).NumberOr(0);
  if (units < kFewestUnits) state.LowTextureUnits = 1;
  pages.driver.Lists().FillOptionLists();
  pages.resolution.FillList();
  pages.driver.Read();
  pages.control_panel.ReadOptions();
  // Once more, now that the readers know whether SLI antialiasing is on.
  pages.driver.Lists().FillCapabilityLists();
  pages.direct3d.InitOverrides();
  ExplainDisabled(controls, hardware, LangText);
  profiles::RegisterFileType(services.registry, services.files.ProgramFolder());
  ShowVersion();
}

void Program::Parts::ShowVersion() {
  core::OwnOptions options(registry);
  pages.information.ShowVersion(options.Read(core::kLastUpdateValue).NumberOr(0));
  const std::string minor = std::to_string(core::kMinorVersion);
  main.TheWindow().SetCaption("Kestrune SE Build " + minor);
  options.Write(core::kVersionValue,
                std::to_string(core::kMajorVersion) + minor + std::to_string(core::kRevision));
}

void Program::Parts::ShowRememberedPage() {
  if (lower_panel.ReadOptions()) navigation.ShowPage();
}

void Program::Parts::ShowAtFirst() {
  pages.resolution.ListDisplayModes();
  is_first_start = !registry.RegKeyExists(core::RegRoot::kCurrentUser, core::kOptionsKey);
  state.IsLoading = 1;
  state.IsStart = 1;
  LoadTexts();
  navigation.ShowPage();
  DetectDriver();
  DetectAdapter();
  lower_panel.OfferLanguages();
  services.dialog.RunPendingEvents();
  pages.overclocking.OfferPairs();
  FillSettings();
  services.dialog.RunPendingEvents();
  state.IsStart = 0;
  state.IsLoading = 0;
  pages.direct3d.ShowPreview();
  ShowRememberedPage();
}

void Program::Parts::Close() {
  if (closed) return;
  closed = true;
  pages.monitoring.Monitoring().End();
  lower_panel.SaveVisitedPage();
  windows.Close(main.TheWindow());
}

void Program::Parts::ReadSettings() {
  const platform::ReadScope view = registry.Reading();
  const core::FlagScope starting(state.IsStart);
  pages.driver.Read();
}

bool Program::Parts::ApplyProfile(std::string_view path) {
  state.CommandLinePreset = path;
  windows.Load(Manager());
  profiles.LoadIt();
  services.dialog.RunPendingEvents();
  state.CommandLinePreset.clear();
  return profiles.state.done;
}

Program::Program(const platform::Services& services) : parts_(std::make_unique<Parts>(services)) {}

Program::~Program() = default;

bool Program::Start(std::string_view command_line) {
  parts_->ShowAtFirst();
  if (!command_line.empty()) {
    const bool done = parts_->ApplyProfile(command_line);
    parts_->Close();
    return done;
  }
  parts_->pages.monitoring.Monitoring().Start();
  parts_->lower_panel.LoadHelpPicture();
  if (parts_->versions.state.OSFamily >= detect::kWindowsVista) parts_->toolbar.DisableForVista();
  return true;
}

bool Program::ApplyProfile(std::string_view path) { return parts_->ApplyProfile(path); }
profiles::Profiles& Program::Profiles() { return parts_->profiles; }
const detect::VersionState& Program::Versions() const { return parts_->versions.state; }
const core::ProgramState& Program::RunState() const { return parts_->state; }
MainForm& Program::Main() { return parts_->main; }

Form& Program::FormOf(std::string_view window) {
  return **std::find_if(parts_->forms.begin(), parts_->forms.end(),
                        [window](const Form* form) { return form->TheWindow().Id() == window; });
}

Windows& Program::TheWindows() { return parts_->windows; }
controls::Scheduler& Program::Timers() { return parts_->timers; }
controls::Gate& Program::Gate() { return parts_->gate; }
controls::Focus& Program::Focus() { return parts_->focus; }
const std::vector<Form*>& Program::Forms() const { return parts_->forms; }
int Program::ActivePage() const { return parts_->state.ActivePage; }
void Program::GoToPage(int page) { parts_->toolbar.GoToPage(page); }
bool Program::IsFirstStart() const { return parts_->is_first_start; }
bool Program::Ended() const { return parts_->closed; }
const std::vector<std::string>& Program::Languages() const {
  return parts_->main.Get<controls::ComboBox>("main.language").Items();
}
const std::string& Program::MissingFile() const { return parts_->language.MissingFile; }

const std::vector<platform::ProcessRecord>& Program::Processes() const {
  return parts_->pages.processes.Table();
}

regedit::Database Program::DatabaseOf(regedit::Category category) const {
  return regedit::OpenDatabase(parts_->services.files, category, parts_->versions.state.DrvVer,
                               regedit::kMostEditorEntries);
}

controls::Control* Program::Find(std::string_view id) const { return parts_->controls.Find(id); }

int Program::PageOf(const controls::Control& control) const {
  for (const controls::Control* each = &control; each != nullptr; each = each->Parent()) {
    for (int page = 0; page < PageCount(); ++page) {
      if (each == &parts_->main.Page(page)) return page;
    }
  }
  return -1;
}

std::vector<StateRow> Program::State() const {
  const Parts& parts = *parts_;
  const detect::VersionState& versions = parts.versions.state;
  const detect::AdapterState& adapter = parts.adapter.state;
  const clocks::ClockState& clocks = parts.clocks.state;
  const d3d::Direct3DState& direct3d = parts.pages.driver.State();
  const core::ProgramState& program = parts.state;
  return {
      {"OSFamily", versions.OSFamily},
      {"DrvVer", versions.DrvVer},
      {"DirectXBuild", versions.DirectXBuild},
      {"PureKey", adapter.PureKey},
      {"HardwareKey", adapter.HardwareKey},
      {"VendorId", adapter.VendorId},
      {"DeviceId", adapter.DeviceId},
      {"DeviceIdPrefix", adapter.DeviceIdPrefix},
      {"DeviceIdNumber", adapter.DeviceIdNumber},
      {"DeviceInstanceKey", adapter.DeviceInstanceKey},
      {"CardVar", adapter.CardVar},
      {"GpuRevision", adapter.GpuRevision},
      {"DefaultCoreMHz", clocks.DefaultCoreMHz},
      {"DefaultMemoryMHz", clocks.DefaultMemoryMHz},
      {"CoreMHz", clocks.CoreMHz},
      {"MemoryMHz", clocks.MemoryMHz},
      {"Clock3D", clocks.Clock3D},
      {"KeepClockValues", clocks.KeepClockValues},
      {"SliAaOn", direct3d.SliAaOn},
      {"AaGammaOn", direct3d.AaGammaOn},
      {"AaTransparencyMode", direct3d.AaTransparencyMode},
      {"CurrentAaModeText", direct3d.CurrentAaModeText},
      {"MaxSimultaneousTextures", direct3d.MaxSimultaneousTextures},
      {"PixelShaderVersionText", direct3d.PixelShaderVersionText},
      {"VertexShaderVersionText", direct3d.VertexShaderVersionText},
      {"LowTextureUnits", program.LowTextureUnits},
      {"TwoCPU", program.TwoCPU},
      {"Mhz", program.Mhz},
      {"WriteAsBinary", parts.registry.WriteAsBinary},
      {"IsStart", program.IsStart},
      {"IsLoading", program.IsLoading},
      {"ActivePage", program.ActivePage},
      {"HelpSystemEnabled", program.HelpSystemEnabled},
      {"LastHelpTopic", program.LastHelpTopic},
      {"TranslucenceLevel", program.TranslucenceLevel},
      {"Recording", program.Recording},
      {"LanguageName", parts.language.LanguageName},
  };
}

}  // namespace kestrune::forms
