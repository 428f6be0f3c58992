// Construction, set-up and thread control of the driver base.
#include <cstdint>
#include <cstring>

#include "TKSplDrv/driver.h"
#include "driver/one_reading.h"
#include "driver/read_groups.h"
#include "platform/platform.h"

namespace {

constexpr unsigned kThreadStarted = 300;

}  // namespace

TavDrvV1::TavDrvV1(void* hostStream, void* hostPort)
    : stream(static_cast<HostStream*>(hostStream)),
      port(static_cast<HostPort*>(hostPort)),
      prStep(0),
      thread(nullptr),
      threadId(0),
      dateFrom(),
      dateTo(),
      unusedFlag(0),
      groupFlag(),
      numberN(0),
      numberE(0),
      numberK(0),
      baud(0),
      typeText(),
      numberText(),
      sectionText(),
      versionText(),
      param{1},
      param16(0),
      progress(0),
      stopRequest(1),
      idle(1),
      prLock(),
      stopLock() {
  platform::InitializeLock(prLock);
  platform::InitializeLock(stopLock);
}

TavDrvV1::~TavDrvV1() {
  Kill();
  platform::DeleteLock(prLock);
  platform::DeleteLock(stopLock);
}

void* TavDrvV1::Destroy(unsigned flags) {
  // As a number: the result is an address, whether or not anything stands there any more.
  const auto address = reinterpret_cast<std::uintptr_t>(this);
  TavDrvV1::~TavDrvV1();
  if ((flags & 1) != 0) ::operator delete(this);
  return reinterpret_cast<void*>(address);  // NOLINT: nothing is read there
}

unsigned TavDrvV1::SetupNumer(char which, int value) {
  switch (which) {
    case 'N':
      numberN = value;
      return 1;
    case 'E':
      numberE = value;
      return 1;
    case 'K':
      numberK = value;
      return 1;
    default:
      return 0;
  }
}

unsigned TavDrvV1::SetupReadGroup(char letter, bool on) {
  const int index = GroupIndex(letter);
  if (index < 0) return 0;
  groupFlag[index] = on ? 1 : 0;
  return 1;
}

unsigned TavDrvV1::SetupDateTime(SYSTEMTIME from, SYSTEMTIME to) {
  dateFrom = from;
  dateTo = to;
  return 1;
}

unsigned TavDrvV1::SetupBaud(int value) {
  baud = value;
  return 1;
}

unsigned TavDrvV1::SetupParametr(char index, int /*size*/, void* value) {
  if (value == nullptr) return 0;
  if (index >= 1 && index <= 9) {
    std::memcpy(&param[index - 1], value, sizeof param[0]);
    return 1;
  }
  if (index == 16) {
    std::memcpy(&param16, value, sizeof param16);
    return 1;
  }
  return 0;
}

unsigned TavDrvV1::Start(TavThreadRoutine routine) {
  return TakeReading(*this) && StartThread(*this, routine) ? kThreadStarted : 0;
}

unsigned TavDrvV1::Stop() {
  const platform::LockGuard guard(stopLock);
  stopRequest = 1;
  return 1;
}

unsigned TavDrvV1::IsStop() {
  platform::TerminationPoint();
  const platform::LockGuard guard(stopLock);
  return stopRequest != 0 ? 1 : 0;
}

unsigned TavDrvV1::Close() {
  const bool stopped = IsStop() != 0;
  const platform::LockGuard guard(stopLock);
  return stopped && idle != 0 ? 1 : 0;
}

unsigned TavDrvV1::Kill() {
  {
    const platform::LockGuard guard(stopLock);
    if (idle != 0) return 1;
  }
  // Also when the thread has long ended: its handle is never closed.
  unsigned long exitCode = 0;
  platform::GetThreadExitCode(thread, exitCode);
  platform::TerminateThread(thread, exitCode);
  return 1;
}
