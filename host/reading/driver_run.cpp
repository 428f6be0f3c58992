#include "host/reading/driver_run.h"

#include <algorithm>
#include <future>
#include <memory>
#include <thread>

#include "host/reading/driver_set_up.h"
#include "host/reading/gated_port.h"
#include "host/reading/patience.h"
#include "host/reading/settings_json.h"

namespace host {
namespace {

using Clock = Patience::Clock;
using std::chrono::milliseconds;

constexpr milliseconds kPoll{100};
// A stop that is not obeyed for so long ends the thread: with the half second that a read of the
// driver takes, and the half second that Windows gives a thread, the program ends within two.
constexpr milliseconds kStopLimit{800};
// More than a thread needs that is not in a pause of the driver.
constexpr milliseconds kKillLimit{800};

// What the driver's thread touches.
struct Parts {
  Parts(const DriverLibrary& library, LinePort& line, RunListener& listener)
      : receiver(listener), port(line), driver(library.Create(receiver, port)) {}

  Receiver receiver;
  GatedPort port;
  DriverPointer driver;
};

// Ends the thread wherever it is: on Windows at once, so that both locks are kept from it; on POSIX
// when its pause or its call of the host ends. Returns whether it has ended: the driver itself
// waits longer for a long pause than a person should.
bool EndThread(Parts& parts) {
  const auto line = parts.port.Close();
  const auto stream = parts.receiver.Close();
  const auto gone = std::make_shared<std::promise<void>>();
  std::future<void> ended = gone->get_future();
  std::thread([driver = std::move(parts.driver), gone]() mutable {
    EndDriver(std::move(driver));
    gone->set_value();
  }).detach();
  return ended.wait_for(kKillLimit) == std::future_status::ready;
}

class Polling {
 public:
  Polling(Parts& parts, Patience& patience, LinePort& line, const AskStop& askStop)
      : parts_(parts), patience_(patience), line_(line), askStop_(askStop) {}

  // Until the driver's thread has sent its last message, or does not obey a stop. Returns whether
  // it obeyed.
  bool Run() {
    do {
      parts_.receiver.Pulse(parts_.driver->GetPr());
      // The driver forgets a stop that it has answered and may go on with the next part of the
      // instrument, so it is asked until its thread has ended.
      if (MustStop() && !HasTime()) return false;
    } while (!parts_.receiver.WaitForEnd(kPoll));
    return true;
  }
  // For what it was stopped; that nothing came goes before the rest.
  StopCause Cause() const { return waited_ ? StopCause::kWaited : cause_; }

  StopDriver Stop() {
    return [&driver = *parts_.driver] { driver.Stop(); };
  }

 private:
  StopCause Wanted() {
    const StopRequest request = askStop_();
    if (request == StopRequest::kInterrupted) return StopCause::kUser;
    if (request == StopRequest::kDone) return StopCause::kDone;
    if (line_.Lost()) return StopCause::kLost;
    if (parts_.receiver.Refused()) return StopCause::kRefused;
    waited_ = waited_ || patience_.IsOver(parts_.port.Received(), Clock::now());
    return waited_ ? StopCause::kWaited : StopCause::kNone;
  }
  bool MustStop() {
    const StopCause wanted = Wanted();
    if (wanted != StopCause::kNone) line_.Hurry(true);
    const StopCause cause = line_.Decide(wanted, Stop());
    if (cause == StopCause::kNone) return false;
    cause_ = cause;
    return true;
  }
  // Whether there is hope that a stop helps.
  bool HasTime() {
    latest_ = std::min(latest_, Clock::now() + kStopLimit);
    return Clock::now() < latest_;
  }

  Parts& parts_;
  Patience& patience_;
  LinePort& line_;
  const AskStop& askStop_;
  Clock::time_point latest_ = Clock::time_point::max();  // for a stop to be obeyed
  StopCause cause_{};
  bool waited_ = false;
};

}  // namespace

DriverEnd RunDriver(const DriverLibrary& library, const ReadSettings& settings, LinePort& line,
                    RunListener& listener, const AskStop& askStop) {
  Patience patience(settings, Clock::now());
  PatientListener patient(listener, patience);
  auto parts = std::make_unique<Parts>(library, line, patient);
  SetUpDriver(*parts->driver, settings);
  DriverEnd end;
  Polling polling(*parts, patience, line, askStop);
  line.Hurry(false);
  line.BeginRun(SettingsJson(settings), polling.Stop());
  end.begun = parts->driver->Start(static_cast<int>(settings.kind)) != 0;
  const bool obeyed = !end.begun || polling.Run();
  const bool ended = obeyed || EndThread(*parts);
  end.waited = line.EndRun(obeyed, polling.Cause()) == StopCause::kWaited;
  parts->driver.reset();  // its thread is gone from here on, or closed out
  end.counts = parts->receiver.Finish();
  end.status = parts->receiver.Status();
  // A thread that is still in a pause finds the doors closed when it wakes up, and ends.
  if (!ended) static_cast<void>(parts.release());  // NOLINT: left to that thread
  return end;
}

}  // namespace host
