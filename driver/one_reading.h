// One object serves one reading. The lock lets one caller have it, whoever else asks meanwhile.
#pragma once

#include "TKSplDrv/driver.h"

// Takes the object's only reading; false when it is taken. Give it back when no thread was started.
bool TakeReading(TavDrvV1& driver);
void GiveReadingBack(TavDrvV1& driver);

// Starts the thread of a reading that was taken; false, and the reading is given back, when there
// is no thread to be had.
bool StartThread(TavDrvV1& driver, TavThreadRoutine routine);
