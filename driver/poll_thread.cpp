// The reading thread: announces its start and end and hands the work to the protocol.
#include "common/format.h"
#include "driver/reader.h"
#include "driver/tkspl_drv.h"
#include "platform/platform.h"

namespace {

void SendTime(TavDrvV1& driver, const char* subject) {
  const SYSTEMTIME now = platform::GetLocalTime();
  driver.MessageTav(nullptr,
                    common::Format("%d.%02d.%02d:%02d.%02d.%02d", now.wYear, now.wMonth, now.wDay,
                                   now.wHour, now.wMinute, now.wSecond),
                    subject, 0);
}

// Without memory for the reader the reading has failed.
void ReadAndReport(TavDrvV1& driver, Reader* reader) {
  const Ending ending = reader != nullptr ? reader->Run() : Ending::kFailed;
  if (ending != Ending::kUnreported) driver.ReadStop(ending == Ending::kSucceeded);
}

// Any other mode reads nothing and reports nothing: intended.
unsigned long Read(TKSplDrv& driver) {
  if (driver.mode == static_cast<int>(Protocol::kOlder)) {
    ReadAndReport(driver, MakeOlderReader(driver).get());
    return 0;
  }
  if (driver.mode == static_cast<int>(Protocol::kK7)) {
    ReadAndReport(driver, MakeK7Reader(driver).get());
    return 1;
  }
  return 0;
}

}  // namespace

unsigned long TAV_STDCALL PollThread(void* object) {
  TKSplDrv& driver = *static_cast<TKSplDrv*>(object);
  SendTime(driver, "Start Opros");
  const unsigned long result = Read(driver);
  SendTime(driver, "Opros End");
  return result;
}
