#include "host/cli/line_summary.h"

#include <fmt/format.h>

#include <chrono>

#include "host/fields/words.h"

namespace host {
namespace {

using std::chrono::milliseconds;

// "83 ms", "1.2 s", "6 min 2 s", "2 h 5 min".
std::string LengthText(milliseconds time) {
  const long long ms = time.count();
  const long long rounded = (ms + 500) / 1000;
  if (ms < 1000) return fmt::format("{} ms", ms);
  if (ms < 9950) return fmt::format("{:.1f} s", static_cast<double>(ms) / 1000);
  if (rounded < 60) return fmt::format("{} s", rounded);
  if (rounded < 3600) return fmt::format("{} min {} s", rounded / 60, rounded % 60);
  return fmt::format("{} h {} min", rounded / 3600, rounded / 60 % 60);
}

std::string BytesText(std::size_t bytes) {
  if (bytes < 1000) return CountOf(bytes, "byte");
  const double kilobytes = static_cast<double>(bytes) / 1000;
  return kilobytes < 999.95 ? fmt::format("{:.1f} KB", kilobytes)
                            : fmt::format("{:.1f} MB", kilobytes / 1000);
}

std::string TroubleText(const LineCounts& counts) {
  const FrameCounts frames = counts.frames.value_or(FrameCounts{});
  const struct {
    std::size_t count;
    const char* one;
    const char* many;
  } troubles[] = {{counts.retries, "retry", "retries"},
                  {counts.timeouts, "time-out", "time-outs"},
                  {frames.wrongChecksums, "wrong checksum", "wrong checksums"},
                  {frames.foreign, "foreign reply", "foreign replies"},
                  {frames.echoes, "echo", "echoes"},
                  {counts.lateBytes, "late byte", "late bytes"}};
  std::string text;
  for (const auto& trouble : troubles) {
    if (trouble.count == 0) continue;
    text += fmt::format(", {} {}", trouble.count, trouble.count == 1 ? trouble.one : trouble.many);
  }
  return text;
}

}  // namespace

std::string LineLine(const RunEnd& end) {
  if (!end.lineCounts || end.lineCounts->requests == 0) return {};
  const LineCounts& counts = *end.lineCounts;
  std::string text = fmt::format(
      "irvela: line: {}, {} {}{}; {} out, {} in; {} on the line (bytes alone {})",
      CountOf(counts.requests, "request"), counts.replies,
      counts.replies == 1 ? "reply" : "replies", TroubleText(counts), BytesText(counts.bytesOut),
      BytesText(counts.bytesIn), LengthText(counts.onLine), LengthText(counts.bytesAlone));
  if (counts.reply) {
    text += fmt::format("; reply {} median, {} worst", LengthText(counts.reply->median),
                        LengthText(counts.reply->worst));
  }
  return text + '\n';
}

}  // namespace host
