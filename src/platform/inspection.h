#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files_api.h"
#include "platform/finding.h"
#include "platform/result.h"

namespace kestrune::platform {

/// A display device of a machine description.
struct DescribedDevice {
  int line = 0;  ///< where its hardware identifier stands
  std::string hardware_id;
};

struct DescriptionCheck {
  Findings findings;
  std::vector<DescribedDevice> devices;  ///< none where the description can't be read
};

/// Something that stands in the folders that are looked through.
struct FoundFile {
  std::string path;
  bool is_folder = false;   ///< of what is passed over
  std::string remark = {};  ///< why it is passed over, where it is
  bool is_fault = false;    ///< the remark is a fault, such as a folder that can't be opened
};

/// All files that machines of one kind use, for a check of them: no machine is opened, and nothing
/// is made, changed or deleted. Paths are whole ones.
class Inspection {
 public:
  virtual ~Inspection() = default;

  /// The program's files, in the code page of the machine that would be opened.
  virtual FilesApi& Files() = 0;
  /// Everything but folders in and below the folders for data, for machine descriptions and for
  /// stores, in order of path. A link that leads out of the folder that it was found in is passed
  /// over with a remark.
  virtual std::vector<FoundFile> AllFiles() = 0;
  /// The files that a program finds in a folder: with those that are laid over or under it, where
  /// it is one of the program's.
  virtual std::vector<std::string> FilesIn(const std::string& folder) = 0;
  /// The whole path of a file that a person names.
  virtual std::string WholePath(const std::string& file) = 0;

  /// The bytes of an ordinary file, up to 16 MB.
  virtual Result<std::string, FileFailure> ReadFile(const std::string& file) = 0;
  /// What is wrong with a file of registry text, or why it can't be read.
  virtual Result<Findings, FileFailure> CheckRegistryText(const std::string& file) = 0;
  /// What is wrong with a machine description, and with the registry file that it names.
  virtual DescriptionCheck CheckDescription(std::string_view text, const std::string& file) = 0;
  /// What is wrong with a registry store, after a check of the whole.
  virtual Findings CheckStore(const std::string& file) = 0;
};

}  // namespace kestrune::platform
