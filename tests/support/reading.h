// A whole reading on the test's own thread: host, line and driver together.
#pragma once

#include <string>

#include "driver/tkspl_drv.h"
#include "tests/support/fake_clock.h"
#include "tests/support/fake_port.h"
#include "tests/support/recording_stream.h"

namespace support {

struct Reading {
  Reading() : driver(static_cast<HostStream*>(&stream), static_cast<HostPort*>(&port)) {
    clock::Reset();
    driver.SetupNumer('N', 1);
  }

  void Parameter(int index, int value) {
    driver.SetupParametr(static_cast<char>(index), sizeof value, &value);
  }
  void Groups(const std::string& letters) {
    for (const char letter : letters) driver.SetupReadGroup(letter, true);
  }
  // The reading thread's routine, called here; the driver's mode is 1, older protocol, or 2, K7.
  void Run(int mode = 1) {
    driver.mode = mode;
    driver.stopRequest = 0;
    driver.SetPr(0);
    PollThread(&driver);
  }

  RecordingStream stream;
  FakePort port;
  TKSplDrv driver;
};

}  // namespace support
