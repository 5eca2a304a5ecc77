#pragma once

#include "d3d/direct3d_state.h"
#include "detect/card_data.h"
#include "settings/binding.h"

namespace kestrune::ogl {

/// Fills the lists of the Direct3D and OpenGL pages with what the card and the driver can do. A
/// list position means the same value everywhere.
class OptionLists {
 public:
  /// The bindings are those of both interfaces.
  OptionLists(detect::CardData& cards, const settings::Hardware& hardware,
              const d3d::Direct3DState& direct3d, const lang::LangTable& lang_text,
              std::span<const settings::Binding> direct3d_bindings,
              std::span<const settings::Binding> opengl_bindings)
      : cards_(cards),
        hardware_(hardware),
        direct3d_(direct3d),
        LangText(lang_text),
        bindings_{direct3d_bindings, opengl_bindings} {}

  /// Fills every list; the fixed ones only while IsStart is 1.
  void FillOptionLists();
  /// Rebuilds the lists that depend on the card and on SliAaOn, with the texts that they showed,
  /// and enables what depends on the card alone.
  void FillCapabilityLists();

 private:
  void FillFixed(const settings::Binding& binding);
  void FillModes(const settings::Binding& binding);
  void FillAnisotropy(const settings::Binding& binding);

  detect::CardData& cards_;
  const settings::Hardware& hardware_;
  const d3d::Direct3DState& direct3d_;
  const lang::LangTable& LangText;
  std::span<const settings::Binding> bindings_[2];
};

}  // namespace kestrune::ogl
