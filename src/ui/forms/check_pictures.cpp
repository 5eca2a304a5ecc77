#include "ui/forms/check_pictures.h"

#include <algorithm>
#include <set>
#include <utility>

#include "d3d/preview.h"
#include "platform/case_fold.h"
#include "ui/forms/control_panel_pages.h"

namespace kestrune::forms {

namespace {

std::string Told(const platform::PictureSize& size) {
  return std::to_string(size.width) + " x " + std::to_string(size.height);
}

/// Whether a folder is the one of a frame, wherever its program folder stands.
bool Holds(const std::string& folder, const PictureFrame& frame) {
  constexpr std::string_view kData = "DATA";
  const std::string_view below = frame.folder.substr(kData.size());
  return platform::FoldCase(folder + "/").ends_with(platform::FoldCase(below));
}

bool Has(const PictureFrame& frame, std::string_view name) {
  return std::any_of(frame.names.begin(), frame.names.end(), [name](const std::string& each) {
    return platform::SameWithoutCase(each, name);
  });
}

/// The folder and the name of a file.
std::pair<std::string, std::string> Split(const std::string& file) {
  const std::size_t slash = file.rfind('/');
  if (slash == file.npos) return {".", file};
  return {file.substr(0, slash), file.substr(slash + 1)};
}

}  // namespace

std::vector<PictureFrame> PictureFrames() {
  std::vector<PictureFrame> frames;
  for (const std::string_view folder : d3d::kPreviewFolders) {
    frames.push_back({folder, d3d::PreviewPictures()});
  }
  frames.push_back({kRevealedFolder, RevealedPictures()});
  frames.push_back({kHelpFolder, {std::begin(kLodPictures), std::end(kLodPictures)}});
  frames.push_back({kHelpFolder, {std::string(kMipmapPicture)}});
  frames.push_back({kHelpFolder, {std::string(kPanelPicture)}});
  return frames;
}

const PictureChecks::Size& PictureChecks::SizeOf(const std::string& file) {
  if (const auto known = sizes_.find(file); known != sizes_.end()) return known->second;
  const auto bytes = read_(file);
  const auto size = bytes ? platform::SizeOfPicture(bytes.Value()) : std::nullopt;
  Size result = size ? Size(*size)
                     : Size(platform::Fail(bytes ? "it is no whole picture"
                                                 : "it can't be read: " + bytes.Reason().reason));
  return sizes_.emplace(file, std::move(result)).first->second;
}

/// The frame that asks for a picture by its name, else the only one of its folder.
const PictureFrame* PictureChecks::FrameOf(const std::string& folder,
                                           const std::string& name) const {
  const PictureFrame* only = nullptr;
  int count = 0;
  for (const PictureFrame& frame : frames_) {
    if (!Holds(folder, frame)) continue;
    if (Has(frame, name)) return &frame;
    only = &frame;
    ++count;
  }
  return count == 1 ? only : nullptr;
}

/// The size that most pictures of a frame have; of several, that of the first by name.
std::optional<platform::PictureSize> PictureChecks::UsualSize(const PictureFrame& frame,
                                                              const std::string& folder) {
  const auto [found, is_new] = usual_sizes_.try_emplace({&frame, folder});
  if (!is_new) return found->second;
  std::vector<std::pair<platform::PictureSize, int>> counts;
  for (const std::string& file : files_in_(folder)) {
    if (!Has(frame, Split(file).second)) continue;
    const Size& size = SizeOf(file);
    if (!size) continue;
    const auto same = std::find_if(counts.begin(), counts.end(),
                                   [&](const auto& count) { return count.first == size.Value(); });
    if (same == counts.end()) {
      counts.emplace_back(size.Value(), 1);
    } else {
      ++same->second;
    }
  }
  const auto most =
      std::max_element(counts.begin(), counts.end(),
                       [](const auto& a, const auto& b) { return a.second < b.second; });
  if (most != counts.end()) found->second = most->first;
  return found->second;
}

platform::Findings PictureChecks::Check(const std::string& file) {
  const Size& size = SizeOf(file);
  if (!size) return {{0, size.Reason()}};
  const auto [folder, name] = Split(file);
  const PictureFrame* frame = FrameOf(folder, name);
  const auto usual = frame != nullptr ? UsualSize(*frame, folder) : std::nullopt;
  if (!usual || *usual == size.Value()) return {};
  return {{0, "it has " + Told(size.Value()) +
                  " points, and the others that are shown there have " + Told(*usual)}};
}

std::vector<std::string> PictureChecks::Missing(const std::string& program_folder) {
  std::vector<std::string> missing;
  for (const PictureFrame& frame : frames_) {
    const std::string folder = (program_folder + "/").append(frame.folder);
    std::set<std::string> names;
    for (const std::string& file : files_in_(folder)) {
      names.insert(platform::FoldCase(Split(file).second));
    }
    for (const std::string& name : frame.names) {
      if (!names.contains(platform::FoldCase(name))) missing.push_back(folder + name);
    }
  }
  return missing;
}

}  // namespace kestrune::forms
