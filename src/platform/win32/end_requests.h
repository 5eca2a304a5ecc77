#pragma once

namespace kestrune::platform::win32 {

/// Takes the requests to end this program (Ctrl+C, the console's close box, a log-off) for as long
/// as it lives. At its end they are answered as before, beginning with the one that was taken.
class EndRequests {
 public:
  EndRequests();
  ~EndRequests();
  EndRequests(const EndRequests&) = delete;
  EndRequests& operator=(const EndRequests&) = delete;

  bool AnyTaken() const;
  /// A handle that is signalled once one was taken; null where the system had none left.
  void* Event() const;

 private:
  bool is_outer_;
};

}  // namespace kestrune::platform::win32
