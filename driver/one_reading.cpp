#include "driver/one_reading.h"

#include "platform/platform.h"

bool TakeReading(TavDrvV1& driver) {
  const platform::LockGuard guard(driver.stopLock);
  if (driver.idle == 0) return false;
  driver.idle = 0;
  return true;
}

void GiveReadingBack(TavDrvV1& driver) {
  const platform::LockGuard guard(driver.stopLock);
  driver.idle = 1;
}

bool StartThread(TavDrvV1& driver, TavThreadRoutine routine) {
  {
    const platform::LockGuard guard(driver.stopLock);
    driver.stopRequest = 0;
  }
  driver.SetPr(0);
  const platform::Thread started = platform::CreateThread(routine, &driver);
  driver.thread = started.handle;
  driver.threadId = started.id;
  if (started.handle != nullptr) return true;

  const platform::LockGuard guard(driver.stopLock);
  driver.stopRequest = 1;
  driver.idle = 1;
  return false;
}
