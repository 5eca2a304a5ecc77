#include "platform/win32/end_requests.h"

#include <windows.h>

#include <atomic>

namespace kestrune::platform::win32 {

namespace {

// The system calls the handler on a thread of its own and hands it nothing.
std::atomic<HANDLE> request_event = nullptr;

BOOL WINAPI TakeRequest(DWORD /*kind*/) {
  const HANDLE event = request_event;
  if (event == nullptr) return FALSE;
  SetEvent(event);
  return TRUE;
}

}  // namespace

EndRequests::EndRequests() : is_outer_(request_event == nullptr) {
  if (!is_outer_) return;
  request_event = CreateEventA(nullptr, TRUE, FALSE, nullptr);
  SetConsoleCtrlHandler(TakeRequest, TRUE);
}

EndRequests::~EndRequests() {
  if (!is_outer_) return;
  const bool was_taken = AnyTaken();
  SetConsoleCtrlHandler(TakeRequest, FALSE);
  const HANDLE event = request_event.exchange(nullptr);
  if (event != nullptr) CloseHandle(event);
  // As an interrupted program ends.
  constexpr UINT kInterrupted = 0xC000013A;
  if (was_taken) ExitProcess(kInterrupted);
}

bool EndRequests::AnyTaken() const {
  const HANDLE event = request_event;
  return event != nullptr && WaitForSingleObject(event, 0) == WAIT_OBJECT_0;
}

void* EndRequests::Event() const { return request_event; }

}  // namespace kestrune::platform::win32
