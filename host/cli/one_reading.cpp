#include "host/cli/one_reading.h"

#include <fmt/format.h>

#include "host/cli/summary.h"
#include "host/output/message_printer.h"
#include "host/reading/driver_set_up.h"
#include "host/reading/reading.h"

namespace host {
namespace {

ReadSettings By(const Way& way, ReadSettings settings) {
  settings.kind = way.kind;
  settings.baud = way.baud;
  return settings;
}

}  // namespace

std::vector<Way> CheckReading(const DriverLibrary& library, const ReadOptions& options) {
  if (!options.search.Wanted()) {
    CheckSettings(library, options.settings);
    RequireReadGroups(options.settings);
    return {};
  }
  const std::vector<Way> ways = WaysToTry(library, options.settings, options.search);
  for (const Way& way : ways) CheckSettings(library, By(way, options.settings));
  return ways;
}

OneReading::OneReading(const ReadOptions& options, const DriverLibrary& library,
                       const std::vector<Way>& ways, const Surroundings& from, Screen& screen,
                       RunListener& sinks)
    : options_(options),
      library_(library),
      ways_(ways),
      from_(from),
      screen_(screen),
      stream_(sinks),
      meter_(stream_, from.now),
      pace_(meter_, options.pace, from.now),
      askStop_(pace_.With(from.askStop)) {}

RunEnd OneReading::Run() {
  host::Run run{options_.settings, options_.line, from_.localTime()};
  if (!options_.search.Wanted() || Find(*run.settings)) return Read(run);
  RunEnd end = NotFound();
  end.lineCounts = from_.line.Counts();
  Listener().BeginRun(run);
  Listener().EndRun(end);
  return end;
}

std::string OneReading::Summary(const RunEnd& end) const {
  const std::string& out = options_.sinks.out;
  const bool follow = options_.settings.follow;
  if (options_.wish && options_.wish->fill) return FillLine(end);
  return follow ? FollowLine(end, pace_.Rows(), pace_.Elapsed(), out) : ReadingLine(end, out);
}

RunListener& OneReading::Listener() {
  if (options_.settings.follow) return pace_;
  return meter_;
}

// Whether the instrument was found; the settings are its then.
bool OneReading::Find(ReadSettings& settings) {
  RunListener deaf;
  MessagePrinter printer(screen_);
  if (screen_.IsTerminal()) screen_.DrawBar("looking for the instrument ...");
  const auto found = FindInstrument(library_, settings, ways_, from_.line,
                                    options_.sinks.verbose > 0 ? printer : deaf, from_.askStop);
  screen_.TakeBarAway();
  if (!found) return false;
  settings = By(found->way, settings);
  RequireReadGroups(settings);
  screen_.PrintLine(fmt::format("irvela: {} answers: kind {}, {} bit/s", found->model,
                                KindName(settings.kind), *settings.baud));
  return true;
}

RunEnd OneReading::Read(const host::Run& run) {
  const std::string unread = UnreadGroups(*run.settings);
  if (!unread.empty()) screen_.PrintLine("irvela: " + unread);
  return RunReading(library_, run, from_.line, Listener(), askStop_, from_.known, from_.localTime);
}

RunEnd OneReading::NotFound() {
  if (from_.askStop() != StopRequest::kNone) return {Ending::kInterrupted, "interrupted"};
  if (!from_.line.Trouble().empty()) return {Ending::kFailed, from_.line.Trouble()};
  return {Ending::kFailed, NobodyAnswers(options_.settings, ways_)};
}

}  // namespace host
