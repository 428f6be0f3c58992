// What the driver costs beside the line: an exchange in memory, and a whole reading over a pseudo
// terminal without the time that the port took.
#include <benchmark/benchmark.h>

#include <array>
#include <cstring>
#include <vector>

#include "TKSplDrv/records.h"
#include "bench/counting_host.h"
#include "driver/tkspl_drv.h"
#include "host/line/open_line.h"
#include "older/link/link.h"
#include "simulator/simulator.h"

namespace {

// Answers each request of nine bytes with the same reply.
class MemoryPort final : public HostPort {
 public:
  explicit MemoryPort(std::size_t dataSize) : reply_(dataSize + older::kReplyOverhead, 0x5A) {
    reply_[0] = older::kStartByte;
    older::Checksum(std::span(reply_).first(reply_.size() - 1));
    reply_.back() = older::kEndByte;
  }
  bool Control(int /*code*/) override { return true; }
  bool SetTimeouts(unsigned, unsigned, unsigned, unsigned, unsigned) override { return true; }
  void Reserved2() override {}
  bool SetLine(int, int, int, int, int, int) override { return true; }
  void Reserved4() override {}
  bool SetBuffers(int, int) override { return true; }
  int Read(unsigned /*timeoutMs*/, unsigned count, void* destination) override {
    std::memcpy(destination, reply_.data() + position_, count);
    position_ += count;
    return static_cast<int>(count);
  }
  int Write(const void* /*data*/, unsigned length) override {
    position_ = 0;
    return static_cast<int>(length);
  }

 private:
  std::vector<std::uint8_t> reply_;
  std::size_t position_ = 0;
};

void ExchangeInMemory(benchmark::State& state) {
  const auto size = static_cast<std::size_t>(state.range(0));
  MemoryPort port(size);
  bench::CountingStream stream;
  TKSplDrv driver(static_cast<HostStream*>(&stream), static_cast<HostPort*>(&port));
  older::Link link(driver);
  std::array<std::uint8_t, 255> data{};
  for ([[maybe_unused]] auto _ : state) {
    const auto error = link.ReadMemory(195, std::span(data).first(size));
    if (error != older::ExchangeError::kNone) state.SkipWithError("the exchange failed");
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(ExchangeInMemory)->Arg(6)->Arg(40)->Arg(64)->Arg(255);

// The hours of ten days, and what belongs to them.
void ReadingOverPseudoTerminal(benchmark::State& state) {
  simulator::Settings settings;
  settings.clock = simulator::ClockTime{2016, 3, 2, 12, 10, 0};
  const auto served = simulator::ServePty(settings, "");
  std::chrono::nanoseconds own{0};
  std::uint64_t requests = 0;
  for ([[maybe_unused]] auto _ : state) {
    const auto line = host::OpenLine("serial:" + served->Address());
    line->SetLine(1, 0, 2400, 8, 2, 0);
    bench::TimedPort port(*line);
    bench::CountingStream stream;
    TKSplDrv driver(static_cast<HostStream*>(&stream), static_cast<HostPort*>(&port));
    driver.SetupNumer('N', 1);
    driver.SetupReadGroup('H', true);
    driver.SetupDateTime({2016, 2, 0, 1}, {2016, 2, 0, 11});
    driver.mode = static_cast<int>(tav::Mode::kOlder);
    driver.stopRequest = 0;  // as Start leaves it
    const auto start = std::chrono::steady_clock::now();
    PollThread(&driver);
    const auto whole = std::chrono::steady_clock::now() - start;
    if (driver.GetPr() != 101) state.SkipWithError("the reading failed");
    own += whole - port.busy;
    requests += port.requests;
    state.SetIterationTime(std::chrono::duration<double>(whole).count());
  }
  state.counters["exchanges"] =
      benchmark::Counter(static_cast<double>(requests), benchmark::Counter::kAvgIterations);
  state.counters["own_us_per_exchange"] =
      static_cast<double>(own.count()) / 1000.0 / static_cast<double>(requests);
}
BENCHMARK(ReadingOverPseudoTerminal)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
