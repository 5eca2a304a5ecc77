// d3dinfo: writes what this computer's graphics say of themselves into the folder that it is told,
// as the file that the page of the DirectX report shows; without a folder it prints it.

#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdio>

#include "graphics.h"
#include "platform/portable/files.h"

namespace {

constexpr const char* kReport = "DATA/d3d_adapter_info.txt";

std::string ComputerName() {
  char name[HOST_NAME_MAX + 1] = {};
  return gethostname(name, HOST_NAME_MAX) == 0 ? name : "";
}

/// The report, whose first line says whose graphics these are.
std::string Report() {
  const std::string name = ComputerName();
  std::string report = "Graphics of the computer that the program runs on" +
                       (name.empty() ? "" : " (" + name + ")") + "\n";
  for (const std::string& line : kestrune::d3dinfo::DescribeGraphics()) report += line + "\n";
  std::replace_if(
      report.begin(), report.end(), [](char c) { return c != '\n' && (c < ' ' || c > '~'); }, '?');
  return report;
}

}  // namespace

int main(int argument_count, char** arguments) {
  if (argument_count > 2) {
    std::fprintf(stderr, "usage: d3dinfo [FOLDER]\n");
    return 2;
  }
  const std::string report = Report();
  if (argument_count == 1) {
    std::fputs(report.c_str(), stdout);
    return 0;
  }
  kestrune::platform::portable::FolderFiles files({arguments[1]}, 1252);
  if (const auto written = files.WriteFile(kReport, report); !written) {
    std::fprintf(stderr, "d3dinfo: %s/%s can't be written: %s\n", arguments[1], kReport,
                 written.Reason().reason.c_str());
    return 1;
  }
  return 0;
}
