#pragma once

#include <exception>
#include <new>
#include <string>

namespace kestrune::platform {

/// What has been thrown, in one sentence; for the handler in which a program ends.
inline std::string ThrownSentence() {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    return "There is no memory left.";
  } catch (const std::exception& thrown) {
    return std::string("Something that was not expected: ") + thrown.what() + ".";
  } catch (...) {
    return "Something that was not expected.";
  }
}

}  // namespace kestrune::platform
