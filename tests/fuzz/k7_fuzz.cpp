// Any bytes at all as the line's and the instrument's part of a K7 reading: under libFuzzer, or as
// a test of inputs that look like replies, from a fixed seed. A crash, a hang or a sanitizer's
// report is a failure.
#include <algorithm>
#include <memory>
#include <span>
#include <vector>

#include "driver/reader.h"
#include "driver/tkspl_drv.h"
#include "k7/link/frames.h"
#include "k7/models/catalogue.h"
#include "tests/support/fake_clock.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

// The input, taken from its front; zeros behind its end.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

  std::uint8_t Byte() {
    const Bytes byte = Take(1);
    return byte.empty() ? std::uint8_t{0} : byte[0];
  }
  Bytes Take(std::size_t size) {
    const auto taken = rest_.first(std::min(size, rest_.size()));
    rest_ = rest_.subspan(taken.size());
    return {taken.begin(), taken.end()};
  }

 private:
  std::span<const std::uint8_t> rest_;
};

class DeafStream final : public HostStream {
 public:
  bool Message(const char*, const char*, unsigned) override { return true; }
  bool Write(const void*, unsigned) override { return true; }
};

// Answers each frame with the next bytes of the input, bare or as the data of a valid reply. Until
// the session is open it answers as an instrument does, unless the input wants that otherwise.
class Line final : public HostPort {
 public:
  Line(Input& input, bool second, bool tame) : input_(input), second_(second), tame_(tame) {}

  bool Control(int) override { return true; }
  bool SetTimeouts(unsigned, unsigned, unsigned, unsigned, unsigned) override { return true; }
  void Reserved2() override {}
  bool SetLine(int, int, int, int, int, int) override { return true; }
  void Reserved4() override {}
  bool SetBuffers(int, int) override { return true; }

  int Read(unsigned, unsigned count, void* destination) override {
    if (count == 0 || next_ == pending_.size()) return 0;
    *static_cast<std::uint8_t*>(destination) = pending_[next_++];
    return 1;
  }

  int Write(const void* data, unsigned length) override {
    const std::span request(static_cast<const std::uint8_t*>(data), length);
    next_ = 0;
    pending_ = request[0] == 0x10 ? Answer(request) : Bytes{};
    return static_cast<int>(length);
  }

 private:
  Bytes Answer(std::span<const std::uint8_t> request) {
    const bool isLong = request.size() > 9 && request[2] == 0x90;
    const std::uint8_t command = request[isLong ? 7 : 2];
    if (tame_ && isLong && requests_++ < 3) return Reply(request, command, Tame(command));
    const std::uint8_t how = input_.Byte();
    const Bytes bytes = input_.Take(input_.Byte() * ((how & 8) != 0 ? 64U : 1U));
    if ((how & 3) == 0 || !isLong) return bytes;
    return Reply(request, static_cast<std::uint8_t>(command ^ ((how >> 2) & 1)), bytes);
  }

  Bytes Tame(std::uint8_t command) const {
    if (command == 0x3F) return second_ ? Bytes{0x54, 0x2B, 0, 1} : Bytes{0x92, 0x29, 0, 1};
    return Bytes(16, 0);  // empty items
  }

  static Bytes Reply(std::span<const std::uint8_t> request, std::uint8_t command,
                     const Bytes& data) {
    k7::TxBuf frame;
    const auto fitting = std::span(data).first(std::min<std::size_t>(data.size(), 254));
    const auto built = k7::BuildLongFrame(frame, request[1], request[3], command, fitting);
    return {built.begin(), built.end()};
  }

  Input& input_;
  bool second_, tame_;
  int requests_ = 0;
  Bytes pending_;
  std::size_t next_ = 0;
};

void Read(Input& input) {
  const std::uint8_t kind = input.Byte();
  DeafStream stream;
  Line line(input, (kind & 1) != 0, (kind & 2) != 0);
  TKSplDrv driver(static_cast<HostStream*>(&stream), static_cast<HostPort*>(&line));
  driver.stopRequest = 0;
  driver.param[0] = 1 + ((kind >> 2) & 1);
  driver.numberN = (kind & 8) != 0 ? 0 : 1;
  driver.SetupDateTime({2016, 3, 0, 31, 23}, {2016, 4, 0, 1, 1});
  for (const char group : {'B', 'T', 'M', 'S', 'H'}) driver.SetupReadGroup(group, true);
  // A search without an end waits for the host.
  support::clock::Reset();
  support::clock::OnPause([&](unsigned milliseconds) {
    if (milliseconds < 100) driver.Stop();
  });
  MakeK7Reader(driver)->Run();
  support::clock::Reset();
}

// Records in a buffer that ends where the input does.
void Walk(Input& input, std::size_t size) {
  const Bytes bytes = input.Take(size);
  k7::TlvWalk items(bytes);
  k7::Stamp stamp;
  while (k7::SkipToRecord(items, bytes.size(), stamp) == k7::Found::kRecord) {
    for (const auto& table : {k7::kModel521.periodic, k7::kModel521.control}) {
      std::uint8_t space[k7::kLargestRecord];
      k7::Record record(space);
      k7::DecodeArchive(table.columns, table.closing, stamp.time, items, record);
    }
    std::uint8_t entry[k7::kEntrySize];
    items.ItemBytes(entry);
    items.ItemText();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  if (input.Byte() % 4 == 0) {
    Walk(input, size);
  } else {
    Read(input);
  }
  return 0;
}

#if !defined(IRVELA_LIBFUZZER)
#include <doctest/doctest.h>

#include <cstdlib>
#include <random>

// Frame starts, tags and lengths, honest and not, between bytes of any kind.
TEST_CASE("a K7 reading of bytes that no instrument sends") {
  static const Bytes kPieces[] = {{0x49, 0x08, 0x10, 0x04, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00},
                                  {0x30, 0x08},
                                  {0x30, 0x82, 0x01, 0x00},
                                  {0x30, 0x84, 0xFF, 0xFF, 0xFF, 0xFF},
                                  {0x09, 0x04, 0x00, 0x00, 0x80, 0x3F},
                                  {0x02, 0xFF},
                                  {0x49, 0x00},
                                  {0x10, 0x01, 0x90, 0x01, 0x00},
                                  {0x10, 0x00, 0x3F, 0xC0, 0x16, 0x00},
                                  {0x01, 0xFF},
                                  {0x09, 0xFF},
                                  {0x00}};
  const char* const wanted = std::getenv("IRVELA_FUZZ_RUNS");
  const int runs = wanted != nullptr ? std::atoi(wanted) : 100000;
  REQUIRE(runs > 0);
  std::mt19937 random(721);
  const auto below = [&](std::size_t limit) { return random() % limit; };
  for (int run = 0; run < runs; ++run) {
    Bytes input;
    for (std::size_t pieces = below(120) + 1; pieces > 0; --pieces) {
      const std::size_t choice = below(16);
      Bytes piece = choice < std::size(kPieces) ? kPieces[choice] : Bytes(below(20) + 1);
      if (choice >= std::size(kPieces)) {
        for (auto& byte : piece) byte = static_cast<std::uint8_t>(random());
      }
      input.insert(input.end(), piece.begin(), piece.end());
    }
    REQUIRE(LLVMFuzzerTestOneInput(input.data(), input.size()) == 0);
  }
}
#endif
