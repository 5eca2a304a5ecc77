#include "profiles.h"

#include <fstream>
#include <memory>

#include "bare_store.h"
#include "failure.h"
#include "platform/case_fold.h"
#include "platform/portable/portable_machine.h"
#include "platform/windowless_dialog.h"
#include "ui/forms/program.h"

namespace kestrune::bench {

namespace {

constexpr Limit kApplyLimit{1.8, 1.5};
constexpr int kValues = 200;
constexpr int kAppliedARound = 5;

std::string NameOf(int value) { return "OGL_Value" + std::to_string(value); }

/// Writes a profile with one number for all its values.
std::string WriteProfile(const std::string& file, std::uint32_t number) {
  std::ofstream stream(file, std::ios::binary);
  stream << "\"ksp\"\r\n\"999\"\r\n\"0\"\r\n\"0\"\r\n";
  for (int i = 0; i < kValues; ++i) {
    stream << '"' << NameOf(i) << "\"\r\n\"" << number << "\"\r\n";
  }
  if (!stream.flush()) GiveUp(file + " can't be written.");
  return file;
}

std::string DriverKey(const forms::Program& program) {
  for (const auto& [name, value] : program.State()) {
    if (name == "PureKey") {
      return "HKEY_LOCAL_MACHINE\\" + platform::FoldCase(std::get<std::string>(value));
    }
  }
  return {};
}

}  // namespace

std::vector<Row> CompareProfiles(const std::string& folder, int rounds) {
  const std::string store = folder + "/profiles.store";
  const auto machine =
      platform::portable::PortableMachines().Open({.store = store, .machine = "winxp-geforce7800"});
  if (!machine.Ok()) GiveUp(machine.Reason());
  platform::WindowlessDialog dialog;
  forms::Program program(machine.Value()->ServicesFor(dialog));
  if (!program.Start("")) GiveUp("The program can't be started.");
  const std::string files[] = {WriteProfile(folder + "/a.ksp", 1),
                               WriteProfile(folder + "/b.ksp", 2)};
  std::size_t turn = 0;
  const auto ours = [&] {
    if (!program.ApplyProfile(files[++turn % 2])) GiveUp("A profile can't be applied.");
  };
  BareStore bare(store);
  const std::int64_t key = bare.FindKey(DriverKey(program));
  std::vector<std::string> names;
  names.reserve(kValues);
  for (int i = 0; i < kValues; ++i) names.push_back(platform::FoldCase(NameOf(i)));
  const auto plain = [&] {
    bare.BeginChange();
    const auto number = static_cast<std::uint32_t>(++turn);
    for (const std::string& name : names) bare.PutValue(key, name, number);
    bare.Commit();
  };
  return {Compare(
      "profile of 200 values applied : their prepared UPSERTs in one transaction", kApplyLimit,
      rounds, [&] { return ProcessorTimeOf(kAppliedARound, ours); },
      [&] { return ProcessorTimeOf(kAppliedARound, plain); })};
}

}  // namespace kestrune::bench
