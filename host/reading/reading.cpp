#include "host/reading/reading.h"

#include "host/reading/driver_set_up.h"
#include "host/reading/receiver.h"

namespace host {
namespace {

constexpr std::chrono::milliseconds kPoll{100};

// Until the driver's thread has sent its last message. Returns whether it began at all.
bool RunDriver(TavDrvV1& driver, tav::Mode kind, const LinePort& line, Receiver& receiver,
               bool (*interrupted)()) {
  if (driver.Start(static_cast<int>(kind)) == 0) return false;
  do {
    receiver.Pulse(driver.GetPr());
    // The driver forgets a stop that it has answered and may go on with the next part of the
    // instrument, so it is asked until its thread has ended.
    if (interrupted() || line.Lost() || receiver.Refused()) driver.Stop();
  } while (!receiver.WaitForEnd(kPoll));
  return true;
}

// The first of what went wrong: the file that could not be written, the line, the instrument.
std::string FailureReason(bool begun, const ReceiverStatus& status, const LinePort& line) {
  if (!status.refusal.empty()) return status.refusal;
  if (!line.Trouble().empty()) return line.Trouble();
  if (!begun) return "the reading could not be started";
  return status.lastError.empty() ? "the driver gave no reason" : status.lastError;
}

RunEnd EndOf(bool begun, const ReceiverStatus& status, const LinePort& line, bool interrupted) {
  const bool clean = begun && !line.Lost() && status.refusal.empty();
  if (clean && interrupted) return {Ending::kInterrupted, "interrupted", {}};
  if (clean && status.succeeded == true) return {};
  return {Ending::kFailed, FailureReason(begun, status, line), {}};
}

}  // namespace

RunEnd RunReading(const DriverLibrary& library, const Run& run, LinePort& line,
                  RunListener& listener, bool (*interrupted)()) {
  Receiver receiver(listener);
  DriverPointer driver = library.Create(receiver, line);
  SetUpDriver(*driver, *run.settings);
  listener.BeginRun(run);
  const bool begun = RunDriver(*driver, run.settings->kind, line, receiver, interrupted);
  driver.reset();  // its thread is gone from here on
  const StreamCounts counts = receiver.Finish();
  RunEnd end = EndOf(begun, receiver.Status(), line, interrupted());
  end.counts = counts;
  listener.EndRun(end);
  return end;
}

}  // namespace host
