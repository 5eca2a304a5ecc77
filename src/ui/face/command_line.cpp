#include "ui/face/command_line.h"

namespace kestrune::face {

std::string ProfilePath(int argument_count, const char* const* arguments) {
  std::string path;
  for (int i = 1; i < argument_count; ++i) {
    if (i > 1) path += ' ';
    path += arguments[i];
  }
  return path;
}

}  // namespace kestrune::face
