#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace kestrune::bench {

[[noreturn]] inline void GiveUp(const std::string& sentence) {
  std::fprintf(stderr, "kestrune_bench: %s\n", sentence.c_str());
  std::exit(3);
}

}  // namespace kestrune::bench
