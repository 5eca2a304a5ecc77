#include "ui/forms/program.h"

#include "clocks/clocks.h"
#include "core/options.h"
#include "core/outcome.h"
#include "cpl/control_panel.h"
#include "d3d/overrides.h"
#include "d3d/preview.h"
#include "ogl/option_lists.h"
#include "ui/forms/controls_of.h"
#include "ui/forms/main_window.h"
#include "ui/forms/overclocking_page.h"
#include "ui/forms/setting_handlers.h"
#include "ui/forms/texts.h"

namespace kestrune::forms {

/// Everything that makes up one program, each part after those that it works with.
struct Program::Parts {
  explicit Parts(const platform::Services& machine);

  void ReadSettings();
  void ReadControlPanel();
  void ShowPreview() { d3d::ShowAaPreview(preview_controls, services.files, LangText); }
  void ConnectPages();
  void ConnectLanguageChoice();
  void LoadTexts();
  void DetectHardware();
  void FillSettings();
  void ShowVersion();
  bool RunCommandLine(std::string_view command_line);

  const platform::Services services;
  core::ProgramState state;
  core::basRegistry registry{services.registry};
  controls::Scheduler scheduler;
  controls::Gate gate;
  controls::Focus focus;

  MainForm main;
  HelpForm help;
  std::vector<Form*> forms{&main, &help};

  lang::Language language{registry, services.files, services.dialog};
  const lang::LangTable& LangText = language.LangText;

  const d3d::Direct3DControls direct3d_controls = Direct3DControlsOf(main);
  const ogl::OpenGLControls opengl_controls = OpenGLControlsOf(main);
  const d3d::PreviewControls preview_controls = PreviewControlsOf(main);
  const d3d::OverrideControls override_controls = OverrideControlsOf(main);

  detect::Versions versions{services.version, services.dialog, registry, LangText,
                            VersionControlsOf(main)};
  detect::Adapter adapter{services.display, registry, versions.state, LangText,
                          &main.Get<controls::Label>("info.basic.vga-device")};
  detect::CardData cards{services.files, adapter.state};

  const d3d::SettingsKey direct3d_key{registry, versions.state, adapter.state, "\\NVidia\\Direct3D",
                                      ""};
  d3d::Direct3DState direct3d_state;
  const d3d::Direct3DContext direct3d_context{direct3d_key, versions.state,    adapter.state, state,
                                              LangText,     direct3d_controls, direct3d_state};
  d3d::Direct3DReader direct3d_reader{direct3d_context};
  d3d::Direct3DWriter direct3d_writer{direct3d_context};
  d3d::CapabilityOverrides overrides{direct3d_context, direct3d_writer,  registry, cards,
                                     services.shell,   override_controls};

  const d3d::SettingsKey opengl_key{registry, versions.state, adapter.state, "\\NVidia\\OpenGL",
                                    "OGL_"};
  const ogl::OpenGLContext opengl_context{
      opengl_key,
      versions.state,
      LangText,
      opengl_controls,
      [this] { direct3d_reader.ReadDirect3DSettings(); },
      [this](int code) { direct3d_writer.WriteDirect3DSetting(code, 0); }};
  ogl::OpenGLReader opengl_reader{opengl_context};
  ogl::OpenGLWriter opengl_writer{opengl_context};
  ogl::OptionLists lists{
      cards,
      versions.state,
      adapter.state,
      state,
      direct3d_state,
      LangText,
      direct3d_controls,
      opengl_controls,
      &main.Get<controls::ComboBox>("control-panel.resolution.select-from-list")};

  const cpl::ControlPanelControls control_panel_controls = ControlPanelControlsOf(main);
  cpl::ControlPanelOptions control_panel{registry,      services.files, versions.state,
                                         adapter.state, state,          control_panel_controls};
  clocks::Clocks clocks{registry,      services.shell, services.dialog,      versions.state,
                        adapter.state, LangText,       ClockControlsOf(main)};
  OverclockingPage overclocking{main,     state,  registry,     services.dialog,
                                LangText, clocks, adapter.state};

  MainWindow window{
      main,           help,
      state,          registry,
      services.shell, services.files,
      scheduler,      {[this] { ReadControlPanel(); }, [this] { overclocking.PageShown(); }}};
  SettingHandlers handlers{state,
                           versions.state,
                           LangText,
                           direct3d_state,
                           direct3d_controls,
                           opengl_controls,
                           direct3d_writer,
                           opengl_writer,
                           {[this] { lists.FillCapabilityLists(); }, [this] { ReadSettings(); },
                            [this] { ShowPreview(); }}};
};

Program::Parts::Parts(const platform::Services& machine) : services(machine) {
  ConnectPages();
  ConnectLanguageChoice();
}

void Program::Parts::ReadSettings() {
  const core::FlagScope starting(state.IsStart);
  direct3d_reader.ReadDirect3DSettings();
  opengl_reader.ReadOpenGLSettings();
}

void Program::Parts::ReadControlPanel() {
  const core::FlagScope starting(state.IsStart);
  control_panel.ReadControlPanelOptions();
}

void Program::Parts::ConnectPages() {
  controls::OptionButton::Group(
      {&main.Get<controls::OptionButton>("direct3d.antialiasing.normal-size"),
       preview_controls.zoom});
  controls::OptionButton::Group(
      {opengl_controls.compression_by_application, opengl_controls.compression_enabled});
  for (const std::string_view id :
       {"direct3d.antialiasing.normal-size", "direct3d.antialiasing.zoom"}) {
    main.Get<controls::OptionButton>(id).on_click = [this] { ShowPreview(); };
  }

  for (int index = 0; index < cpl::kOptionCount; ++index) {
    controls::CheckBox& box = *control_panel_controls.options[static_cast<std::size_t>(index)];
    box.on_change = [this, index] { control_panel.OptionChanged(index); };
    box.on_hover = [this, index] { control_panel.OptionHovered(index); };
  }
  control_panel_controls.picture->on_click = [this] {
    core::Ignore(services.shell.OpenControlPanelItem("desk.cpl"));
  };

  override_controls.textures->on_change = [this] { overrides.TexturesMoved(); };
  override_controls.pixel.slider->on_change = [this] { overrides.PixelShaderMoved(); };
  override_controls.vertex.slider->on_change = [this] { overrides.VertexShaderMoved(); };
  override_controls.override_textures->on_change = [this] { overrides.OverrideTexturesClicked(); };
  override_controls.override_shaders->on_change = [this] { overrides.OverrideShadersClicked(); };
  for (controls::Button* button :
       {override_controls.apply_textures, override_controls.apply_shaders}) {
    button->on_click = [this, button] { overrides.ApplyClicked(*button); };
  }
}

void Program::Parts::ConnectLanguageChoice() {
  auto& choice = main.Get<controls::ComboBox>("main.language");
  choice.on_change = [this, &choice](controls::ComboChange) {
    language.ChooseLanguage(choice.Position());
  };
}

void Program::Parts::LoadTexts() {
  language.LoadLanguage();
  main.Get<controls::Label>("main.language-header").SetCaption(language.HeaderText);
  services.dialog.RunPendingEvents();
  ApplyLanguage(main, LangText);
  // The driver decides on the shader versions until they have been read.
  direct3d_state.PixelShaderVersionText = LangText[146];
  direct3d_state.VertexShaderVersionText = LangText[146];
}

void Program::Parts::DetectHardware() {
  versions.DetectOSAndDirectX();
  adapter.FindVideoKey();
  adapter.ReadCardName();
  versions.ReadDriverVersion();
  adapter.FindDisplayAdapter();
  adapter.ReadCardName();
  adapter.IdentifyGpu();
  adapter.ReadGpuRevision();
}

void Program::Parts::FillSettings() {
  constexpr int kFewestUnits = 2;
  const int units = core::RegValue(cards.GetCardData("mt", false)).NumberOr(0);
  if (units < kFewestUnits) state.LowTextureUnits = 1;
  lists.FillOptionLists();
  direct3d_reader.ReadDirect3DSettings();
  opengl_reader.ReadOpenGLSettings();
  control_panel.ReadControlPanelOptions();
  // Once more, now that the readers know whether SLI antialiasing is on.
  lists.FillCapabilityLists();
  overrides.InitMultitexturePage();
  overrides.InitShaderPage();
}

void Program::Parts::ShowVersion() {
  const std::string major = std::to_string(core::kMajorVersion);
  const std::string minor = std::to_string(core::kMinorVersion);
  const int update =
      registry.ReadRegValue(core::RegRoot::kCurrentUser, core::kOptionsKey, core::kLastUpdateValue)
          .NumberOr(0);
  std::string line = "Kestrune SE " + LangText[246] + major + "." + minor;
  if (update > 0) line += LangText[247] + std::to_string(update);
  main.Get<controls::Label>("info.basic.kestrune-se-version").SetCaption(line);
  main.TheWindow().SetCaption("Kestrune SE Build " + minor);
  registry.WriteAsBinary = 0;
  core::Ignore(registry.WriteRegValue(core::RegRoot::kCurrentUser, core::kOptionsKey,
                                      core::kVersionValue,
                                      major + minor + std::to_string(core::kRevision)));
  services.dialog.RunPendingEvents();
}

bool Program::Parts::RunCommandLine(std::string_view command_line) {
  state.CommandLinePreset = command_line;
  core::Ignore(services.dialog.ShowMessage(
      core::kProgramTitle, "Speed profiles can't be applied yet: " + std::string(command_line),
      platform::Buttons::kOk));
  services.dialog.RunPendingEvents();
  window.Close();
  state.CommandLinePreset.clear();
  return false;
}

Program::Program(const platform::Services& services) : parts_(std::make_unique<Parts>(services)) {}

Program::~Program() = default;

bool Program::Start(std::string_view command_line) {
  Parts& parts = *parts_;
  parts.state.IsLoading = 1;
  parts.state.IsStart = 1;
  parts.LoadTexts();
  parts.window.ShowPage();
  parts.DetectHardware();
  parts.language.ListLanguages();
  Main().Get<controls::ComboBox>("main.language").SetItems(parts.language.DisplayNames);
  parts.services.dialog.RunPendingEvents();
  parts.overclocking.OfferPairs();
  parts.FillSettings();
  parts.ShowVersion();
  parts.state.IsStart = 0;
  parts.state.IsLoading = 0;
  parts.ShowPreview();
  parts.window.ReadOptions();
  if (!command_line.empty()) return parts.RunCommandLine(command_line);
  parts.window.LoadHelpPicture();
  if (parts.versions.state.OSFamily >= detect::kWindowsVista) parts.window.DisableForVista();
  return true;
}

MainForm& Program::Main() { return parts_->main; }
HelpForm& Program::Help() { return parts_->help; }
controls::Scheduler& Program::Timers() { return parts_->scheduler; }
controls::Gate& Program::Gate() { return parts_->gate; }
controls::Focus& Program::Focus() { return parts_->focus; }
const std::vector<Form*>& Program::Forms() const { return parts_->forms; }
int Program::ActivePage() const { return parts_->state.ActivePage; }
void Program::GoToPage(int page) { parts_->window.GoToPage(page); }
bool Program::Ended() const { return parts_->window.Closed(); }
const std::vector<std::string>& Program::Languages() const { return parts_->language.DisplayNames; }

controls::Control* Program::Find(std::string_view id) const {
  for (const Form* form : parts_->forms) {
    if (controls::Control* control = form->Find(id)) return control;
  }
  return nullptr;
}

int Program::PageOf(const controls::Control& control) const {
  for (const controls::Control* each = &control; each != nullptr; each = each->Parent()) {
    for (int page = 0; page < kPageCount; ++page) {
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
  const d3d::Direct3DState& direct3d = parts.direct3d_state;
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
