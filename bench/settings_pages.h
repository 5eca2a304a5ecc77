#pragma once

#include <string_view>

#include "core/program_state.h"
#include "d3d/d3d.h"
#include "detect/adapter.h"
#include "lang/language.h"
#include "ogl/ogldet.h"
#include "platform/machine.h"
#include "ui/forms/controls_of.h"

namespace kestrune::bench {

/// Answers every message at once.
class SilentDialog : public platform::DialogApi {
 public:
  platform::Answer ShowMessage(std::string_view, std::string_view, platform::Buttons) override {
    return platform::Answer::kOk;
  }
  void RunPendingEvents() override {}
};

/// The pages of both catalogues with their readers, over any registry of a machine.
class SettingsPages {
 public:
  SettingsPages(platform::Machine& machine, platform::RegistryApi& registry)
      : services_(machine.ServicesFor(dialog_)), registry_(registry) {
    language_.LoadLanguage();
    versions_.DetectOSAndDirectX();
    adapter_.FindVideoKey();
    versions_.ReadDriverVersion();
    adapter_.FindDisplayAdapter();
  }

  /// Reads every value of both catalogues once: the OpenGL reader ends with the Direct3D one.
  void Read() { opengl_reader_.ReadOpenGLSettings(); }

 private:
  SilentDialog dialog_;
  const platform::Services services_;
  core::basRegistry registry_;
  forms::MainForm main_;
  const d3d::Direct3DControls direct3d_controls_ = forms::Direct3DControlsOf(main_);
  const ogl::OpenGLControls opengl_controls_ = forms::OpenGLControlsOf(main_);
  lang::Language language_{registry_, services_.files, dialog_};
  detect::Versions versions_{services_.version, dialog_, registry_, language_.LangText,
                             forms::VersionControlsOf(main_)};
  detect::Adapter adapter_{services_.display, registry_, versions_.state, language_.LangText,
                           &main_.Get<controls::Label>("info.basic.vga-device")};
  core::ProgramState state_;
  d3d::Direct3DState direct3d_state_;
  const d3d::SettingsKey direct3d_key_{registry_, versions_.state, adapter_.state,
                                       "\\NVidia\\Direct3D", ""};
  const d3d::SettingsKey opengl_key_{registry_, versions_.state, adapter_.state, "\\NVidia\\OpenGL",
                                     "OGL_"};
  d3d::Direct3DReader direct3d_reader_{{direct3d_key_, versions_.state, adapter_.state, state_,
                                        language_.LangText, direct3d_controls_, direct3d_state_}};
  ogl::OpenGLReader opengl_reader_{
      {opengl_key_, versions_.state, language_.LangText, opengl_controls_,
       [this] { direct3d_reader_.ReadDirect3DSettings(); }, [](int) {}}};
};

}  // namespace kestrune::bench
