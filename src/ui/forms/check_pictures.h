#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/files_api.h"
#include "platform/finding.h"
#include "platform/picture_size.h"
#include "ui/forms/pictures.h"

namespace kestrune::forms {

/// Checks pictures one by one, and each against those that are shown in its place. Every file is
/// read once.
class PictureChecks {
 public:
  using FileResult = platform::Result<std::string, platform::FileFailure>;

  /// `read` gives a file's bytes, `files_in` the paths of the files in a folder. Paths have
  /// slashes.
  PictureChecks(std::function<FileResult(const std::string& file)> read,
                std::function<std::vector<std::string>(const std::string& folder)> files_in)
      : read_(std::move(read)), files_in_(std::move(files_in)), frames_(PictureFrames()) {}

  /// What is wrong with a picture.
  platform::Findings Check(const std::string& file);
  /// The pictures that a program in a folder can ask for and hasn't.
  std::vector<std::string> Missing(const std::string& program_folder);

 private:
  /// A picture's size, or why it has none.
  using Size = platform::Result<platform::PictureSize>;

  const Size& SizeOf(const std::string& file);
  const PictureFrame* FrameOf(const std::string& folder, const std::string& name) const;
  std::optional<platform::PictureSize> UsualSize(const PictureFrame& frame,
                                                 const std::string& folder);

  std::function<FileResult(const std::string&)> read_;
  std::function<std::vector<std::string>(const std::string&)> files_in_;
  std::vector<PictureFrame> frames_;
  std::map<std::string, Size> sizes_;
  /// By frame and folder.
  std::map<std::pair<const PictureFrame*, std::string>, std::optional<platform::PictureSize>>
      usual_sizes_;
};

}  // namespace kestrune::forms
