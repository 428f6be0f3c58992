// A line that counts what goes through.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "host/line/line_counts.h"
#include "host/line/wrapped_line.h"

namespace host {

// What came as a reply, for those who know frames.
enum class ReplyKind { kGood, kWrongChecksum, kForeign, kEcho };

// All calls but Counts come from the thread that makes the driver's; Counts between two runs.
class LineStatistics final : public WrappedLine {
 public:
  using Time = std::chrono::steady_clock::time_point;
  using Now = std::function<Time()>;

  LineStatistics(std::unique_ptr<LinePort> line, Now now)
      : WrappedLine(std::move(line)), now_(std::move(now)) {}

  bool Control(int code) override;
  bool SetLine(int unknown1, int unknown0, int baud, int dataBits, int parity,
               int stopBits) override;
  int Read(unsigned timeoutMs, unsigned count, void* destination) override;
  int Write(const void* data, unsigned length) override;

  std::optional<LineCounts> Counts() const override;

  // Of the reply to the request before, before the next one is written.
  void Note(ReplyKind kind);

 private:
  using Span = std::chrono::steady_clock::duration;

  // A request and what it brought.
  struct Exchange {
    std::string request{};
    bool written = false;  // all of it: what came is waited for
    bool replied = false;
    bool timedOut = false;
    bool good = false;
    Time begun{};  // when the last of it was given to the line
    Time ended{};  // when the last wait for its reply was over
  };

  Span NeededFor(std::size_t bytes) const;
  void BeginRequest();
  void EndRequest();
  void CountLate();
  void CountReply(std::size_t bytes, bool whole);
  Span OnLine() const { return current_.ended - current_.begun; }

  const Now now_;
  int baud_ = 0;       // bit/s; 0: not known
  Time sentAt_{};      // when what was written has left a line of this speed
  LineCounts counts_;  // but for the times
  Span onLine_{};      // without the current exchange
  Span bytesAlone_{};
  Exchange current_;
  std::string before_;  // the request before the current one, when it brought nothing good
  std::map<long long, std::size_t> replyTimes_;  // how often each came, ms
};

}  // namespace host
