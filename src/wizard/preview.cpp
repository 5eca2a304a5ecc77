#include "wizard/preview.h"

#include <algorithm>

#include "ogl/opengl_settings.h"

namespace kestrune::wizard {

namespace texts = lang::texts;

namespace {

using settings::CodeMatch;
using settings::Special;
using settings::Writer;

/// The number that the oldest drivers store for a code; nothing for a code that they don't take.
std::optional<std::int32_t> LegacyNumber(int code) {
  const auto found = std::find_if(d3d::kLegacyRows.begin(), d3d::kLegacyRows.end(),
                                  [code](const d3d::LegacyRow& row) { return row.code == code; });
  return found == d3d::kLegacyRows.end() ? std::nullopt : std::optional(found->number);
}

std::string ChoiceText(const CodeMatch& match, const d3d::Direct3DContext& context) {
  const settings::Setting& row = *match.row;
  const settings::Choice& choice = *match.choice;
  if (row.special == Special::kMode && context.state.SliAaOn == 1 && !choice.also.empty()) {
    return std::string(choice.also);
  }
  // The switch that older drivers want beside the mode turns antialiasing off with this one.
  if (row.special == Special::kOldMode && choice.number == row.not_set) {
    return context.lang_text[texts::kDisabled];
  }
  return choice.text.In(context.lang_text);
}

std::string NumberText(const CodeMatch& match, std::int32_t number,
                       const lang::LangTable& lang_text) {
  if (match.row->special != Special::kTrilinearQuality) return std::to_string(number);
  return ogl::TrilinearCaption(number, lang_text).substr(match.row->prefix.In(lang_text).size());
}

}  // namespace

std::optional<ShownValue> ShownAfter(const WriterCall& call, const d3d::Direct3DContext& context) {
  const bool is_direct3d = call.writer == Writer::kDirect3D;
  const int driver = context.Driver();
  const CodeMatch match = FindCode(is_direct3d ? d3d::kDirect3DSettings : ogl::kOpenGLSettings,
                                   call.writer, call.code, call.argument, driver);
  // Some codes store the newest value even where the driver keeps an older one.
  if (!match || driver < match.row->from_driver) return std::nullopt;
  std::int32_t number = call.argument;
  if (is_direct3d && context.IsLegacyDriver()) {
    const std::optional<std::int32_t> stored = LegacyNumber(call.code);
    if (!stored) return std::nullopt;
    number = *stored;
  }
  if (match.choice != nullptr) return ShownValue{match.row->id, "", ChoiceText(match, context)};
  return ShownValue{match.row->id, match.row->prefix.In(context.lang_text),
                    NumberText(match, number, context.lang_text)};
}

}  // namespace kestrune::wizard
