#include "host/reading/reading.h"

#include "host/reading/driver_run.h"

namespace host {
namespace {

// The first of what went wrong: the file that could not be written, the line, the instrument.
std::string FailureReason(const DriverEnd& driver, const LinePort& line) {
  if (!driver.status.refusal.empty()) return driver.status.refusal;
  if (!line.Trouble().empty()) return line.Trouble();
  if (!driver.begun) return "the reading could not be started";
  const std::string& error = driver.status.lastError;
  return error.empty() ? "the driver gave no reason" : error;
}

RunEnd EndOf(const DriverEnd& driver, const LinePort& line, StopRequest stop) {
  const bool clean = driver.begun && !line.Lost() && driver.status.refusal.empty();
  if (clean && stop == StopRequest::kDone) return {};
  if (clean && stop == StopRequest::kInterrupted) return {Ending::kInterrupted, "interrupted"};
  if (clean && driver.status.succeeded == true) return {};
  return {Ending::kFailed, FailureReason(driver, line)};
}

}  // namespace

RunEnd RunReading(const DriverLibrary& library, const Run& run, LinePort& line,
                  RunListener& listener, const AskStop& askStop) {
  listener.BeginRun(run);
  const DriverEnd driver = RunDriver(library, *run.settings, line, listener, askStop);
  RunEnd end = EndOf(driver, line, askStop());
  end.counts = driver.counts;
  listener.EndRun(end);
  return end;
}

}  // namespace host
