#include "host/line/line_statistics.h"

#include <algorithm>

namespace host {
namespace {

using std::chrono::milliseconds;

milliseconds Rounded(std::chrono::steady_clock::duration time) {
  return std::chrono::round<milliseconds>(time);
}

std::optional<ReplyTimes> TimesOf(const std::map<long long, std::size_t>& times,
                                  std::size_t total) {
  if (times.empty()) return std::nullopt;
  std::size_t before = 0;
  auto median = times.begin();
  while ((before += median->second) * 2 < total) ++median;
  return ReplyTimes{milliseconds(median->first), milliseconds(times.rbegin()->first)};
}

}  // namespace

// A byte is a start bit, eight data bits, parity and a stop bit.
LineStatistics::Span LineStatistics::NeededFor(std::size_t bytes) const {
  constexpr long long kBitsPerByte = 11;
  if (baud_ <= 0) return {};
  return std::chrono::nanoseconds(static_cast<long long>(bytes) * kBitsPerByte * 1'000'000'000 /
                                  baud_);
}

bool LineStatistics::Control(int code) {
  const bool done = Wrapped().Control(code);
  CountLate();
  return done;
}

bool LineStatistics::SetLine(int unknown1, int unknown0, int baud, int dataBits, int parity,
                             int stopBits) {
  baud_ = baud;
  return Wrapped().SetLine(unknown1, unknown0, baud, dataBits, parity, stopBits);
}

void LineStatistics::CountLate() {
  const std::size_t late = Wrapped().Dropped().size();
  counts_.lateBytes += late;
  counts_.bytesIn += late;
  bytesAlone_ += NeededFor(late);
}

// What is written in several pieces, such as the bytes that wake an instrument up and the request
// behind them, is one request; the pauses between them are none of the line.
int LineStatistics::Write(const void* data, unsigned length) {
  const int written = Wrapped().Write(data, length);
  CountLate();
  EndRequest();
  const Time now = now_();
  const auto bytes = static_cast<std::size_t>(written);
  current_.request.append(static_cast<const char*>(data), length);
  // Bytes of the wake-up: no request begins with one.
  current_.request.erase(0, current_.request.find_first_not_of('\xFF'));
  current_.begun = current_.ended = now;
  sentAt_ = std::max(now, sentAt_) + NeededFor(bytes);
  counts_.bytesOut += bytes;
  bytesAlone_ += NeededFor(bytes);
  return written;
}

void LineStatistics::EndRequest() {
  onLine_ += OnLine();
  current_.ended = current_.begun;
  if (!current_.written) return;
  before_ = current_.good ? std::string() : std::move(current_.request);
  current_ = {};
}

void LineStatistics::BeginRequest() {
  if (current_.written || current_.request.empty()) return;
  current_.written = true;
  ++counts_.requests;
  if (current_.request == before_) ++counts_.retries;
}

int LineStatistics::Read(unsigned timeoutMs, unsigned count, void* destination) {
  const int taken = Wrapped().Read(timeoutMs, count, destination);
  if (count == 0) return taken;
  BeginRequest();
  current_.ended = now_();
  const auto bytes = static_cast<std::size_t>(taken);
  CountReply(bytes, bytes == count);
  counts_.bytesIn += bytes;
  bytesAlone_ += NeededFor(bytes);
  return taken;
}

// A read ends with its last byte; the first one came as much earlier as the line needs for all of
// them. One that ended with its time limit does not tell when anything came.
void LineStatistics::CountReply(std::size_t bytes, bool whole) {
  if (!current_.written) return;
  if (!whole && !current_.timedOut && !Lost()) {
    current_.timedOut = true;
    ++counts_.timeouts;
  }
  if (bytes == 0 || current_.replied) return;
  current_.replied = true;
  ++counts_.replies;
  if (!whole) return;
  const Span time = std::max(Span(0), current_.ended - NeededFor(bytes) - sentAt_);
  ++replyTimes_[Rounded(time).count()];
}

void LineStatistics::Note(ReplyKind kind) {
  if (!counts_.frames) counts_.frames.emplace();
  current_.good = current_.good || kind == ReplyKind::kGood;
  if (kind == ReplyKind::kWrongChecksum) ++counts_.frames->wrongChecksums;
  if (kind == ReplyKind::kForeign) ++counts_.frames->foreign;
  if (kind == ReplyKind::kEcho) ++counts_.frames->echoes;
}

std::optional<LineCounts> LineStatistics::Counts() const {
  LineCounts counts = counts_;
  counts.onLine = Rounded(onLine_ + OnLine());
  counts.bytesAlone = Rounded(bytesAlone_);
  std::size_t timed = 0;
  for (const auto& [time, times] : replyTimes_) timed += times;
  counts.reply = TimesOf(replyTimes_, timed);
  return counts;
}

}  // namespace host
