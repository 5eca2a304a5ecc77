#include "detect/system_information.h"

#include "detect/memory_info.h"
#include "lang/texts.h"

namespace kestrune::detect {

namespace texts = lang::texts;

namespace {

using core::RegRoot;
using platform::RegStatus;

constexpr std::string_view kProcessorKeys = "HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\";

/// The graphics processors on PCI Express, by themselves or behind a bridge.
constexpr std::string_view kPciExpressPrefixes[] = {"009", "021"};
constexpr std::string_view kPciExpressIds[] = {"0141", "0140", "0161", "00FA",
                                               "00FB", "00FC", "00FD", "00FF"};

}  // namespace

SystemInformation::SystemInformation(platform::SystemApi& system, core::basRegistry& registry,
                                     const AdapterState& adapter, core::ProgramState& program,
                                     const lang::LangTable& lang_text,
                                     const controls::ControlSet& controls)
    : system_(system),
      registry_(registry),
      adapter_(adapter),
      program_(program),
      LangText(lang_text),
      controls_(controls) {}

void SystemInformation::FillSystemInfo() {
  const platform::ProcessorInfo processors = system_.Processors();
  ShowMemory();
  ShowGraphicsProcessor();
  ShowSpeed();
  const std::string name = ReadProcessor("0", "ProcessorNameString");
  const bool hyper_threading = !name.empty() && ReadProcessor("1", "ProcessorNameString") == name;
  ShowIdentifier(hyper_threading);
  program_.TwoCPU = hyper_threading || processors.count == 2 ? 1 : 0;
  ShowName(processors.type);
}

void SystemInformation::Show(std::string_view line, int text, const std::string& rest) {
  controls_.Get<controls::Label>(line).SetCaption(LangText[text] + rest);
}

void SystemInformation::ShowMemory() {
  const MemoryMegabytes memory = GetMemInfo(system_.Memory());
  Show("info.basic.total-physics-memory", texts::kMemory,
       std::to_string(memory.total) + " MB (" + std::to_string(memory.free) + " MB " +
           LangText[texts::kFreeMemory] + ")");
}

void SystemInformation::ShowGraphicsProcessor() {
  const AdapterState card = adapter_.InCapitals();
  const bool is_express = card.IsOneOf(kPciExpressPrefixes, kPciExpressIds);
  Show("info.basic.gpu-id", texts::kGpuId,
       card.DeviceId + (is_express ? LangText[texts::kPciExpress] : ""));
  Show("info.basic.revision", texts::kGpuRevision, adapter_.GpuRevision);
}

void SystemInformation::ShowSpeed() {
  program_.Mhz = core::RegValue(ReadProcessor("0", "~MHz")).NumberOr(0);
  if (program_.Mhz == 0) return;
  Show("info.basic.real-cpu-speed", texts::kProcessorSpeed, std::to_string(program_.Mhz) + "MHz");
}

void SystemInformation::ShowIdentifier(bool hyper_threading) {
  const std::string vendor = ReadProcessor("0", "VendorIdentifier");
  if (!WasThere()) return;
  Show("info.basic.identifier", texts::kProcessorVendor,
       vendor + (hyper_threading ? " with HT" : ""));
}

void SystemInformation::ShowName(int type) {
  std::string name = ReadProcessor("0", "ProcessorNameString");
  if (!WasThere()) return;
  name.erase(0, name.find_first_not_of(' '));
  if (!name.empty()) {
    const std::string identifier = ReadProcessor("0", "Identifier");
    name += " / " + (identifier.empty() ? std::to_string(type) : identifier);
  }
  Show("info.basic.cpu", texts::kProcessor, name);
}

std::string SystemInformation::ReadProcessor(std::string_view number, std::string_view name) {
  return registry_
      .ReadRegValue(RegRoot::kLocalMachine, std::string(kProcessorKeys).append(number), name)
      .Text();
}

bool SystemInformation::WasThere() const { return registry_.LastRegStatus == RegStatus::kSuccess; }

}  // namespace kestrune::detect
