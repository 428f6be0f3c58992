#include "tests/fuzz/k7_fuzz.h"

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

  bool Empty() const { return rest_.empty(); }
  std::uint8_t Byte() {
    if (rest_.empty()) return 0;
    const std::uint8_t byte = rest_.front();
    rest_ = rest_.subspan(1);
    return byte;
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
    pending_.clear();
    next_ = 0;
    if (request[0] == 0x10) Answer(request);
    return static_cast<int>(length);
  }

 private:
  void Answer(std::span<const std::uint8_t> request) {
    const bool isLong = request.size() > 9 && request[2] == 0x90;
    const std::uint8_t command = request[isLong ? 7 : 2];
    if (tame_ && isLong && requests_++ < 3) return Reply(request, command, Tame(command));
    const std::uint8_t how = input_.Byte();
    const std::size_t size = input_.Byte() * ((how & 8) != 0 ? 64U : 1U);
    Bytes bytes = input_.Take(size);
    if ((how & 3) == 0 || !isLong) {
      pending_ = std::move(bytes);
    } else {
      Reply(request, (how & 4) != 0 ? static_cast<std::uint8_t>(command ^ 1) : command, bytes);
    }
  }

  Bytes Tame(std::uint8_t command) const {
    if (command == 0x3F && second_) return {0x54, 0x2B, 0, 1};
    if (command == 0x3F) return {0x92, 0x29, 0, 1};
    return Bytes(16, 0);  // empty items
  }

  void Reply(std::span<const std::uint8_t> request, std::uint8_t command, const Bytes& data) {
    k7::TxBuf frame;
    const auto fitting = std::span(data).first(std::min<std::size_t>(data.size(), 254));
    const auto built = k7::BuildLongFrame(frame, request[1], request[3], command, fitting);
    pending_.assign(built.begin(), built.end());
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
  driver.dateFrom = {2016, 3, 0, 31, 23, 0, 0, 0};
  driver.dateTo = {2016, 4, 0, 1, 1, 0, 0, 0};
  for (const char group : {'B', 'T', 'M', 'S', 'H'}) driver.SetupReadGroup(group, true);
  // A search without an end waits for the host.
  support::clock::Reset();
  support::clock::OnPause([&](unsigned milliseconds) {
    if (milliseconds < 100) driver.Stop();
  });
  const std::unique_ptr<Reader> reader = MakeK7Reader(driver);
  reader->Run();
  support::clock::Reset();
}

// Records in a buffer that ends where the input does.
void Walk(Input& input, std::size_t size) {
  const Bytes bytes = input.Take(size);
  const std::size_t claimed = bytes.size() + input.Byte();
  k7::TlvWalk items(bytes);
  k7::Stamp stamp;
  while (k7::SkipToRecord(items, claimed, stamp) == k7::Found::kRecord) {
    for (const auto& table : {k7::kModel521.periodic, k7::kModel521.control}) {
      std::uint8_t space[k7::kLargestRecord];
      k7::Record record(space);
      k7::DecodeArchive(table.columns, table.closing, stamp.time, items, record);
    }
    std::uint8_t entry[50];
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
