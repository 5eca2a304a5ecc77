#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/controls.h"

namespace kestrune::forms {
class Form;
}

namespace kestrune::face {

/// The last part of an id in words: "Core clock" for "overclocking.core-clock-label".
std::string ReadableName(std::string_view id);

/// The label, frame or box that names a control, or null.
controls::Control* LabelOf(const forms::Form& form, const controls::Control& control);

/// What a control is called where nothing but words will do, as for a screen reader: its caption,
/// else that of its label (null for none), else its tip, else its id in words. Never empty.
std::string SpokenName(const controls::Control& control, const controls::Control* label);

/// The caption as it is drawn: the control's own, else, where the chosen language lacks the text of
/// it, its id in words. Empty for what has no caption.
std::string DrawnCaption(const forms::Form& form, const controls::Control& control);

/// The tip of a control: its own, else all of what is cut off. Empty for none.
std::string TipOf(const forms::Form& form, const controls::Control& control, bool is_cut);

/// A caption that a toolkit may look for mnemonics in, with nothing in it taken for one.
std::string WithoutMnemonic(std::string_view caption);

/// A caption for a toolkit that looks for mnemonics: with a letter for what Alt and that letter
/// reach, which are the keys of the toolbar and the labels of controls on the same page. No two of
/// these have the same. Others get none.
std::string CaptionWithMnemonic(const forms::Form& form, const controls::Control& control);

/// Captions with a mnemonic each: the first letter or digit that no caption before it has taken.
/// One whose letters are all taken gets none.
std::vector<std::string> WithMnemonics(const std::vector<std::string>& captions);

}  // namespace kestrune::face
