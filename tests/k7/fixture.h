// A driver object on the test's own thread, with a line and a host that keeps what it is told.
#pragma once

#include "common/cp1251.h"
#include "k7/link/transport.h"
#include "tests/k7/k7_bytes.h"
#include "tests/support/reading.h"

namespace k7test {

inline constexpr int kAddress = 5;

struct Host : support::Reading {
  Host() {
    driver.numberN = kAddress;
    driver.stopRequest = 0;
  }
};

}  // namespace k7test
