// One reading through the driver, from the set-up to the end of its thread.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "TKSplDrv/driver.h"
#include "host/line/line_port.h"
#include "host/output/progress.h"
#include "host/reading/receiver.h"

namespace host {

// What the caller asked for makes no sense to the driver.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

enum class Kind : int { kOlder = 1, kK7 = 2 };

struct ReadSettings {
  Kind kind = Kind::kOlder;
  int number = 1;           // network number of the instrument
  std::optional<int> baud;  // bit/s; none: the first speed that the driver offers
  std::string groups = "BTMSHE";
  SYSTEMTIME from{};
  SYSTEMTIME to{};
  int attempts = 3;
  bool doubleRead = false;
  bool validity = false;
  int pause = 0;  // ms
  bool follow = false;
};

// Throws UsageError when the driver does not offer what the settings ask for.
void CheckSettings(TavDrvV1& driver, const ReadSettings& settings);

enum class Ending { kRead, kFailed, kInterrupted };

struct ReadingEnd {
  Ending ending;
  std::string reason;  // one sentence when the reading failed
};

// Runs until the driver's thread has sent its last message. interrupted is asked again and again
// from this thread.
ReadingEnd RunReading(TavDrvV1& driver, const ReadSettings& settings, const LinePort& port,
                      Receiver& receiver, Progress& progress, bool (*interrupted)());

}  // namespace host
