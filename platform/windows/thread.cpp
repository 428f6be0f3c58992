#include "platform/platform.h"

namespace platform {

Thread CreateThread(TavThreadRoutine routine, void* argument) {
  DWORD id = 0;
  HANDLE handle = ::CreateThread(nullptr, 0, routine, argument, 0, &id);
  return {handle, handle != nullptr ? static_cast<unsigned>(id) : 0};
}

void GetThreadExitCode(void* handle, unsigned long& code) { ::GetExitCodeThread(handle, &code); }

void TerminateThread(void* handle, unsigned long code) {
  // A thread on its last steps is let take them: ended in the middle of them it would leave the
  // loader's lock taken, and the host would hang at its next thread.
  constexpr DWORD kLastSteps = 500;  // ms
  ::WaitForSingleObject(handle, kLastSteps);
  ::TerminateThread(handle, code);
}

void TerminationPoint() {}

}  // namespace platform
