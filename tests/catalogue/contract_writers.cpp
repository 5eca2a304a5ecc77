// The listing's sections on the numbered writers, standing alone, so that every code can be asked.

#include <gtest/gtest.h>

#include <algorithm>

#include "catalogue/listing.h"
#include "d3d/d3d.h"
#include "ogl/ogl.h"
#include "ui/forms/main_form.h"

namespace kestrune::catalogue {

using test::FakeMachine;
using test::MachineKind;
using test::NumberText;

namespace {

constexpr int kLastCode = 130;

/// Both writers of one machine.
struct Writers {
  explicit Writers(const MachineKind& kind) : machine(kind) {
    versions.OSFamily = kind.family;
    versions.DrvVer = kind.driver;
    adapter.PureKey = machine.DriverKey().substr(5);
    form.AddTo(controls);
    direct3d_bindings = Bind(d3d::kDirect3DSettings, controls);
    opengl_bindings = Bind(ogl::kOpenGLSettings, controls);
    direct3d.emplace(d3d::Direct3DContext{direct3d_key, hardware, texts, direct3d_bindings, state},
                     controls);
    opengl.emplace(
        ogl::OpenGLContext{opengl_key, hardware, texts, opengl_bindings, [] {},
                           [this](int code) { direct3d->WriteDirect3DSetting(code, 0); }});
    state.AaGammaOn = 1;
    state.AaTransparencyMode = 2;
  }

  std::string Trace(bool is_direct3d, int code, std::int32_t argument) {
    machine.TakeTrace();
    if (is_direct3d) {
      direct3d->WriteDirect3DSetting(code, argument);
    } else {
      opengl->WriteOpenGLSetting(code, argument);
    }
    EXPECT_EQ(registry.WriteAsBinary, 0) << code;
    return machine.TakeShortTrace();
  }

  /// Every deletion then shows.
  void StoreWhatCodesDelete() {
    for (const char* name :
         {"D3DOGL_74095213", "D3d_74095213", "D3D_59954022", "D3D_59954023", "D3d_59954021"}) {
      machine.StoreDirect3D(name, 5);
    }
    for (const char* name : {"95282304", "308826"}) machine.StoreOpenGL(name, 5);
    machine.StoreOpenGL("RenderQualityFlags", 1);
  }

  FakeMachine machine;
  core::basRegistry registry{machine.Services().registry};
  detect::VersionState versions;
  detect::AdapterState adapter;
  core::ProgramState program;
  const settings::Hardware hardware{versions, adapter, program};
  lang::LangTable texts;
  forms::MainForm form;
  controls::ControlSet controls;
  std::vector<settings::Binding> direct3d_bindings;
  std::vector<settings::Binding> opengl_bindings;
  d3d::Direct3DState state;
  const settings::SettingsKey direct3d_key{registry, versions, adapter, R"(\NVidia\Direct3D)", ""};
  const settings::SettingsKey opengl_key{registry, versions, adapter, R"(\NVidia\OpenGL)", "OGL_"};
  std::optional<d3d::Direct3DWriter> direct3d;
  std::optional<ogl::OpenGLWriter> opengl;
};

}  // namespace

/// An argument is listed where it makes a difference.
void ListCodes(Listing& listing) {
  std::vector<std::unique_ptr<Writers>> all;
  for (const MachineKind& kind : Machines::Kinds()) all.push_back(std::make_unique<Writers>(kind));
  for (const bool is_direct3d : {true, false}) {
    listing.Section(is_direct3d
                        ? "codes of the Direct3D writer, with gamma and supersampling; 98-2280 "
                          "where it stores something"
                        : "operations of the OpenGL writer, with RenderQualityFlags = 1");
    for (int code = -1; code <= kLastCode; ++code) {
      std::vector<std::string> without;
      for (const std::int32_t argument : {0, 1, 15}) {
        std::vector<std::string> results;
        for (const auto& writers : all) {
          writers->StoreWhatCodesDelete();
          results.push_back(writers->Trace(is_direct3d, code, argument));
        }
        if (argument == 0) without = results;
        const bool stores = std::any_of(results.begin(), results.end(),
                                        [](const auto& each) { return each != "nothing"; });
        if (argument != 0 ? results == without : !stores) continue;
        // The oldest layout knows few codes.
        if (is_direct3d && results.front() == "nothing") results.front().clear();
        listing.Line(std::to_string(code) + (argument == 0 ? "" : "," + std::to_string(argument)),
                     results, Machines::Names());
      }
    }
  }
}

void ListQualityFlags(Listing& listing) {
  listing.Section("operations on RenderQualityFlags of Windows 9x, by what is stored");
  constexpr std::string_view kValue = "GL RenderQualityFlags = ";
  constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
  std::vector<std::optional<std::int32_t>> numbers = {std::nullopt, kLowest};
  for (std::int32_t number = -2; number <= 10; ++number) numbers.emplace_back(number);
  numbers.emplace_back(kHighest);
  Writers writers({.family = 0, .driver = 8000});
  for (const int operation : {4, 5, 8, 9, 31, 32}) {
    std::vector<std::string> results;
    for (const std::optional<std::int32_t> number : numbers) {
      writers.machine.StoreOpenGL(ogl::kQualityFlags, number);
      std::string stored = writers.Trace(false, operation, 0);
      if (stored.starts_with(kValue)) stored.erase(0, kValue.size());
      results.push_back(NumberText(number) + ": " + stored);
    }
    listing.Line(std::to_string(operation), test::Joined(results, "; "));
  }
}

}  // namespace kestrune::catalogue
