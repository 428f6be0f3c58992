// What finding a K7 reply costs, byte by byte, beside one plain CRC pass over the same bytes.
#include <benchmark/benchmark.h>

#include <memory>
#include <random>
#include <vector>

#include "k7/link/crc.h"
#include "k7/link/frame_search.h"
#include "k7/link/frames.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint8_t kAddress = 1;
constexpr std::uint8_t kSequence = 1;
constexpr std::size_t kOverhead = 10;  // of a long frame, beside its data

// The first eight bytes of a reply with so many data bytes.
Bytes Start(std::size_t dataSize) {
  const std::size_t length = dataSize + 1;
  return {0x10,
          kAddress,
          0x90,
          kSequence,
          0,
          static_cast<std::uint8_t>(length & 0xFF),
          static_cast<std::uint8_t>(length >> 8),
          0x61};
}

// A reply of this size in all.
Bytes Reply(std::size_t size) {
  std::mt19937 random(1);
  Bytes frame = Start(size - kOverhead);
  while (frame.size() < size - 2) frame.push_back(static_cast<std::uint8_t>(random()));
  const std::uint16_t crc = k7::Crc16(std::span(frame).subspan(1));
  frame.push_back(static_cast<std::uint8_t>(crc >> 8));
  frame.push_back(static_cast<std::uint8_t>(crc & 0xFF));
  return frame;
}

// The same amount of bytes, but half of them before the reply: frame starts that claim to reach up
// to the end, as many as there is room for.
Bytes NoisyReply(std::size_t size) {
  Bytes noise;
  while (noise.size() + 8 <= size / 2) {
    const Bytes start = Start(size - noise.size() - kOverhead);
    noise.insert(noise.end(), start.begin(), start.end());
  }
  const Bytes reply = Reply(size - noise.size());
  noise.insert(noise.end(), reply.begin(), reply.end());
  return noise;
}

void Search(benchmark::State& state, const Bytes& bytes) {
  const auto search = std::make_unique<k7::LongFrameSearch>();
  const auto received = std::make_unique<k7::RxBuf>();
  for (auto _ : state) {
    search->Start(kAddress, kSequence, {});
    k7::SearchResult found;
    for (std::size_t i = 0; i < bytes.size() && found.command == 0; ++i) {
      (*received)[i] = bytes[i];
      found = search->FindLongFrame(*received, i);
    }
    if (found.command != 0x61) state.SkipWithError("the reply was not found");
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

std::size_t SizeOf(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

void CleanReply(benchmark::State& state) { Search(state, Reply(SizeOf(state))); }
void ReplyInNoise(benchmark::State& state) { Search(state, NoisyReply(SizeOf(state))); }

void PlainCrcPass(benchmark::State& state) {
  const Bytes bytes = Reply(SizeOf(state));
  for (auto _ : state) benchmark::DoNotOptimize(k7::Crc16(bytes));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

// The last one fills the receive buffer.
void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(1 << 10)->Arg(8 << 10)->Arg(k7::kReceiveLimit);
}

BENCHMARK(CleanReply)->Apply(Sizes);
BENCHMARK(ReplyInNoise)->Apply(Sizes);
BENCHMARK(PlainCrcPass)->Apply(Sizes);

}  // namespace

BENCHMARK_MAIN();
