#pragma once

#include <optional>
#include <string_view>

#include "platform/machine.h"
#include "platform/windowless_dialog.h"
#include "ui/forms/driver_settings.h"
#include "ui/forms/main_form.h"
#include "ui/forms/profile_manager.h"
#include "ui/forms/windows.h"

namespace kestrune::bench {

/// The pages of both interfaces with their readers, over any registry of a machine.
class SettingsPages {
 public:
  SettingsPages(platform::Machine& machine, platform::RegistryApi& registry)
      : services_(machine.ServicesFor(dialog_)), registry_(registry) {
    main_.AddTo(controls_);
    manager_.AddTo(controls_);
    language_.LoadLanguage();
    versions_.emplace(services_.version, dialog_, registry_, language_.LangText, controls_);
    adapter_.emplace(services_.display, registry_, versions_->state, language_.LangText, controls_);
    versions_->DetectOSAndDirectX();
    adapter_->FindVideoKey();
    versions_->ReadDriverVersion();
    adapter_->FindDisplayAdapter();
    hardware_.emplace(settings::Hardware{versions_->state, adapter_->state, state_});
    cards_.emplace(services_.files, adapter_->state);
    clocks_.emplace(registry_, services_.shell, services_.dialog, versions_->state, adapter_->state,
                    language_.LangText, controls_);
    profiles_.emplace(profiles::Surroundings{services_,
                                             state_,
                                             registry_,
                                             versions_->state,
                                             adapter_->state,
                                             *clocks_,
                                             language_.LangText,
                                             controls_,
                                             {},
                                             {}});
    shared_.emplace(forms::Shared{services_, state_, registry_, timers_, focus_, controls_,
                                  windows_, language_, versions_->state, adapter_->state, *cards_,
                                  *hardware_, *clocks_, *profiles_});
    driver_.emplace(*shared_);
  }

  /// Reads every value of both interfaces once: the OpenGL reader ends with the Direct3D one.
  void Read() { driver_->ReadOpenGL(); }

 private:
  platform::WindowlessDialog dialog_;
  const platform::Services services_;
  core::basRegistry registry_;
  core::ProgramState state_;
  controls::Scheduler timers_;
  controls::Focus focus_;
  forms::MainForm main_;
  forms::Form manager_{forms::kProfileManager};
  controls::ControlSet controls_;
  lang::Language language_{registry_, services_.files, dialog_};
  controls::Gate gate_;
  forms::Windows windows_{language_.LangText, gate_};
  std::optional<detect::Versions> versions_;
  std::optional<detect::Adapter> adapter_;
  std::optional<settings::Hardware> hardware_;
  std::optional<detect::CardData> cards_;
  std::optional<clocks::Clocks> clocks_;
  std::optional<profiles::Profiles> profiles_;
  std::optional<forms::Shared> shared_;
  std::optional<forms::DriverSettings> driver_;
};

}  // namespace kestrune::bench
