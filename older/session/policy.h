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

  explicit Policy(const TavDrvV1& driver)
      : attempts(driver.param[0]),
        doubleReading(driver.param[1]),
        validityTest(driver.param[2] != 0),
        // A negative pause would be one of seven weeks.
        pause(driver.param[3] > 0 ? static_cast<unsigned>(driver.param[3]) : 0),
        continuous(driver.param16 == 1) {}
};

}  // namespace older
