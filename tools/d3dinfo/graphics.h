#pragma once

#include <string>
#include <vector>

namespace kestrune::d3dinfo {

/// What this computer's graphics say of themselves, a line each, through the library EGL. Where
/// there is none, or it knows no graphics, the one line says so.
std::vector<std::string> DescribeGraphics();

}  // namespace kestrune::d3dinfo
