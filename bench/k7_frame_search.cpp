// What finding a K7 reply costs, byte by byte, beside one plain CRC pass over the same bytes.
#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>
#include <random>
#include <vector>

#include "k7/link/crc.h"
#include "k7/link/frame_search.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using Clock = std::chrono::steady_clock;

constexpr std::uint8_t kAddress = 1;
constexpr std::uint8_t kSequence = 1;

// A frame's first seven bytes; the frame has so many bytes in all.
Bytes Start(std::size_t size) {
  const std::size_t length = size - k7::kLongOverhead;
  return {0x10,
          kAddress,
          0x90,
          kSequence,
          0,
          static_cast<std::uint8_t>(length & 0xFF),
          static_cast<std::uint8_t>(length >> 8)};
}

Bytes Reply(std::size_t size) {
  std::mt19937 random(1);
  Bytes frame = Start(size);
  frame.push_back(0x61);
  while (frame.size() < size - 2) frame.push_back(static_cast<std::uint8_t>(random()));
  const std::uint16_t crc = k7::Crc16(std::span(frame).subspan(1));
  frame.push_back(static_cast<std::uint8_t>(crc >> 8));
  frame.push_back(static_cast<std::uint8_t>(crc & 0xFF));
  return frame;
}

// Frame starts one behind the other, which claim to end at the last byte, the last but one, ...
Bytes FrameStarts(std::size_t size) {
  Bytes bytes;
  for (std::size_t end = size; end >= bytes.size() + k7::kLongOverhead; --end) {
    const Bytes start = Start(end - bytes.size());
    bytes.insert(bytes.end(), start.begin(), start.end());
  }
  bytes.resize(size);
  return bytes;
}

// The bytes lie in the buffer, as the port puts them there.
void Search(benchmark::State& state, const Bytes& bytes) {
  const auto received = std::make_unique<k7::RxBuf>();
  std::copy(bytes.begin(), bytes.end(), received->begin());
  const std::size_t size = bytes.size();
  auto searching = Clock::duration::max(), summing = Clock::duration::max();
  for (auto _ : state) {
    const auto begin = Clock::now();
    k7::LongFrameSearch search(kAddress, kSequence, {});
    for (std::size_t i = 0; i < size; ++i) {
      if (search.FindLongFrame(*received, i).state == k7::SearchResult::State::kFound) break;
    }
    const auto found = Clock::now();
    benchmark::DoNotOptimize(k7::Crc16(bytes));
    summing = std::min(summing, Clock::now() - found);
    searching = std::min(searching, found - begin);
    state.SetIterationTime(std::chrono::duration<double>(found - begin).count());
  }
  state.counters["of_one_CRC_pass"] =
      static_cast<double>(searching.count()) / static_cast<double>(summing.count());
}

std::size_t SizeOf(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

void CleanReply(benchmark::State& state) { Search(state, Reply(SizeOf(state))); }
void NothingButStarts(benchmark::State& state) { Search(state, FrameStarts(SizeOf(state))); }

// The last one fills the receive buffer.
void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(300)->Arg(1 << 10)->Arg(8 << 10)->Arg(k7::kReceiveLimit)->UseManualTime();
}

BENCHMARK(CleanReply)->Apply(Sizes);
BENCHMARK(NothingButStarts)->Apply(Sizes);

}  // namespace

BENCHMARK_MAIN();
