#include "host/cli/summary.h"

#include <fmt/format.h>

#include <cstdio>

#include "host/output/text.h"
#include "host/system/exit_codes.h"

namespace host {

void TellIgnored(const StreamCounts& counts) {
  if (counts.ignored == 0) return;
  fmt::print(stderr, "irvela: {} of the stream made no sense\n", CountOf(counts.ignored, "piece"));
}

int TellReading(const RunEnd& end, const std::string& out) {
  TellIgnored(end.counts);
  const std::string where = out.empty() ? "" : ", kept in " + out;
  const std::string read = fmt::format("{} with {}{}", CountOf(end.counts.sections, "section"),
                                       CountOf(end.counts.rows, "row"), where);
  switch (end.ending) {
    case Ending::kRead:
      fmt::print(stderr, "irvela: read {}\n", read);
      return kSuccess;
    case Ending::kInterrupted:
      fmt::print(stderr, "irvela: interrupted after {}\n", read);
      return kInterrupted;
    case Ending::kFailed:
      break;
  }
  fmt::print(stderr, "irvela: the reading failed after {}: {}\n", read, end.reason);
  return kFailed;
}

}  // namespace host
