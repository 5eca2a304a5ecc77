#pragma once

#include "clocks/clocks.h"
#include "controls/control_set.h"
#include "controls/focus.h"
#include "controls/timer.h"
#include "core/program_state.h"
#include "core/registry.h"
#include "detect/adapter.h"
#include "detect/card_data.h"
#include "detect/versions.h"
#include "lang/language.h"
#include "platform/services.h"
#include "profiles/profiles.h"
#include "settings/hardware.h"

namespace kestrune::forms {

class Windows;
struct PageGroups;

/// What the parts of one program share. The program owns all of it and it outlives the parts; it
/// holds no state of its own.
struct Shared {
  const platform::Services& services;
  core::ProgramState& state;
  core::basRegistry& registry;
  controls::Scheduler& timers;
  const controls::Focus& focus;
  const controls::ControlSet& controls;
  Windows& windows;
  lang::Language& language;
  const detect::VersionState& versions;
  detect::AdapterState& adapter;
  detect::CardData& cards;
  const settings::Hardware& hardware;
  clocks::Clocks& clocks;
  profiles::Profiles& profiles;
  /// Made after this, for whatever is made after them; null where a program has no pages.
  PageGroups* pages = nullptr;

  const lang::LangTable& LangText() const { return language.LangText; }
};

}  // namespace kestrune::forms
