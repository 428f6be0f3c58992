#include "platform/platform.h"

namespace platform {

Thread CreateThread(TavThreadRoutine routine, void* argument) {
  DWORD id = 0;
  HANDLE handle = ::CreateThread(nullptr, 0, routine, argument, 0, &id);
  return {handle, handle != nullptr ? static_cast<unsigned>(id) : 0};
}

void GetThreadExitCode(void* handle, unsigned long& code) { ::GetExitCodeThread(handle, &code); }

void TerminateThread(void* handle, unsigned long code) { ::TerminateThread(handle, code); }

void TerminationPoint() {}

}  // namespace platform
