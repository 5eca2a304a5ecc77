#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/system_api.h"
#include "ui/forms/control_row.h"
#include "ui/forms/shared.h"

namespace kestrune::forms {

extern const std::span<const ControlRow> kProcessControls;

/// The page that lists the running processes when it is asked to, with what there is to say of the
/// chosen one. Lines beyond those of its table have a name alone.
class ProcessesPage {
 public:
  explicit ProcessesPage(const Shared& shared);
  ProcessesPage(const ProcessesPage&) = delete;
  ProcessesPage& operator=(const ProcessesPage&) = delete;

  /// The processes of the first lines, in their order.
  const std::vector<platform::ProcessRecord>& Table() const { return table_; }

 private:
  void Refresh();
  /// Of the chosen line; none where nothing is chosen.
  void ShowDetails();
  void ShowPriority(int priority);
  std::string ParentText(int parent) const;

  platform::SystemApi& system_;
  const lang::LangTable& LangText;
  const controls::ControlSet& controls_;
  controls::ListBox& list_;
  controls::Bar& bar_;
  std::vector<platform::ProcessRecord> table_;
};

}  // namespace kestrune::forms
