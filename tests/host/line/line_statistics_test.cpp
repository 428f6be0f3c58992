// What a line counts of what goes through, by a clock of the test's.
#include "host/line/line_statistics.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <utility>

#include "host/cli/line_summary.h"

namespace {

using std::chrono::milliseconds;

struct Instrument {
  std::string coming{};  // bytes of the next read
  std::string late{};    // that the next write throws away
  milliseconds takes{};  // that the next read lasts
  host::LineStatistics::Time now{};
};

class TestLine final : public host::LinePort {
 public:
  explicit TestLine(Instrument& instrument) : instrument_(instrument) {}
  bool Control(int) override { return true; }
  bool SetTimeouts(unsigned, unsigned, unsigned, unsigned, unsigned) override { return true; }
  bool SetLine(int, int, int, int, int, int) override { return true; }
  bool SetBuffers(int, int) override { return true; }
  int Read(unsigned, unsigned count, void* destination) override {
    instrument_.now += instrument_.takes;
    const std::size_t taken = std::min<std::size_t>(count, instrument_.coming.size());
    std::copy_n(instrument_.coming.begin(), taken, static_cast<char*>(destination));
    instrument_.coming.erase(0, taken);
    return static_cast<int>(taken);
  }
  int Write(const void*, unsigned length) override {
    dropped_ = std::exchange(instrument_.late, {});
    return static_cast<int>(length);
  }
  bool Lost() const override { return false; }
  std::string Trouble() const override { return {}; }
  std::string_view Dropped() const override { return dropped_; }

 private:
  Instrument& instrument_;
  std::string dropped_;
};

class Counted {
 public:
  Counted() { line_.SetLine(1, 0, 1100, 8, 2, 0); }  // 10 ms a byte
  void Ask(const std::string& request) {
    line_.Write(request.data(), static_cast<unsigned>(request.size()));
  }
  void Pause(int ms) { instrument_.now += milliseconds(ms); }
  void Wait(int ms, unsigned wanted, const std::string& coming) {
    char bytes[64];
    instrument_.takes = milliseconds(ms);
    instrument_.coming += coming;
    line_.Read(500, wanted, bytes);
  }
  void ComesLate(const std::string& bytes) { instrument_.late = bytes; }
  void Note(host::ReplyKind kind) { line_.Note(kind); }
  std::string Told() const {
    host::RunEnd end;
    end.lineCounts = line_.Counts();
    return host::LineLine(end);
  }

 private:
  Instrument instrument_;
  host::LineStatistics line_{std::make_unique<TestLine>(instrument_),
                             [this] { return instrument_.now; }};
};

}  // namespace

TEST_CASE("a line counts requests, what came of them and how long it took") {
  Counted line;
  CHECK(line.Told() == "");
  // Woken up, and asked; 30 ms of the request and 20 of the reply leave 70.
  line.Ask("\xFF");
  line.Wait(0, 0, "");
  line.Pause(100);
  line.Ask("ask");
  line.Wait(120, 2, "ok");
  CHECK(line.Told() ==
        "irvela: line: 1 request, 1 reply; 4 bytes out, 2 bytes in; 120 ms on the line (bytes "
        "alone 60 ms); reply 70 ms median, 70 ms worst\n");
  line.Pause(1000);
  line.Ask("ask");  // a retry: nobody has told that the reply was good
  line.Wait(500, 2, "o");
  line.Wait(500, 2, "");
  line.ComesLate("k");
  line.Ask("ask");
  line.Wait(100, 1, "o");
  line.Wait(10, 1, "k");
  line.Note(host::ReplyKind::kGood);
  line.Ask("ask");  // as a continuous reading does
  line.Wait(1060, 2, "ko");
  line.Note(host::ReplyKind::kWrongChecksum);
  line.Ask("ask");
  line.Wait(500, 1, "");
  CHECK(line.Told() ==
        "irvela: line: 5 requests, 4 replies, 3 retries, 2 time-outs, 1 wrong checksum, 1 late "
        "byte; 16 bytes out, 8 bytes in; 2.8 s on the line (bytes alone 240 ms); reply 70 ms "
        "median, 1.0 s worst\n");
}
