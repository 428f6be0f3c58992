#include "host/reading/driver_run.h"

#include "host/reading/driver_set_up.h"

namespace host {
namespace {

constexpr std::chrono::milliseconds kPoll{100};

// Until the driver's thread has sent its last message. Returns whether it began at all.
bool Poll(TavDrvV1& driver, tav::Mode kind, const LinePort& line, Receiver& receiver,
          const AskStop& askStop) {
  if (driver.Start(static_cast<int>(kind)) == 0) return false;
  do {
    receiver.Pulse(driver.GetPr());
    // The driver forgets a stop that it has answered and may go on with the next part of the
    // instrument, so it is asked until its thread has ended.
    if (askStop() != StopRequest::kNone || line.Lost() || receiver.Refused()) driver.Stop();
  } while (!receiver.WaitForEnd(kPoll));
  return true;
}

}  // namespace

DriverEnd RunDriver(const DriverLibrary& library, const ReadSettings& settings, LinePort& line,
                    RunListener& listener, const AskStop& askStop) {
  Receiver receiver(listener);
  DriverPointer driver = library.Create(receiver, line);
  SetUpDriver(*driver, settings);
  const bool begun = Poll(*driver, settings.kind, line, receiver, askStop);
  driver.reset();  // its thread is gone from here on
  const StreamCounts counts = receiver.Finish();
  return {begun, receiver.Status(), counts};
}

}  // namespace host
