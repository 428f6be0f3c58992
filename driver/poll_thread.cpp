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

unsigned long ReadK7(TavDrvV1& driver) {
  int count = 0;
  if (const std::unique_ptr<Reader> reader = MakeK7Reader(driver)) count = reader->Run();
  driver.ReadStop(count >= 1);
  return 1;
}

// The older reader makes its own final report.
unsigned long ReadOlder(TavDrvV1& driver, Reader* reader) {
  if (reader == nullptr) {
    driver.ReadStop(false);
    return 0;
  }
  return static_cast<unsigned long>(reader->Run());
}

// Any other mode reads nothing and reports nothing: intended.
unsigned long Read(TKSplDrv& driver, Reader* older) {
  if (driver.mode == static_cast<int>(Protocol::kOlder)) return ReadOlder(driver, older);
  if (driver.mode == static_cast<int>(Protocol::kK7)) return ReadK7(driver);
  return 0;
}

}  // namespace

unsigned long TAV_STDCALL PollThread(void* object) {
  TKSplDrv& driver = *static_cast<TKSplDrv*>(object);
  const std::unique_ptr<Reader> older = MakeOlderReader(driver);
  SendTime(driver, "Start Opros");
  const unsigned long result = Read(driver, older.get());
  SendTime(driver, "Opros End");
  return result;
}
