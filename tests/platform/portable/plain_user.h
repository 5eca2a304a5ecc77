#pragma once

#include <unistd.h>

#include <cstdlib>

namespace kestrune::platform {

/// Gives up an administrator's rights for a while, so that permissions mean something.
class PlainUser {
 public:
  PlainUser() : was_root_(geteuid() == 0) {
    if (was_root_) is_plain_ = seteuid(65534) == 0;
  }
  ~PlainUser() {
    if (is_plain_ && seteuid(0) != 0) std::abort();
  }
  bool Works() const { return !was_root_ || is_plain_; }

 private:
  bool was_root_;
  bool is_plain_ = false;
};

}  // namespace kestrune::platform
