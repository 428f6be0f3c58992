// A driver object on the test's own thread, with a line and a host that keeps what it is told.
#pragma once

#include "common/cp1251.h"
#include "driver/tkspl_drv.h"
#include "k7/transport.h"
#include "tests/k7/k7_bytes.h"
#include "tests/support/fake_clock.h"
#include "tests/support/fake_port.h"
#include "tests/support/recording_stream.h"

namespace k7test {

inline constexpr int kAddress = 5;

struct Host {
  Host() {
    support::clock::Reset();
    driver.numberN = kAddress;
    driver.stopRequest = 0;
  }

  support::RecordingStream stream;
  support::FakePort port;
  TKSplDrv driver{static_cast<HostStream*>(&stream), static_cast<HostPort*>(&port)};
};

}  // namespace k7test
