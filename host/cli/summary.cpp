#include "host/cli/summary.h"

#include <fmt/format.h>

#include "host/output/text.h"
#include "host/reading/clock_check.h"
#include "host/system/exit_codes.h"

namespace host {

namespace {

std::string TimeText(std::chrono::seconds time) {
  const auto minutes = std::chrono::duration_cast<std::chrono::minutes>(time).count();
  if (minutes == 0) return fmt::format("{} s", time.count());
  if (minutes < 60) return fmt::format("{} min", minutes);
  return fmt::format("{} h {} min", minutes / 60, minutes % 60);
}

}  // namespace

int ExitCodeOf(const RunEnd& end) {
  switch (end.ending) {
    case Ending::kRead:
      return kSuccess;
    case Ending::kGaps:
      return kReadWithGaps;
    case Ending::kInterrupted:
      return kInterrupted;
    case Ending::kFailed:
      break;
  }
  return kFailed;
}

std::string IgnoredLine(const StreamCounts& counts) {
  if (counts.ignored == 0) return {};
  return fmt::format("irvela: {} of the stream made no sense\n", CountOf(counts.ignored, "piece"));
}

std::string ClockLine(const RunEnd& end) {
  if (!end.clock || !end.clock->beyond) return {};
  return fmt::format("irvela: warning: {}\n", ClockDifference(*end.clock));
}

std::string ReadingLine(const RunEnd& end, const std::string& out) {
  const std::string read =
      fmt::format("{} with {}{}", CountOf(end.counts.sections, "section"),
                  CountOf(end.counts.rows, "row"), out.empty() ? "" : ", kept in " + out);
  switch (end.ending) {
    case Ending::kRead:
      return fmt::format("irvela: read {}\n", read);
    case Ending::kGaps:
      return fmt::format("irvela: read {}, with gaps\n", read);
    case Ending::kInterrupted:
      return fmt::format("irvela: interrupted after {}\n", read);
    case Ending::kFailed:
      break;
  }
  return fmt::format("irvela: the reading failed after {}: {}\n", read, end.reason);
}

std::string FollowLine(const RunEnd& end, std::size_t rows, std::chrono::seconds elapsed,
                       const std::string& out) {
  const std::string read = fmt::format("{} in {}{}", CountOf(rows, "row"), TimeText(elapsed),
                                       out.empty() ? "" : ", kept in " + out);
  switch (end.ending) {
    case Ending::kRead:
    case Ending::kGaps:
      return fmt::format("irvela: read {}\n", read);
    case Ending::kInterrupted:
      return fmt::format("irvela: interrupted after {}\n", read);
    case Ending::kFailed:
      break;
  }
  return fmt::format("irvela: the reading failed after {}: {}\n", read, end.reason);
}

}  // namespace host
