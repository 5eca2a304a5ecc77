#include "ui/forms/windows.h"

#include <utility>

namespace kestrune::forms {

void Windows::Add(const Form& form) {
  controls::Window& window = form.TheWindow();
  entries_[window.Id()] = {&form, {}};
  window.on_close = [this, &window] { Close(window); };
  const auto owner = entries_.find(form.WindowsRow().owner);
  if (owner != entries_.end()) window.SetOwner(&owner->second.form->TheWindow());
}

void Windows::OnLoad(const controls::Window& window, std::function<void()> load) {
  entries_.at(window.Id()).load = std::move(load);
}

const Windows::Entry& Windows::EntryOf(const controls::Window& window) const {
  return entries_.at(window.Id());
}

const WindowRow* Windows::RowOf(std::string_view id) const {
  const auto found = entries_.find(id);
  return found == entries_.end() ? nullptr : &found->second.form->WindowsRow();
}

void Windows::Load(controls::Window& window) {
  const Entry& entry = EntryOf(window);
  entry.form->Reset(LangText);
  if (entry.load) entry.load();
}

void Windows::Show(controls::Window& window) {
  if (window.Visible()) return;
  if (window.Modal()) modal_.push_back(&window);
  TellGate();
  window.SetVisible(true);
}

void Windows::Open(controls::Window& window) {
  if (window.Visible()) return;
  loading_ = &window;
  Load(window);
  if (std::exchange(loading_, nullptr) == &window) Show(window);
}

void Windows::Open(std::string_view id) { Open(entries_.at(id).form->TheWindow()); }

void Windows::Close(controls::Window& window) {
  if (loading_ == &window) loading_ = nullptr;
  if (!window.Visible()) return;
  for (const auto& [id, entry] : entries_) {
    if (entry.form->TheWindow().Owner() == &window) Close(entry.form->TheWindow());
  }
  std::erase(modal_, &window);
  TellGate();
  window.SetVisible(false);
}

}  // namespace kestrune::forms
