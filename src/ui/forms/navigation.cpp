#include "ui/forms/navigation.h"

#include "ui/forms/page_groups.h"

namespace kestrune::forms {

Navigation::Navigation(const MainForm& form, const Shared& shared, PageGroups& pages)
    : form_(form),
      state_(shared.state),
      registry_(shared.registry),
      pages_(pages),
      bar_(form.Get<controls::Slider>("main.group-scroll-bar")) {
  bar_.on_change = [this] { GroupScrolled(); };
}

void Navigation::ShowPage() {
  for (int page = 0; page < PageCount(); ++page) {
    form_.Page(page).SetVisible(page == state_.ActivePage);
  }
  if (!IsPage(state_.ActivePage)) return;
  const PageRow& row = kPages[static_cast<std::size_t>(state_.ActivePage)];
  // A page may put aside for a moment what is stored, so what it changes is no passing matter.
  const platform::UnaskedScope unasked = registry_.Unasked(platform::HeldUp::kWaits);
  if (row.shown != nullptr) row.shown(pages_);
  if (row.group != Group::kNone) {
    bar_.SetRange(1, SizeOf(row.group));
    bar_.Show(row.place);
  }
  bar_.SetVisible(row.group != Group::kNone);
}

int Navigation::PageBeside(int step) const {
  for (int page = state_.ActivePage + step; IsPage(page); page += step) {
    if (form_.WayTo(page) != nullptr) return page;
  }
  return state_.ActivePage;
}

void Navigation::ReadAgain() {
  const core::FlagScope starting(state_.IsStart);
  const int write_as_binary = registry_.WriteAsBinary;
  pages_.driver.Read();
  pages_.control_panel.ReadOptions();
  registry_.WriteAsBinary = write_as_binary;
}

void Navigation::GroupScrolled() {
  const Group group = kPages[static_cast<std::size_t>(state_.ActivePage)].group;
  for (int page = 0; page < PageCount(); ++page) {
    const PageRow& row = kPages[static_cast<std::size_t>(page)];
    if (row.group != group || row.place != bar_.Value()) continue;
    state_.ActivePage = page;
    ShowPage();
    return;
  }
}

}  // namespace kestrune::forms
