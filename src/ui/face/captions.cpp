#include "ui/face/captions.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "platform/case_fold.h"
#include "platform/utf8.h"
#include "ui/face/builder.h"
#include "ui/forms/form.h"

namespace kestrune::face {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

struct Range {
  char32_t first;
  char32_t last;
};

/// Characters beyond ASCII that are signs; everything else there counts as a letter.
constexpr Range kSigns[] = {
    {0x80, 0xBF}, {0xD7, 0xD7}, {0xF7, 0xF7}, {0x2000, 0x2BFF}, {0x3000, 0x303F}};

bool IsLetterOrDigit(char32_t c) {
  if (c < 0x80) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
  }
  return c != platform::kNoCharacter &&
         std::none_of(std::begin(kSigns), std::end(kSigns),
                      [c](const Range& each) { return each.first <= c && c <= each.last; });
}

/// Where the first letter or digit stands that isn't taken yet; it is taken then. The text's size
/// when there is none.
std::size_t TakeLetter(std::string_view caption, std::set<std::string>& taken) {
  std::size_t next = 0;
  while (next < caption.size()) {
    const std::size_t at = next;
    const char32_t letter = platform::NextCharacter(caption, next);
    if (!IsLetterOrDigit(letter)) continue;
    if (taken.insert(platform::FoldCase(caption.substr(at, next - at))).second) return at;
  }
  return caption.size();
}

/// A caption up to its colon, behind which the value stands.
std::string_view NamePart(std::string_view caption) { return caption.substr(0, caption.find(':')); }

constexpr std::size_t kNowhere = std::string_view::npos;

std::string Marked(std::string_view caption, std::size_t at) {
  if (at >= caption.size()) return WithoutMnemonic(caption);
  return WithoutMnemonic(caption.substr(0, at)) + "&" + WithoutMnemonic(caption.substr(at));
}

/// Keys of the toolbar, and labels that name something that takes the focus.
bool IsReachedByLetter(const forms::Form& form, const controls::Control& control) {
  if (dynamic_cast<const controls::ToolKey*>(&control) != nullptr) {
    return dynamic_cast<const controls::ToolKey*>(control.Parent()) == nullptr;
  }
  const auto* label = dynamic_cast<const controls::Label*>(&control);
  return label != nullptr && label->Names() != nullptr &&
         TakesFocus(*form.Find(label->Names()->Id()));
}

/// What of the window's own parts a control stands in; the window itself for such a part.
const controls::Control& PartOf(const controls::Control& control) {
  const controls::Control* part = &control;
  while (part->Parent() != nullptr && part->Parent()->Parent() != nullptr) part = part->Parent();
  return part == &control ? control.Root() : *part;
}

/// Whether a control of this kind shows a caption, and not one that code alone makes.
bool HasCaption(const forms::Form& form, const controls::Control& control) {
  using forms::Kind;
  constexpr Kind kWithCaption[] = {Kind::kCheck,   Kind::kOption, Kind::kLabel,
                                   Kind::kHeading, Kind::kLink,   Kind::kEdge,
                                   Kind::kButton,  Kind::kFrame,  Kind::kKey};
  const auto& controls = form.Controls();
  const auto found = std::find_if(controls.begin(), controls.end(),
                                  [&](const auto& each) { return each.get() == &control; });
  const forms::ControlRow& row = form.Rows()[static_cast<std::size_t>(found - controls.begin())];
  return row.text != forms::kFilledText &&
         std::find(std::begin(kWithCaption), std::end(kWithCaption), row.kind) !=
             std::end(kWithCaption);
}

}  // namespace

std::string ReadableName(std::string_view id) {
  std::string name(id.substr(id.rfind('.') + 1));
  for (const std::string_view ending : {"-label", "-frame"}) {
    if (name.ends_with(ending)) name.resize(name.size() - ending.size());
  }
  std::replace(name.begin(), name.end(), '-', ' ');
  if (!name.empty() && name[0] >= 'a' && name[0] <= 'z') name[0] = static_cast<char>(name[0] - 32);
  return name;
}

controls::Control* LabelOf(const forms::Form& form, const controls::Control& control) {
  for (const auto& each : form.Controls()) {
    if (each->Names() == &control) return each.get();
  }
  return nullptr;
}

std::string SpokenName(const controls::Control& control, const controls::Control* label) {
  if (!control.Caption().empty()) return control.Caption();
  std::string name = label == nullptr ? std::string() : Trimmed(NamePart(label->Caption()));
  if (!name.empty()) return name;
  return control.ToolTip().empty() ? ReadableName(control.Id()) : control.ToolTip();
}

std::string DrawnCaption(const forms::Form& form, const controls::Control& control) {
  if (!control.Caption().empty() || !HasCaption(form, control)) return control.Caption();
  return ReadableName(control.Id());
}

std::string TipOf(const forms::Form& form, const controls::Control& control, bool is_cut) {
  if (!control.ToolTip().empty() || !is_cut) return control.ToolTip();
  const std::string caption = DrawnCaption(form, control);
  return caption.empty() ? control.ValueText() : caption;
}

std::string WithoutMnemonic(std::string_view caption) {
  std::string result;
  for (const char c : caption) result.append(c == '&' ? 2 : 1, c);
  return result;
}

std::vector<std::string> WithMnemonics(const std::vector<std::string>& captions) {
  std::set<std::string> taken;
  std::vector<std::string> result;
  result.reserve(captions.size());
  for (const std::string& caption : captions) {
    result.push_back(Marked(caption, TakeLetter(caption, taken)));
  }
  return result;
}

std::string CaptionWithMnemonic(const forms::Form& form, const controls::Control& control) {
  std::set<std::string> taken;
  // What stands on the window itself is seen on each page, so it chooses first.
  for (const controls::Control* part : {&control.Root(), &PartOf(control)}) {
    for (const auto& each : form.Controls()) {
      if (&PartOf(*each) != part || !IsReachedByLetter(form, *each)) continue;
      const std::string caption = DrawnCaption(form, *each);
      const std::string_view name = NamePart(caption);
      const std::size_t at = TakeLetter(name, taken);
      if (each.get() != &control) continue;
      return Marked(caption, at < name.size() ? at : kNowhere);
    }
  }
  return WithoutMnemonic(DrawnCaption(form, control));
}

}  // namespace kestrune::face
