// What the reading thread needs of a protocol. The protocols' folders define the two makers; the
// driver knows no more of them.
#pragma once

#include <memory>

#include "TKSplDrv/driver.h"

class Reader {
 public:
  virtual ~Reader() = default;
  // Reads what the host asked for. K7: 1 or more when something was read.
  virtual int Run() = 0;
};

// Both answer null when memory is short.
std::unique_ptr<Reader> MakeOlderReader(TavDrvV1& driver);
std::unique_ptr<Reader> MakeK7Reader(TavDrvV1& driver);
