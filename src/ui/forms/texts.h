#pragma once

#include <span>
#include <string_view>

#include "lang/language.h"
#include "ui/forms/form.h"

namespace kestrune::forms {

/// Where an interface text goes on a control.
enum class TextPlace { kCaption, kToolTip };

struct TextRow {
  std::string_view id;
  TextPlace place;
  int number;
};

/// Which interface text stands where on the main window.
extern const std::span<const TextRow> kMainTexts;

/// Puts the interface texts on the controls of the main window. An empty text empties its caption.
void ApplyLanguage(const Form& form, const lang::LangTable& lang_text);

}  // namespace kestrune::forms
