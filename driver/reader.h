// What the reading thread needs of a protocol.
#pragma once

#include <memory>

#include "TKSplDrv/driver.h"

// What a reading came to, and so what the thread reports of it.
enum class Ending {
  kSucceeded,   // ReadStop(true)
  kFailed,      // ReadStop(false)
  kUnreported,  // none: a continuous reading that the host stopped
};

class Reader {
 public:
  virtual ~Reader() = default;
  // Reads what the host asked for. The thread makes the final report from the result; a stop in the
  // middle is reported where it is noticed, and then once more: intended.
  virtual Ending Run() = 0;
};

// The makers, each defined in its protocol's folder; null when memory is short.
std::unique_ptr<Reader> MakeOlderReader(TavDrvV1& driver);
std::unique_ptr<Reader> MakeK7Reader(TavDrvV1& driver);
