// kestrunectl where the machine is this computer: there is one registry and nothing to choose.

#include <gtest/gtest.h>

#include <optional>

#include "cli/outcome.h"
#include "fake_machine.h"
#include "platform/memory_registry.h"
#include "platform/unwritten_files.h"

namespace kestrune::cli {
namespace {

/// What one run sees of the computer. A dry run stands in front of what it may not change.
class View : public platform::Machine {
 public:
  View(test::FakeMachine& computer, bool dry_run) : services_(computer.Services()) {
    if (!dry_run) return;
    overlay_.emplace(services_.registry);
    unwritten_.emplace(services_.files);
  }

  platform::Services ServicesFor(platform::DialogApi& dialog) override {
    const platform::Services& all = services_;
    platform::RegistryApi& registry =
        overlay_ ? static_cast<platform::RegistryApi&>(*overlay_) : all.registry;
    platform::FilesApi& files =
        unwritten_ ? static_cast<platform::FilesApi&>(*unwritten_) : all.files;
    return {registry, all.display, all.version, all.system, all.shell, files, dialog};
  }
  std::optional<std::string> FirstFailure() const override { return std::nullopt; }
  std::string Title() const override { return ""; }
  const std::vector<std::string>& Warnings() const override { return warnings_; }

 private:
  platform::Services services_;
  std::optional<platform::OverlayRegistry> overlay_;
  std::optional<platform::UnwrittenFiles> unwritten_;
  std::vector<std::string> warnings_;
};

class ThisComputer : public platform::MachineSource {
 public:
  explicit ThisComputer(test::FakeMachine& computer) : computer_(computer) {}

  platform::Result<std::unique_ptr<platform::Machine>> Open(
      const platform::MachineOptions& options) override {
    return std::unique_ptr<platform::Machine>(std::make_unique<View>(computer_, options.dry_run));
  }
  platform::Result<std::unique_ptr<platform::Inspection>> Inspect(
      const platform::MachineOptions&) override {
    return platform::Fail("There is nothing to look through.");
  }
  bool HasStores() const override { return false; }
  bool HasDescriptions() const override { return false; }
  std::vector<platform::MachineInfo> List(const platform::MachineOptions&) override { return {}; }
  platform::Result<platform::MachineInfo> Describe(const std::string&,
                                                   const platform::MachineOptions&) override {
    return platform::Fail("There is nothing to choose.");
  }

 private:
  test::FakeMachine& computer_;
};

struct ThisComputerTest : testing::Test {
  Outcome Run(const std::vector<std::string>& arguments) { return RunOn(machines, arguments); }

  test::FakeMachine computer{{.family = 3, .driver = 8198}};
  ThisComputer machines{computer};
};

TEST_F(ThisComputerTest, HasNoOptionsForStoresAndDescriptions) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"--store", "s", "state"},
        {"--machine", "host", "state"},
        {"machine"}}) {
    const Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.status, 2) << arguments.front();
    EXPECT_EQ(outcome.out, "") << arguments.front();
    EXPECT_EQ(outcome.err.find('\n'), outcome.err.size() - 1) << outcome.err;
  }
  EXPECT_EQ(Run({"state", "--help"}).status, 0);
  EXPECT_EQ(computer.TakeShortTrace(), "nothing");
}

TEST_F(ThisComputerTest, ASettingIsStoredAndSeenByTheNextRun) {
  EXPECT_EQ(Run({"set", std::string(kLimit) + "=5"}).status, 0);
  const std::string now = Run({"get", kLimit}).out;
  EXPECT_EQ(now, "5\n");
  const Outcome traced = Run({"--trace", "set", std::string(kLimit) + "=2"});
  EXPECT_EQ(traced.status, 0);
  EXPECT_TRUE(traced.err.starts_with("write\t" + computer.DriverKey() + "\t")) << traced.err;
  EXPECT_EQ(Run({"get", kLimit}).out, "2\n");
}

TEST_F(ThisComputerTest, ADryRunSeesItsChangesAndLeavesNone) {
  Run({"set", std::string(kLimit) + "=5"});
  computer.TakeTrace();
  const Outcome outcome =
      Run({"--dry-run", "--trace", "do", std::string(kLimit) + "=2", "?" + std::string(kLimit)});
  EXPECT_EQ(outcome.out, "2\n");
  EXPECT_TRUE(outcome.err.starts_with("write\t")) << outcome.err;
  EXPECT_EQ(computer.TakeShortTrace(), "nothing");
  EXPECT_EQ(Run({"get", kLimit}).out, "5\n");
}

TEST_F(ThisComputerTest, TheRegistryIsReadWrittenListedAndCleared) {
  const std::string key = R"(HKCU\Software\Test)";
  EXPECT_EQ(Run({"registry", "write", key, "n", "REG_BINARY", "01", "ff"}).status, 0);
  EXPECT_EQ(Run({"registry", "read", key, "N"}).out, "REG_BINARY 01 FF\n");
  EXPECT_EQ(Run({"registry", "list", key}).out, "n\tREG_BINARY 01 FF\n");
  EXPECT_EQ(Run({"registry", "delete", key, "n"}).status, 0);
  EXPECT_EQ(Run({"registry", "read", key, "n"}).status, 1);
}

}  // namespace
}  // namespace kestrune::cli
