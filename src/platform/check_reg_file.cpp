#include "platform/check_reg_file.h"

#include "platform/reg_file.h"

namespace kestrune::platform {

Findings CheckRegFile(std::string_view bytes, FilesApi& files) {
  if (bytes.empty()) return {{0, "it is empty"}};
  RegFileReader reader(bytes, files);
  while (reader.Next() != nullptr) {
  }
  if (!reader.Fault()) return {};
  return {{reader.Fault()->line, reader.Fault()->reason}};
}

}  // namespace kestrune::platform
