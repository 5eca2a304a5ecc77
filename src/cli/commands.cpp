#include "cli/clock_commands.h"
#include "cli/command.h"
#include "cli/database_commands.h"
#include "cli/machine_commands.h"
#include "cli/monitor_command.h"
#include "cli/profile_commands.h"
#include "cli/program_commands.h"
#include "cli/registry_commands.h"
#include "cli/step_commands.h"
#include "cli/wizard_commands.h"

namespace kestrune::cli {

namespace {

using platform::MachineSource;

constexpr Flag kPairFlags[] = {
    {"--2d", "The 2D pair of a card that has two; the only pair of any other"},
    {"--3d", "The 3D pair of a card that has two"},
};

constexpr CommandGroup kGroups[] = {
    {"clocks", "The overclocking page in one word, for the pair that it shows unless one is named",
     kPairFlags},
    {"profile", "Save, apply and compare speed profiles"},
    {"registry", "Work on the registry itself, without the driver's rules"},
};

constexpr Command kCommands[] = {
    {"pages", "Print the pages: index, id, caption", "", Pages},
    {"show", "Print every control of a page or window, or of all pages", "[PAGE|WINDOW]",
     PrintSteps, ShowSteps},
    {"get", "Print the values of controls", "ID...", PrintSteps, GetSteps},
    {"set", "Change controls as a person would, in order", "ID=VALUE...", DoSteps, SetSteps},
    {"press", "Press buttons and keys", "ID...", DoSteps, PressSteps},
    {"do",
     "Carry out steps: ID=VALUE sets, ID presses, ?ID prints, ~ID moves the mouse over, "
     "open:WINDOW, close:WINDOW, page:PAGE, wait:MS",
     "STEP...", PrintSteps, WrittenSteps},
    {"state", "Print the shared values", "", State},
    {"languages", "Print the languages that can be chosen", "", Languages},
    {"monitor",
     "Print processor loads and free memory in real time, until interrupted: milliseconds, percent "
     "of each processor, percent and MB free",
     "[--interval=MS] [--count=N] [--record=FILE]", Monitor, CheckMonitorWords},
    {"modes", "Print the display modes that can be chosen", "", Modes},
    {"processes", "Print the running processes; with --json also what the page says of them", "",
     Processes},
    {"clocks show", "Print the default and the current clocks, with --2d or --3d of that pair", "",
     ShowClocks},
    {"clocks set", "Set the clocks, in MHz, with --2d or --3d of that pair", "CORE MEMORY",
     SetClocks},
    {"clocks reset", "Go back to the driver's default clocks, with --2d or --3d of that pair", "",
     ResetClocks},
    {"registry read", "Print one value, as TYPE DATA", "KEY [NAME]", ReadRegistry},
    {"registry write", "Store one value", "KEY NAME TYPE [DATA...]", WriteRegistry, nullptr,
     nullptr, true},
    {"registry delete", "Delete one value", "KEY NAME", DeleteRegistry},
    {"registry list", "Print the keys below a key and its values", "KEY", ListRegistry},
    {"registry export", "Write a key with all below it as registry text", "[--regedit4] KEY [FILE]",
     ExportRegistry},
    {"registry import", "Make the changes of a registry file", "FILE", ImportRegistry},
    {"database", "Print what the driver's database files say: file, then name, text and numbers",
     "[d3d|ogl|sys]", PrintDatabase, CheckTag},
    {"profile save", "Save the driver's values as a speed profile",
     "[--clean] [--restore-clocks] [--clocks=CORE,MEMORY] [--app=FILE] NAME", SaveProfile,
     CheckClocksWord},
    {"profile apply", "Apply a speed profile: its file, or a name of the list", "FILE",
     ApplyProfile},
    {"profile list", "Print the names of the speed profiles", "", ListProfiles},
    {"profile check", "Print what is wrong with a speed profile, or with all", "[FILE]",
     CheckProfiles},
    {"profile diff", "Print what applying a speed profile would change", "FILE", DiffProfile},
    {"wizard", "Optimize with the performance wizard and print what it sets",
     "[--fine=AA,TF] ENTRY QUALITY", RunWizard, CheckWizardWords},
    {"check", "Print what is wrong with data files: with some, or with all and every store",
     "[FILE...]", CheckFiles},
    {"machine", "Print the machine descriptions, or one of them", "[NAME]", Machines, nullptr,
     &MachineSource::HasDescriptions},
};

}  // namespace

std::span<const Command> Commands() { return kCommands; }

std::span<const CommandGroup> CommandGroups() { return kGroups; }

}  // namespace kestrune::cli
