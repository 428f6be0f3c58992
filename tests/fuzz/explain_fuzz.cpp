// Any bytes at all as what is to be explained: under libFuzzer, or as a test of recorded frames
// that are changed in some places, from a fixed seed. A crash, a hang, a sanitizer's report and a
// byte without a label are failures.
#include <cstdint>
#include <cstdlib>

#include "host/frames/feed.h"

namespace {

using host::ByteView;
using host::frames::Explainer;
using host::frames::Frame;
using host::frames::FrameFeed;

// Aborts unless every byte has a label.
void Check(const Frame& frame, ByteView bytes) {
  std::size_t at = frame.First();
  for (const auto& label : frame.labels) {
    if (label.first != at || label.count == 0 || label.name.empty()) std::abort();
    at += label.count;
  }
  if (at - frame.First() != bytes.size() || frame.summary.empty()) std::abort();
}

std::string ModelOf(unsigned choice) {
  const auto names = host::frames::ModelNames();
  return choice % 8 < names.size() ? names[choice % 8] : "";
}

}  // namespace

// A byte for the model, and pieces: a byte that says which way and how long, and its bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ByteView rest(data, size);
  if (rest.empty()) return 0;
  FrameFeed feed([](const Frame& frame, ByteView bytes, long long) { Check(frame, bytes); },
                 Explainer(host::frames::Protocol::kUnknown, ModelOf(rest[0])));
  rest = rest.subspan(1);
  while (!rest.empty()) {
    const unsigned way = rest[0] % 4;
    const std::size_t count = std::min<std::size_t>(rest[0] / 4U * 4U, rest.size() - 1);
    const ByteView piece = rest.subspan(1, count);
    if (way == 0) feed.Send(piece, 0);
    if (way == 3) feed.Drop(piece, 0);
    if (way == 1 || way == 2) feed.Receive(piece, 0);
    rest = rest.subspan(1 + count);
  }
  feed.Finish();
  Explainer explainer(host::frames::Protocol::kUnknown, ModelOf(data[0]));
  const ByteView all(data, size);
  for (const Frame& frame : explainer.Explain(all)) {
    Check(frame, all.subspan(frame.First(), frame.Size()));
  }
  return 0;
}

#if !defined(IRVELA_LIBFUZZER)
#include <doctest/doctest.h>

#include <random>

namespace {

using Bytes = std::vector<std::uint8_t>;

void Append(Bytes& bytes, const Bytes& more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

// Frames, whole and not, with pieces' heads between them by chance.
const Bytes kPieces[] = {
    {0x24, 0x10, 0x01, 0x52, 0xF3, 0x00, 0x06, 0x00, 0xB3, 0x16},
    {0x24, 0x10, 0x01, 0x45, 0x40, 0x00, 0x26, 0x00, 0x53, 0x16},
    {0x24, 0x10, 0x01, 0x48, 0x74, 0x03, 0x01, 0x05, 0x39, 0x16},
    {0x10, 0x01, 0x21, 0x03, 0xDA, 0x16},
    {0x10, 0x01, 0x3F, 0x54, 0x2A, 0x05, 0x3C, 0x16},
    {0x10, 0x01, 0x90, 0x01, 0x00, 0x05, 0x00, 0x3F, 0x00, 0x00, 0x00, 0x00, 0x53, 0x78},
    {0x10, 0x01, 0x90, 0x02, 0x00},
    {0x49, 0x08, 0x10, 0x04, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00},
    {0x30, 0x82, 0x01, 0x00},
    {0xFF, 0xFF, 0xFF},
    {0x16}};

}  // namespace

TEST_CASE("bytes of any kind are explained") {
  const char* const wanted = std::getenv("IRVELA_FUZZ_RUNS");
  const int runs = wanted != nullptr ? std::atoi(wanted) / 10 : 2000;
  REQUIRE(runs > 0);
  std::mt19937 random(523);
  const auto below = [&](std::size_t limit) { return random() % limit; };
  for (int run = 0; run < runs; ++run) {
    Bytes input = {static_cast<std::uint8_t>(random())};
    for (std::size_t pieces = below(30) + 1; pieces > 0; --pieces) {
      const std::size_t choice = below(16);
      Bytes piece = choice < std::size(kPieces) ? kPieces[choice] : Bytes(below(80) + 1);
      if (choice >= std::size(kPieces)) {
        for (auto& byte : piece) byte = static_cast<std::uint8_t>(random());
      }
      if (below(4) == 0) piece[below(piece.size())] ^= static_cast<std::uint8_t>(1U << below(8));
      Append(input, piece);
    }
    REQUIRE(LLVMFuzzerTestOneInput(input.data(), input.size()) == 0);
  }
}
#endif
