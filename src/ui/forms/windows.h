#pragma once

#include <functional>
#include <map>
#include <vector>

#include "controls/gate.h"
#include "lang/language.h"
#include "ui/forms/form.h"

namespace kestrune::forms {

/// Opens and closes the program's windows. Opening doesn't hold anything up: a modal window takes
/// the acts from all others for as long as it is open, whoever owns it.
class Windows {
 public:
  Windows(const lang::LangTable& lang_text, controls::Gate& gate)
      : LangText(lang_text), gate_(gate) {}
  Windows(const Windows&) = delete;
  Windows& operator=(const Windows&) = delete;

  /// Makes a form's window known, its owner's before it. The form must outlive this.
  void Add(const Form& form);
  /// What a window does when it is loaded, from its design state.
  void OnLoad(const controls::Window& window, std::function<void()> load);

  /// Puts a window in its design state and runs its load procedure, without showing it.
  void Load(controls::Window& window);
  /// Shows a loaded window.
  void Show(controls::Window& window);
  /// Loads and shows a window, unless its load procedure closes it; one that is open comes to the
  /// front.
  void Open(controls::Window& window);
  void Open(std::string_view id);
  /// Closes a window and those that it owns; the main window closes all.
  void Close(controls::Window& window);

  /// The row of a window; null for an unknown id.
  const WindowRow* RowOf(std::string_view id) const;

 private:
  struct Entry {
    const Form* form;
    std::function<void()> load;
  };

  void TellGate() { gate_.SetModal(modal_.empty() ? nullptr : modal_.back()); }
  const Entry& EntryOf(const controls::Window& window) const;

  const lang::LangTable& LangText;
  controls::Gate& gate_;
  std::map<std::string_view, Entry> entries_;   ///< by id
  std::vector<const controls::Window*> modal_;  ///< open ones, the latest last
  const controls::Window* loading_ = nullptr;   ///< the one that is being opened
};

}  // namespace kestrune::forms
