// The reading thread: announces its start and end and hands the work to the
// protocol of its mode.
#include "common/format.h"
#include "driver/protocols.h"
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
Ending ReadBy(const Protocol& protocol, TavDrvV1& driver) {
  const std::unique_ptr<Reader> reader = protocol.make(driver);
  return reader != nullptr ? reader->Run() : Ending::kFailed;
}

// A mode that no protocol serves reads nothing and reports nothing: intended.
unsigned long Read(TKSplDrv& driver) {
  const Protocol* protocol = FindProtocol(driver.mode);
  if (protocol == nullptr) return 0;
  const Ending ending = ReadBy(*protocol, driver);
  if (ending != Ending::kUnreported) driver.ReadStop(ending == Ending::kSucceeded);
  return protocol->exitCode;
}

}  // namespace

unsigned long TAV_STDCALL PollThread(void* object) {
  TKSplDrv& driver = *static_cast<TKSplDrv*>(object);
  SendTime(driver, "Start Opros");
  const unsigned long result = Read(driver);
  SendTime(driver, "Opros End");
  return result;
}
