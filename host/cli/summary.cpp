#include "host/cli/summary.h"

#include <fmt/format.h>

#include "host/output/ranges.h"
#include "host/output/text.h"
#include "host/reading/patience.h"
#include "host/reading/periods.h"
#include "host/system/exit_codes.h"

namespace host {
namespace {

constexpr std::size_t kShownRanges = 10;  // of a section

// "; 3 of 744 records are missing (see above)"; empty when none is known to be.
std::string MissingPart(const RunEnd& end, const std::string& out) {
  std::size_t failed = 0;
  std::size_t expected = 0;
  for (const SectionAccount& account : end.accounts) {
    failed += account.failed;
    expected += account.expected;
  }
  if (failed == 0) return {};
  return fmt::format("; {} of {} {} missing (see above{})", failed, CountOf(expected, "record"),
                     failed == 1 ? "is" : "are", out.empty() ? "" : " and index.csv");
}

SectionAccount SumOfArchives(const RunEnd& end) {
  SectionAccount sum;
  for (const SectionAccount& account : end.accounts) {
    if (!PeriodOf(account.kind)) continue;
    sum.expected += account.expected;
    sum.received += account.received;
    sum.notHeld += account.notHeld;
    sum.failed += account.failed;
  }
  return sum;
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
  const std::string warning = ClockWarning(end);
  return warning.empty() ? "" : fmt::format("irvela: warning: {}\n", warning);
}

std::string MissingLines(const RunEnd& end) {
  std::string lines;
  for (const SectionAccount& account : end.accounts) {
    const std::string missing = MissingText(account, kShownRanges);
    if (missing.empty()) continue;
    lines += fmt::format("  {}: {}\n", SectionName(account.kind, account.section), missing);
  }
  return lines;
}

std::string ReadingLine(const RunEnd& end, const std::string& out) {
  const std::string read =
      fmt::format("{} with {}{}", CountOf(end.counts.sections, "section"),
                  CountOf(end.counts.rows, "row"), out.empty() ? "" : ", kept in " + out);
  const std::string missing = MissingPart(end, out);
  switch (end.ending) {
    case Ending::kRead:
      return fmt::format("irvela: read {}{}\n", read, missing);
    case Ending::kGaps:
      return fmt::format("irvela: read {}{}\n", read, missing.empty() ? ", with gaps" : missing);
    case Ending::kInterrupted:
      return fmt::format("irvela: interrupted after {}{}\n", read, missing);
    case Ending::kFailed:
      break;
  }
  return fmt::format("irvela: the reading failed after {}{}: {}\n", read, missing, end.reason);
}

std::string FillLine(const RunEnd& end) {
  const SectionAccount sum = SumOfArchives(end);
  std::string text = sum.expected == 0
                         ? "nothing to fill"
                         : fmt::format("filled {} of {} missing {}", sum.received, sum.expected,
                                       sum.expected == 1 ? "record" : "records");
  if (sum.notHeld > 0) text += fmt::format("; the instrument does not hold {}", sum.notHeld);
  if (sum.failed > 0)
    text += fmt::format("; {} {}", sum.failed, sum.failed == 1 ? "remains" : "remain");
  if (end.ending == Ending::kInterrupted) return fmt::format("irvela: interrupted: {}\n", text);
  if (end.ending != Ending::kFailed) return fmt::format("irvela: {}\n", text);
  return fmt::format("irvela: the reading failed: {}: {}\n", text, end.reason);
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
