#pragma once

#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "fake_machine.h"
#include "settings/setting.h"

namespace kestrune::catalogue {

/// The listing, section by section: a line for each thing, with what came of it.
class Listing {
 public:
  void Comment(const std::string& text) { text_ << "# " << text << "\n"; }
  void Section(const std::string& title) { text_ << "\n== " << title << "\n"; }
  void Head(std::string_view title) { text_ << title << "\n"; }
  void Line(std::string_view what, const std::string& result);
  /// The same with a result for each of some names, told where it differs from the one before.
  /// An empty result is left out.
  void Line(std::string_view what, const std::vector<std::string>& results,
            const std::vector<std::string>& names);
  std::string Text() const { return text_.str(); }

 private:
  std::ostringstream text_;
};

/// A started program on each kind of machine that differs from the one before in something that
/// the program knows: system, oldest layout, and the releases on both sides of each limit.
class Machines {
 public:
  using Act = std::function<std::string(test::FakeMachine&, test::Driven&)>;

  /// `prepare` is what each machine's store and files hold before the program starts.
  explicit Machines(const std::function<void(test::FakeMachine&)>& prepare = {});

  /// What an act gives on each machine.
  std::vector<std::string> Each(const Act& act);
  static const std::vector<test::MachineKind>& Kinds();
  /// System and release of each kind.
  static const std::vector<std::string>& Names();

 private:
  struct Started {
    test::FakeMachine machine;
    test::Driven driven;
    Started(const test::MachineKind& kind, const std::function<void(test::FakeMachine&)>& prepare);
  };
  std::vector<std::unique_ptr<Started>> started_;
};

/// Where a row's value stands on a machine, and the name that it has there.
std::pair<std::string, std::string> AddressOf(const test::FakeMachine& machine,
                                              const settings::Setting& row);

/// The sections. Those of the settings tell which ids they have listed with some effect.
void ListPages(Listing& listing);
void ListKeys(Listing& listing);
void ListHelp(Listing& listing);
void ListLists(Listing& listing);
void ListEnabled(Listing& listing);
void ListCardTables(Listing& listing);
std::set<std::string_view> ListReads(Listing& listing);
void ListFlags(Listing& listing);
void ListOldEmulation(Listing& listing);
std::set<std::string_view> ListUses(Listing& listing);
void ListTyped(Listing& listing);
void ListCodes(Listing& listing);
void ListQualityFlags(Listing& listing);

}  // namespace kestrune::catalogue
