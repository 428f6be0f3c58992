#include "host/reading/reading.h"

#include <fmt/format.h>

#include <vector>

namespace host {
namespace {

constexpr std::chrono::milliseconds kPoll{100};

enum Parameter : char {
  kAttempts = 1,
  kDoubleReading = 2,
  kValidity = 3,
  kPause = 4,
  kContinuous = 16
};

std::vector<int> OfferedSpeeds(TavDrvV1& driver, int kind) {
  std::vector<int> speeds;
  int speed = 0;
  const unsigned count = driver.GetBaud(kind, 1, &speed);
  for (unsigned i = 1; i <= count; ++i) {
    driver.GetBaud(kind, static_cast<int>(i), &speed);
    speeds.push_back(speed);
  }
  return speeds;
}

void CheckSpeed(TavDrvV1& driver, int kind, int baud) {
  std::string offered;
  for (const int speed : OfferedSpeeds(driver, kind)) {
    if (speed == baud) return;
    offered += (offered.empty() ? "" : ", ") + std::to_string(speed);
  }
  throw UsageError(fmt::format("--baud {}: this kind of instrument offers {}", baud, offered));
}

void SetParameter(TavDrvV1& driver, Parameter parameter, int value) {
  driver.SetupParametr(parameter, sizeof value, &value);
}

void SetUp(TavDrvV1& driver, const ReadSettings& settings) {
  const int kind = static_cast<int>(settings.kind);
  driver.SetupNumer('N', settings.number);
  for (const char letter : settings.groups) driver.SetupReadGroup(letter, true);
  driver.SetupDateTime(settings.from, settings.to);
  driver.SetupBaud(settings.baud.value_or(OfferedSpeeds(driver, kind).front()));
  SetParameter(driver, kAttempts, settings.attempts);
  SetParameter(driver, kDoubleReading, settings.doubleRead ? 1 : 0);
  SetParameter(driver, kValidity, settings.validity ? 1 : 0);
  SetParameter(driver, kPause, settings.pause);
  SetParameter(driver, kContinuous, settings.follow ? 1 : 0);
}

// The first of what went wrong: the file that could not be written, the line, the instrument.
std::string FailureReason(const ReceiverStatus& status, const LinePort& port) {
  if (!status.refusal.empty()) return status.refusal;
  if (!port.Trouble().empty()) return port.Trouble();
  return status.lastError.empty() ? "the driver gave no reason" : status.lastError;
}

}  // namespace

void CheckSettings(TavDrvV1& driver, const ReadSettings& settings) {
  const int kind = static_cast<int>(settings.kind);
  int limit = 0;
  driver.GetNumberLimit(kind, 'N', &limit);
  if (settings.number < 0 || settings.number > limit) {
    throw UsageError(fmt::format("--number {}: the largest is {}", settings.number, limit));
  }
  for (const char letter : settings.groups) {
    if (driver.CanReadGroup(kind, letter) == 0) {
      throw UsageError(fmt::format("--groups {}: there is no group {}", settings.groups, letter));
    }
  }
  if (settings.baud) CheckSpeed(driver, kind, *settings.baud);
}

ReadingEnd RunReading(TavDrvV1& driver, const ReadSettings& settings, const LinePort& port,
                      Receiver& receiver, Progress& progress, bool (*interrupted)()) {
  SetUp(driver, settings);
  if (driver.Start(static_cast<int>(settings.kind)) == 0) {
    return {Ending::kFailed,
            port.Trouble().empty() ? "the reading could not be started" : port.Trouble()};
  }
  do {
    const ReceiverStatus status = receiver.Status();
    progress.Update(driver.GetPr(), status.step);
    // The driver forgets a stop that it has answered and may go on with the next part of the
    // instrument, so it is asked until its thread has ended.
    if (interrupted() || port.Lost() || !status.refusal.empty()) driver.Stop();
  } while (!receiver.WaitForEnd(kPoll));
  const ReceiverStatus status = receiver.Status();
  const bool clean = !port.Lost() && status.refusal.empty();
  if (clean && interrupted()) return {Ending::kInterrupted, "interrupted"};
  if (clean && status.succeeded == true) return {Ending::kRead, ""};
  return {Ending::kFailed, FailureReason(status, port)};
}

}  // namespace host
