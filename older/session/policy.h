// The numbered parameters that steer every repeated request, taken once for a reading.
#pragma once

#include "TKSplDrv/driver.h"

namespace older {

struct Policy {
  int attempts;       // parameter 1
  int doubleReading;  // parameter 2; each kind of request has its own threshold
  bool validityTest;  // parameter 3
  unsigned pause;     // parameter 4, ms after a failed attempt
  bool continuous;    // parameter 16

  explicit Policy(const TavDrvV1& host)
      : attempts(host.param[0]),
        doubleReading(host.param[1]),
        validityTest(host.param[2] != 0),
        // A negative pause would be one of seven weeks.
        pause(host.param[3] > 0 ? static_cast<unsigned>(host.param[3]) : 0),
        continuous(host.param16 == 1) {}
};

}  // namespace older
