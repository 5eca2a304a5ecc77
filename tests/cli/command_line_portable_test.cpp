// kestrunectl, run in this process on stores of its own.

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>

#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/command_line_run.h"
#include "cli/step.h"
#include "platform/portable/store.h"

namespace kestrune::cli {
namespace {

const std::string kKey =
    R"(HKLM\System\CurrentControlSet\Control\Video\{3E8D1C47-A2B6-4D95-8F13-5B7A60C9E2D4}\0000)";

TEST_F(CommandLineTest, ASettingIsOneTracedWriteThatTheNextRunShows) {
  const Outcome set = Run({"--trace", "set", std::string(kMode) + "=4x"});
  EXPECT_EQ(set.status, 0);
  EXPECT_EQ(set.err, "write\t" + kKey + "\tD3DOGL_70835937\tREG_BINARY 10 00 00 10\n");
  EXPECT_EQ(Out({"get", kMode, "opengl.antialiasing.antialiasing-mode"}), "4x\n4x\n");
  EXPECT_EQ(Out({"registry", "read", kKey, "d3dogl_70835937"}), "REG_BINARY 10 00 00 10\n");
  const Outcome flags = Run({"--trace", "do", "direct3d.antialiasing.gamma-correct-antialiasing=on",
                             "opengl.antialiasing.transparency-antialiasing=supersampling",
                             "?direct3d.antialiasing.transparency-antialiasing"});
  EXPECT_EQ(flags.out, "Supersampling\n");
  EXPECT_TRUE(flags.err.ends_with("D3DOGL_70835937\tREG_BINARY 10 00 10 50\n")) << flags.err;
}

TEST_F(CommandLineTest, TracesChangesOfTheRegistryItself) {
  const std::string file = folder.Write(
      "a.reg", "REGEDIT4\n[HKEY_CURRENT_USER\\Software\\T]\n\"a\"=dword:1\n\"none\"=-\n");
  EXPECT_EQ(Run({"--trace", "registry", "write", R"(HKCU\Software\T)", "b", "REG_SZ", "x"}).err,
            "write\tHKCU\\Software\\T\tb\tREG_SZ x\n");
  EXPECT_EQ(Run({"--trace", "registry", "import", file}).err,
            "write\tHKCU\\Software\\T\ta\tREG_DWORD 1\n");
  EXPECT_EQ(Run({"--trace", "registry", "delete", R"(HKCU\Software\T)", "b"}).err,
            "delete\tHKCU\\Software\\T\tb\n");
}

TEST_F(CommandLineTest, TracingFromTheFirstStepShowsTheStartUpToo) {
  program_folder = KESTRUNE_DATA_FOLDER;
  EXPECT_EQ(Run({"--trace", "get", kLimit}).err, "");
  std::string lines = Run({"--trace=all", "get", kLimit}).err;
  std::replace(lines.begin(), lines.end(), '\t', ' ');
  for (std::size_t at = lines.find('\n'); at + 1 < lines.size(); at = lines.find('\n', at + 2)) {
    lines.replace(at, 1, ", ");
  }
  EXPECT_EQ(lines, std::string(test::kStartUpTrace) + '\n');
}

TEST_F(CommandLineTest, TheOldDriversOfWindows98StoreTheirOwnForms) {
  const auto trace = [this](const std::string& machine, const std::string& mode) {
    std::string err = Run({"--trace", "set", std::string(kMode) + "=" + mode}, machine).err;
    std::replace(err.begin(), err.end(), '\t', ' ');
    return err;
  };
  const std::string key =
      R"(write HKLM\System\CurrentControlSet\Services\Class\Display\0000\NVidia\Direct3D )";
  EXPECT_EQ(trace("win98-geforce4ti", "Quincunx"),
            key + "D3D_08285629 REG_DWORD 1459706256\n" + key + "D3d_70835937 REG_DWORD 2\n");
  EXPECT_EQ(trace("win98-tnt2", "4x"), key + "ANTIALIASENABLE REG_DWORD 1\n" + key +
                                           "ANTIALIASQUALITY REG_DWORD 3\n" + key +
                                           "ANTIALIASFORCEENABLE REG_DWORD 4\n" +
                                           "note: \"4x\" is none of the items of " + kMode + "\n");
}

TEST_F(CommandLineTest, ADryRunKeepsNothingAndSaysWhatItWouldStart) {
  const Outcome dry = Run(
      {"--dry-run", "do", std::string(kLimit) + "=7", "?" + std::string(kLimit), "main.nvcpl4"});
  EXPECT_EQ(dry.status, 0);
  EXPECT_EQ(dry.out, "7\n");
  EXPECT_EQ(dry.err, "run\trundll32.exe nvcpl.dll, launchoverlayapplet\n");
  EXPECT_FALSE(std::filesystem::exists(folder / "winxp-geforce7800.store"));
  EXPECT_EQ(Out({"get", kLimit}), "2\n");
}

TEST_F(CommandLineTest, UnknownIdsAreRefusedBeforeAnythingIsDone) {
  const Outcome outcome =
      Run({"--trace=all", "set", std::string(kLimit) + "=7", "direct3d.misc.prerender-limt=3"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_NE(outcome.err.find(kLimit), std::string::npos) << outcome.err;
  EXPECT_EQ(outcome.err.find("write"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(folder / "winxp-geforce7800.store"));
  for (const std::vector<std::string>& wrong :
       {std::vector<std::string>{"get", "nothing"},
        {"do", "?" + std::string(kLimit), "~nowhere"},
        {"do", "page:main"},
        {"do", "open:info.basic"},
        {"do", "wait:-1"},
        {"do", "wait:soon"},
        {"do", "?"},
        {"set", "no-equals-sign"},
        {"show", "info.nothing"},
        {"press"},
        {"dance"},
        {"--answer", "maybe", "state"},
        {"--trace=some", "state"},
        {"registry", "read", "HKXX\\A", "B"},
        {"registry", "write", "HKCU\\A", "B", "REG_FUN", "1"},
        {"registry", "write", "HKCU\\A", "B", "REG_DWORD", "x"},
        {}}) {
    const Outcome each = Run(wrong);
    EXPECT_EQ(each.status, 2) << (wrong.empty() ? "" : wrong.back());
    EXPECT_EQ(each.out, "");
    EXPECT_NE(each.err, "");
  }
}

TEST_F(CommandLineTest, WhatAControlCannotTakeEndsTheRunAndWhatWasDoneStays) {
  const std::string limit = kLimit;
  const std::pair<std::string, std::string> refusals[] = {
      {limit + "=10", "\"9\""},
      {"direct3d.filtering.texture-lod-bias=25", "-24 to 24"},
      {"direct3d.filtering.texture-lod-bias=", "-24 to 24"},
      {"direct3d.filtering.trilinear-optimization=yes", "on or off"},
      {"direct3d.antialiasing.zoom=off", "only on"},
      {"direct3d.misc.enable-z-buffer-compression=off", "disabled"},
      {"direct3d.multitexturing.apply-setting-now", "disabled"},
      {"control-panel.settings.picture", "hidden"},
      {"info.basic.vga-device=x", "label"},
      {"info.basic", "pressed"},
      {"close:help", "help"},
      {"open:help", "help"}};
  int count = 0;
  for (const auto& [step, why] : refusals) {
    const std::string value = std::to_string(count++ % 8);
    const Outcome outcome = Run({"do", limit + "=" + value, step, limit + "=9"});
    EXPECT_EQ(outcome.status, 3) << step;
    EXPECT_NE(outcome.err.find(why), std::string::npos) << step << ": " << outcome.err;
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    EXPECT_EQ(Out({"get", kLimit}), value + "\n") << step;
  }
}

TEST_F(CommandLineTest, ValuesAreItemsInAnyCasePositionsOrTypedText) {
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"direct3d.misc.synchronization-mode", "dIsAbLeD", "Disabled"},
      {"direct3d.misc.synchronization-mode", "#0", "Auto"},
      {"direct3d.filtering.texture-lod-bias", "-7", "-7"},
      {"direct3d.filtering.anisotropic-filtering", "#5", "16x"},
      {"direct3d.antialiasing.zoom", "on", "on"},
      {"main.group-scroll-bar", "2", "2"}};
  for (const auto& [id, value, shown] : cases) {
    EXPECT_EQ(Out({"do", id + "=" + value, "?" + id}), shown + "\n") << id;
  }
  EXPECT_EQ(Run({"set", "direct3d.misc.synchronization-mode=#3"}).status, 3);
}

TEST_F(CommandLineTest, ATypedTextThatIsNoItemIsSaid) {
  const Outcome typed = Run({"set", std::string(kMode) + "=6x"});
  EXPECT_EQ(typed.status, 0);
  EXPECT_EQ(typed.err, "note: \"6x\" is none of the items of " + std::string(kMode) + "\n");
  EXPECT_EQ(Run({"do", std::string(kMode) + "=QUINCUNX", "?" + std::string(kMode)}).err, "");
}

TEST_F(CommandLineTest, AControlsPageIsShownFirstAsAUserWould) {
  EXPECT_EQ(Out({"do", "?" + std::string(kLimit), "?main.group-scroll-bar"}), "2\n3\n");
  EXPECT_EQ(Out({"do", "main.remember-last-visited-page=on", "page:opengl.misc", "close:main"}),
            "");
  EXPECT_EQ(Out({"registry", "read", R"(HKCU\Software\Kestrune)", "LVP"}), "REG_DWORD 7\n");
  EXPECT_EQ(Run({"do", "close:main", std::string(kLimit) + "=5"}).status, 3);
  EXPECT_EQ(Out({"do", "~main.lower-panel-edge", "wait:800"}), "");
}

TEST_F(CommandLineTest, HelpIsOpenedByTheMouseAlone) {
  const Outcome outcome = Run({"--json", "do", "~direct3d.filtering.force-mipmaps", "?help",
                               "?help.topic-2", "?help.topic-3", "close:help", "?help"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  const auto json = nlohmann::json::parse(outcome.out);
  const bool visible[] = {true, true, false, false};
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(json[i]["visible"], visible[i]) << i;
}

/// A text in a hidden panel can't be read, so it isn't shown as if it could.
TEST_F(CommandLineTest, WhatStandsInAHiddenPanelIsHidden) {
  const std::string shown = Out({"show", "help"});
  EXPECT_NE(shown.find("help.topic-3\tImage quality\thidden\n"), std::string::npos);
  std::istringstream lines(shown);
  int readable = 0;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("help.topic") && !line.ends_with("\thidden")) ++readable;
  }
  EXPECT_EQ(readable, 0) << shown;
}

TEST_F(CommandLineTest, ShowPrintsEveryControlOfAPageInTabOrder) {
  EXPECT_EQ(Out({"show", "direct3d.misc"}),
            "direct3d.misc\tDirect3D miscellanous settings\n"
            "direct3d.misc.vertical-synchronization\tVertical synchronization\n"
            "direct3d.misc.synchronization-mode-label\tSynchronization mode:\n"
            "direct3d.misc.synchronization-mode\tEnabled\n"
            "direct3d.misc.prerender-limit-label\tPrerender limit:\n"
            "direct3d.misc.prerender-limit\t2\n"
            "direct3d.misc.enable-z-buffer-compression\ton\tdisabled\n"
            "direct3d.misc.enable-fog-table-emulation\ton\n");
  const std::string all = Out({"show"});
  std::size_t at = 0;
  for (const char* page : {"control-panel.settings\t", "direct3d.antialiasing\t",
                           "opengl.antialiasing\t", "overclocking\t", "info.basic\t",
                           "opengl.filtering\t", "direct3d.filtering\t", "info.processes\t"}) {
    at = all.find(page, at);
    ASSERT_NE(at, std::string::npos) << page;
  }
  EXPECT_EQ(all.find("main."), std::string::npos);
  const std::string window = Out({"show", "main"});
  EXPECT_TRUE(window.starts_with("main\tKestrune SE Build 5\n")) << window;
  EXPECT_NE(window.find("main.group-scroll-bar\t1\n"), std::string::npos);
  EXPECT_EQ(window.find("direct3d."), std::string::npos);
}

TEST_F(CommandLineTest, PagesAndLanguagesAndStateAreOnePerLine) {
  const std::string pages = Out({"pages"});
  EXPECT_EQ(std::count(pages.begin(), pages.end(), '\n'), 16);
  EXPECT_TRUE(pages.starts_with("0\tcontrol-panel.settings\tControl Panel settings\n"));
  EXPECT_EQ(Out({"languages"}),
            "Čeština\nDeutsch\nEnglish\nEspañol\nFrançais\nΕλληνικά\nItaliano\nPolski\nРусский\n");
  std::istringstream state(Out({"state"}));
  std::string names;
  for (std::string line; std::getline(state, line);) {
    names += line.substr(0, line.find('=')) + " ";
  }
  EXPECT_EQ(names,
            "OSFamily DrvVer DirectXBuild PureKey HardwareKey VendorId DeviceId DeviceIdPrefix "
            "DeviceIdNumber DeviceInstanceKey CardVar GpuRevision DefaultCoreMHz DefaultMemoryMHz "
            "CoreMHz MemoryMHz Clock3D KeepClockValues SliAaOn AaGammaOn AaTransparencyMode "
            "CurrentAaModeText MaxSimultaneousTextures PixelShaderVersionText "
            "VertexShaderVersionText LowTextureUnits TwoCPU Mhz WriteAsBinary IsStart IsLoading "
            "ActivePage HelpSystemEnabled LastHelpTopic TranslucenceLevel Recording LanguageName ");
}

TEST_F(CommandLineTest, JsonIsOneDocumentWithWhatTheKindHas) {
  const auto json = [this](std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "--json");
    return nlohmann::json::parse(Out(arguments), nullptr, false);
  };
  const auto get =
      json({"get", "direct3d.misc.synchronization-mode", "direct3d.filtering.texture-lod-bias",
            "direct3d.antialiasing.no-antialiasing", "control-panel.settings.picture", "main"});
  ASSERT_EQ(get.size(), 5U);
  EXPECT_EQ(get[0]["kind"], "combo");
  EXPECT_EQ(get[0]["items"], nlohmann::json({"Auto", "Enabled", "Disabled"}));
  EXPECT_EQ(get[0]["position"], 1);
  EXPECT_EQ(get[1]["value"], 0);
  EXPECT_EQ(get[1]["min"], -24);
  EXPECT_EQ(get[1]["max"], 24);
  EXPECT_EQ(get[2]["picture"], "DATA/aa/1/auto.jpg");
  EXPECT_EQ(get[3]["tip"], "Open display properties");
  EXPECT_EQ(get[3]["visible"], false);
  EXPECT_EQ(get[4]["kind"], "window");
  for (const char* key : {"left", "top", "opacity"}) EXPECT_TRUE(get[4].contains(key)) << key;
  EXPECT_EQ(json({"state"})["DrvVer"], 8195);
  EXPECT_EQ(json({"pages"})[15]["id"], "info.processes");
  const auto page = json({"show", "info.basic"})[0];
  EXPECT_EQ(page["kind"], "frame");
  EXPECT_EQ(page["width"], 7560);
  EXPECT_EQ(page["height"], 4260);
  EXPECT_EQ(json({"do", "page:opengl.misc"}), nlohmann::json::array());
}

TEST_F(CommandLineTest, TheRegistryIsWorkedOnWithoutTheDriversRules) {
  const std::string key = R"(HKCU\Software\Test)";
  const std::tuple<std::string, std::vector<std::string>, std::string> values[] = {
      {"a", {"REG_DWORD", "-1"}, "REG_DWORD -1\n"},
      {"b", {"REG_DWORD", "4294967295"}, "REG_DWORD -1\n"},
      {"c", {"REG_DWORD", "0x10"}, "REG_DWORD 16\n"},
      {"d", {"REG_BINARY", "0102", "FF"}, "REG_BINARY 01 02 FF\n"},
      {"e", {"REG_SZ", "two", "words"}, "REG_SZ two words\n"},
      {"f", {"TYPE_7", "4100"}, "TYPE_7 41 00\n"},
      {"g", {"TYPE_4", "01", "02"}, "TYPE_4 01 02\n"},
      {"h", {"TYPE_4", "01020000"}, "REG_DWORD 513\n"},
      {"i", {"TYPE_1", "41"}, "TYPE_1 41\n"},
      {"j", {"TYPE_1", "4100"}, "REG_SZ A\n"},
      {"k", {"TYPE_1", "41004200"}, "TYPE_1 41 00 42 00\n"},
      {"l", {"TYPE_1"}, "TYPE_1\n"},
      {"m\x1b\r", {"REG_SZ", "a\tb\x01"}, "REG_SZ a\\tb\\x01\n"},
      {"@", {"REG_SZ", "default"}, "REG_SZ default\n"}};
  for (const auto& [name, data, shown] : values) {
    std::vector<std::string> write = {"registry", "write", key, name};
    write.insert(write.end(), data.begin(), data.end());
    EXPECT_EQ(Out(write), "") << name;
    EXPECT_EQ(Out({"registry", "read", key, name}), shown);
  }
  EXPECT_EQ(Out({"registry", "read", R"(HKEY_CURRENT_USER\software\TEST)"}), "REG_SZ default\n");
  EXPECT_EQ(Out({"registry", "write", key + R"(\Sub)", "x", "REG_SZ", "1"}), "");
  EXPECT_EQ(Out({"registry", "delete", key, "D"}), "");
  EXPECT_EQ(Run({"registry", "delete", key, "d"}).status, 1);
  EXPECT_EQ(Run({"registry", "read", key, "d"}).status, 1);
  EXPECT_EQ(Run({"registry", "list", key + "2"}).status, 1);
  EXPECT_EQ(Out({"registry", "list", key}),
            "Sub\\\n@\tREG_SZ default\na\tREG_DWORD -1\nb\tREG_DWORD -1\nc\tREG_DWORD 16\n"
            "e\tREG_SZ two words\nf\tTYPE_7 41 00\ng\tTYPE_4 01 02\nh\tREG_DWORD 513\n"
            "i\tTYPE_1 41\nj\tREG_SZ A\nk\tTYPE_1 41 00 42 00\nl\tTYPE_1\n"
            "m\\x1B\\r\tREG_SZ a\\tb\\x01\n");
  EXPECT_EQ(Run({"--trace", "registry", "delete", key, "m\x1b\r"}).err,
            "delete\tHKCU\\Software\\Test\tm\\x1B\\r\n");
  const auto json = nlohmann::json::parse(Out({"--json", "registry", "read", key, "g"}));
  EXPECT_EQ(json, nlohmann::json({{"type", "TYPE_4"}, {"data", "01 02"}}));
}

TEST_F(CommandLineTest, DataIsStoredAsItStands) {
  const std::string key = R"(HKCU\Software\Test)";
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"[a,b]"}, "[a,b]"},         {{"[]"}, "[]"},        {{"{}"}, "{}"},
      {{"[a", "b]"}, "[a b]"},      {{"-x"}, "-x"},        {{"--json"}, "--json"},
      {{"--answer="}, "--answer="}, {{"--", "x"}, "-- x"}, {{"++", "+1"}, "++ +1"},
      {{"--help"}, "--help"},       {{"list"}, "list"}};
  for (const auto& [data, stored] : cases) {
    std::vector<std::string> write = {"registry", "write", key, "[name]", "REG_SZ"};
    write.insert(write.end(), data.begin(), data.end());
    EXPECT_EQ(Out(write), "");
    EXPECT_EQ(Out({"registry", "read", key, "[name]"}), "REG_SZ " + stored + "\n");
  }
  EXPECT_EQ(Out({"--json", "registry", "write", key, "empty", "REG_SZ", ""}), "");
  EXPECT_EQ(Out({"registry", "read", key, "empty"}), "REG_SZ\n");
  const std::string typed = std::string(kMode) + "=[2x,4x]";
  EXPECT_EQ(Run({"do", typed, "?" + std::string(kMode)}).out, "[2x,4x]\n");
  ExpectRefused(2, "\"[a,b]\"", {"do", "[a,b]"});
}

TEST_F(CommandLineTest, AWrongCommandLineIsToldInOneSentence) {
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{}, "a command is missing; there are pages, show, "},
      {{"stat"}, "\"stat\"; nearest: state"},
      {{"registry"}, "a command is missing; there are registry read, "},
      {{"registry", "wrte", "HKCU\\A"}, "\"registry wrte\"; nearest: registry write"},
      {{"registry", "read"}, "KEY is missing; write \"registry read KEY [NAME]\""},
      {{"clocks", "set", "300"}, "MEMORY is missing; write \"clocks set CORE MEMORY\""},
      {{"get", "--json"}, "ID is missing; write \"get ID...\""},
      {{"show", "main", "help"}, "\"help\" is more than \"show [PAGE|WINDOW]\" takes"},
      {{"get", kLimit, "--jason"}, "\"--jason\"; nearest: --json"},
      {{"--store", "", "state"}, "--store: FILE is empty"},
      {{"--store=", "state"}, "--store: FILE is empty"},
      {{"--machine", "", "state"}, "--machine: NAME|FILE is empty"},
      {{"--program-folder", "", "state"}, "--program-folder: DIR is empty"},
      {{"state", "--answer"}, "--answer"},
      {{"--answer", "maybe", "state"}, "maybe"}};
  for (const auto& [words, part] : cases) ExpectRefused(2, part, words);
}

TEST_F(CommandLineTest, SuggestsTheNearestOfTheSameSortByTheLastPartFirst) {
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"get", "antialiasing-mode"}, kMode},
      {{"set", "prerender-limt=3"}, "direct3d.misc.prerender-limit, "},
      {{"press", "aply"}, "nearest: overclocking.apply"},
      {{"do", "page:opengl.mis"}, "nearest: opengl.misc"},
      {{"do", "page:main.oc"}, "no page \"main.oc\"; nearest: "},
      {{"do", "open:hlp"}, "nearest: help"},
      {{"do", "open:help.topic-3"}, "nearest: help\n"},
      {{"show", "overclocking.apply"}, "nearest: overclocking\n"}};
  for (const auto& [words, part] : cases) ExpectRefused(2, part, words);
}

TEST_F(CommandLineTest, AnImportIsWholeOrNotAtAll) {
  const std::string good = folder.Write(
      "good.reg", "REGEDIT4\n\n[HKEY_CURRENT_USER\\Software\\T]\n\"a\"=dword:0000000a\n");
  const std::string bad = folder.Write(
      "bad.reg", "REGEDIT4\n\n[HKEY_CURRENT_USER\\Software\\T]\n\"a\"=dword:00000001\nnonsense\n");
  EXPECT_EQ(Out({"registry", "import", good}), "1 keys, 1 values\n");
  const Outcome outcome = Run({"registry", "import", bad});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_NE(outcome.err.find("bad.reg:5:"), std::string::npos) << outcome.err;
  EXPECT_EQ(Out({"registry", "read", R"(HKCU\Software\T)", "a"}), "REG_DWORD 10\n");
  EXPECT_EQ(Run({"registry", "import", folder / "none.reg"}).status, 3);
}

TEST_F(CommandLineTest, AnImportIsTracedWhenItIsKeptAndFailsInOneSentence) {
  const std::string text = "REGEDIT4\n[HKEY_CURRENT_USER\\Software\\T]\n\"a\"=\"1\"\n";
  const std::string cut = folder.Write("cut.reg", text + "@=\"");
  const Outcome outcome = Run({"--trace", "registry", "import", cut});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "kestrunectl: " + cut + ":4: the closing quote is missing\n");
  EXPECT_EQ(Run({"registry", "list", R"(HKCU\Software\T)"}).status, 1);
  const Outcome kept = Run({"--trace", "registry", "import", folder.Write("kept.reg", text)});
  EXPECT_EQ(kept.err, "write\tHKCU\\Software\\T\ta\tREG_SZ 1\n");
}

TEST_F(CommandLineTest, ADeletedKeyIsTracedValueByValue) {
  const std::string key = "[HKEY_CURRENT_USER\\Software\\T";
  const std::string made = folder.Write(
      "made.reg", "REGEDIT4\n" + key + "\\b]\n\"z\"=\"\"\n@=\"\"\n" + key + "]\n\"a\"=\"\"\n");
  EXPECT_EQ(Out({"registry", "import", made}), "2 keys, 3 values\n");
  const std::string deleted = folder.Write("deleted.reg", "REGEDIT4\n[-" + key.substr(1) + "]\n");
  const Outcome outcome = Run({"--trace", "registry", "import", deleted});
  EXPECT_EQ(outcome.out, "1 keys, 0 values\n");
  EXPECT_EQ(outcome.err,
            "delete\tHKCU\\Software\\T\ta\ndelete\tHKCU\\Software\\T\\b\t@\n"
            "delete\tHKCU\\Software\\T\\b\tz\n");
  EXPECT_EQ(Run({"registry", "list", R"(HKCU\Software\T)"}).status, 1);
}

TEST_F(CommandLineTest, WhatDescribesTheHardwareIsNeverChanged) {
  const std::string key = R"(HKLM\HARDWARE\DESCRIPTION\System\CentralProcessor\0)";
  ExpectRefused(3, "describes the machine's hardware",
                {"registry", "write", key, "a", "REG_SZ", "b"});
  ExpectRefused(3, "describes the machine's hardware",
                {"registry", "write", R"(HKLM\hardware\description\x)", "a", "REG_SZ", "b"});
  ExpectRefused(3, "describes the machine's hardware", {"registry", "delete", key, "~MHz"});
  const std::string file =
      folder.Write("a.reg", "REGEDIT4\n[HKEY_LOCAL_MACHINE" + key.substr(4) +
                                "]\n\"~MHz\"=-\n\"a\"=\"b\"\n"
                                "[HKEY_CURRENT_USER\\Software\\T]\n\"a\"=\"1\"\n");
  const std::string before = Out({"registry", "list", key});
  EXPECT_EQ(Out({"--json", "registry", "import", file}), "{\n  \"keys\": 1,\n  \"values\": 1\n}\n");
  EXPECT_EQ(Out({"registry", "list", key}), before);
  EXPECT_EQ(Out({"registry", "export", "--regedit4", key}), "REGEDIT4\r\n\r\n");
}

TEST_F(CommandLineTest, AnExportReadsBackWhereverItIsPut) {
  const std::string key = R"(HKCU\Software\T)";
  Out({"registry", "write", key, "\u00E4", "REG_SZ", "\u20AC"});
  Out({"registry", "write", key + "\\b", "@", "TYPE_7", "61 00 00"});
  const std::string text =
      "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\Software\\T]\r\n"
      "\"\u00E4\"=\"\u20AC\"\r\n\r\n[HKEY_CURRENT_USER\\Software\\T\\b]\r\n"
      "@=hex(7):61,00,00,00,00,00\r\n\r\n";
  EXPECT_EQ(Out({"registry", "export", key}), text);
  const std::string wide = folder / "wide.reg";
  const std::string narrow = folder / "narrow.reg";
  EXPECT_EQ(Out({"registry", "export", key, wide}), "");
  EXPECT_EQ(Out({"registry", "export", key, "--regedit4", narrow}), "");
  EXPECT_TRUE(platform::ReadAll(wide).starts_with(std::string_view("\xFF\xFEW\0i\0", 6)));
  EXPECT_NE(platform::ReadAll(narrow).find("\"\xE4\"=\"\x80\"\r\n"), std::string::npos);
  const std::string erase = folder.Write("x.reg", "REGEDIT4\n[-HKEY_CURRENT_USER\\Software\\T]\n");
  for (const std::string& file : {wide, narrow, folder.Write("utf8.reg", text)}) {
    Out({"registry", "import", erase});
    EXPECT_EQ(Out({"registry", "import", file}), "2 keys, 2 values\n");
    EXPECT_EQ(Out({"registry", "export", key}), text);
  }
  EXPECT_EQ(Run({"registry", "export", R"(HKCU\Software\None)", wide}).status, 1);
  EXPECT_EQ(Out({"--dry-run", "registry", "export", key, folder / "dry.reg"}), "");
  EXPECT_FALSE(std::filesystem::exists(folder / "dry.reg"));
  const Json document = Json::parse(Out({"--json", "registry", "export", "--regedit4", key}));
  EXPECT_NE(document.get<std::string>().find("\"\u00E4\"=\"\u20AC\"\r\n"), std::string::npos);
}

TEST_F(CommandLineTest, AnExportTakesThePlaceOfAFileWhenItIsWhole) {
  namespace fs = std::filesystem;
  const std::string key = R"(HKCU\Software\T)";
  Out({"registry", "write", key, "a", "REG_SZ", "b"});
  const std::string file = folder.Write("out/real.reg", "old");
  const auto rights = fs::perms::owner_read | fs::perms::owner_write;
  fs::permissions(file, rights);
  fs::create_symlink("real.reg", folder / "out/link.reg");
  fs::create_symlink("new.reg", folder / "out/dangling.reg");
  Out({"registry", "export", key, folder / "out/link.reg"});
  Out({"registry", "export", key, folder / "out/dangling.reg"});
  Out({"registry", "export", key, folder / ("out/" + std::string(255, 'x'))});
  EXPECT_EQ(fs::status(file).permissions(), rights);
  const std::string text = platform::ReadAll(file);
  EXPECT_TRUE(text.starts_with("\xFF\xFE"));
  EXPECT_EQ(platform::ReadAll(folder / "out/new.reg"), text);
  EXPECT_TRUE(fs::is_symlink(folder / "out/link.reg"));
  EXPECT_TRUE(fs::is_symlink(folder / "out/dangling.reg"));

  fs::create_symlink("loop.reg", folder / "out/loop.reg");
  const std::pair<std::string, std::string> refused[] = {
      {folder / "out", "Is a directory"},
      {folder / "none/a.reg", "No such file or directory"},
      {folder / "out/loop.reg", "Too many levels of symbolic links"},
      {"/dev/full", "No space left on device"}};
  for (const auto& [path, reason] : refused) {
    ExpectRefused(3, path + " can't be written: " + reason + ".",
                  {"registry", "export", key, path});
  }
  std::set<std::string> left;
  for (const auto& entry : fs::directory_iterator(folder / "out")) {
    left.insert(entry.path().filename().string());
  }
  EXPECT_EQ(left, (std::set<std::string>{"real.reg", "link.reg", "new.reg", "dangling.reg",
                                         "loop.reg", std::string(255, 'x')}));
}

TEST_F(CommandLineTest, TheProcessorsAreListedWithTheLevelsAboveThem) {
  EXPECT_EQ(Out({"registry", "list", R"(HKLM\HARDWARE)"}), "DESCRIPTION\\\nDEVICEMAP\\\n");
  const std::string processor = Out(
      {"registry", "list", R"(HKEY_LOCAL_MACHINE\hardware\description\system\centralprocessor\0)"});
  EXPECT_NE(processor.find("~MHz\tREG_DWORD "), std::string::npos) << processor;
}

TEST_F(CommandLineTest, AStoreThatIsNoneIsRefusedUntouched) {
  const std::string file = folder.Write("winxp-geforce7800.store", "this is no store");
  const Outcome outcome = Run({"get", kLimit});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_NE(outcome.err.find(file), std::string::npos) << outcome.err;
  EXPECT_EQ(platform::ReadAll(file), "this is no store");
}

TEST_F(CommandLineTest, WhatStartUpStoresWaitsForNobodyAndIsMadeUpFor) {
  const std::vector<std::string> version = {"registry", "read", R"(HKCU\Software\Kestrune)",
                                            "Version"};
  Out({"get", kMode});
  Out({"registry", "delete", R"(HKCU\Software\Kestrune)", "Version"});
  {
    const auto other =
        platform::portable::Store::Open({.path = folder / "winxp-geforce7800.store"});
    ASSERT_TRUE(other.Ok());
    const platform::portable::Transaction held(*other.Value());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Out({"get", kMode}), "Auto\n");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    EXPECT_EQ(Run(version).status, 1);
  }
  EXPECT_EQ(Out({"get", kMode}), "Auto\n");
  EXPECT_EQ(Out(version), "REG_DWORD 353\n");
}

TEST_F(CommandLineTest, AMachineWithAFaultIsRefusedWithItsPlace) {
  const std::string file = folder.Write("broken.toml", "name = \"x\"\nos = = 1\n");
  std::ostringstream out;
  std::ostringstream err;
  EXPECT_EQ(
      RunCommandLine({"--machine", file, "--store", folder / "s", "state"}, machines, {out, err}),
      3);
  EXPECT_NE(err.str().find("broken.toml:2"), std::string::npos) << err.str();
}

TEST_F(CommandLineTest, MessagesArePrintedAndAnswered) {
  const Outcome outcome = Run({"set", "main.language=English"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "message: Please restart Kestrune for change language.\n");
}

TEST_F(CommandLineTest, HelpAndVersionEndWellAtEveryLevel) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"--help"}, {"set", "--help"}, {"registry", "write", "--help"}}) {
    const Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.out, "");
  }
  EXPECT_NE(Run({"--version"}).out.find("3.5.3"), std::string::npos);
}

TEST(CommandsTest, EachCommandCanBeAskedForHelp) {
  platform::portable::PortableMachines machines;
  for (const Command& command : Commands()) {
    std::istringstream words{std::string(command.name)};
    std::vector<std::string> arguments;
    for (std::string word; words >> word;) arguments.push_back(word);
    arguments.emplace_back("--help");
    std::ostringstream out;
    EXPECT_EQ(RunCommandLine(arguments, machines, {out, out}), 0) << command.name;
    EXPECT_TRUE(out.str().starts_with(std::string(command.help))) << out.str();
  }
}

TEST(KnownIdsTest, AreThoseOfTheProgram) {
  test::FakeMachine machine;
  const test::Driven driven(machine);
  const KnownIds ids;
  for (const forms::Form* form : driven.program.Forms()) {
    for (const auto& control : form->Controls()) {
      EXPECT_TRUE(ids.Check({.kind = Step::Kind::kPress, .id = control->Id()})) << control->Id();
    }
  }
}

TEST(StepTest, IsReadFromItsText) {
  struct Case {
    const char* text;
    Step::Kind kind;
    const char* id;
    const char* value;
  };
  const Case cases[] = {{"a.b", Step::Kind::kPress, "a.b", ""},
                        {"a=b=c", Step::Kind::kSet, "a", "b=c"},
                        {"a=", Step::Kind::kSet, "a", ""},
                        {"?a", Step::Kind::kPrint, "a", ""},
                        {"~ a", Step::Kind::kHover, "a", ""},
                        {"open:x", Step::Kind::kOpen, "x", ""},
                        {"close:main", Step::Kind::kClose, "main", ""},
                        {"page:p", Step::Kind::kPage, "p", ""}};
  for (const Case& each : cases) {
    const std::optional<Step> step = ParseStep(each.text);
    ASSERT_TRUE(step) << each.text;
    EXPECT_TRUE(step->kind == each.kind && step->id == each.id && step->value == each.value)
        << each.text;
  }
  EXPECT_EQ(ParseStep("wait:250")->wait_ms, 250);
}

}  // namespace
}  // namespace kestrune::cli
