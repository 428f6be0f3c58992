#include "simulator/shared_line.h"

#include <utility>

namespace simulator {
namespace {

Bytes BytesOf(const std::vector<Part>& reply) {
  Bytes bytes;
  for (const Part& part : reply) bytes.insert(bytes.end(), part.bytes.begin(), part.bytes.end());
  return bytes;
}

// A zero of either wins, and no two begin at the same moment: the second one is a byte late.
void Collide(std::vector<Part>& reply, const std::vector<Part>& other) {
  Bytes together = BytesOf(reply);
  const Bytes late = BytesOf(other);
  if (together.size() < late.size() + 1) together.resize(late.size() + 1, 0xFF);
  for (std::size_t i = 0; i < late.size(); ++i) together[i + 1] &= late[i];
  reply = {{std::chrono::milliseconds(0), std::move(together)}};
}

class SharedLine final : public Instrument {
 public:
  explicit SharedLine(std::vector<std::unique_ptr<Instrument>> instruments)
      : instruments_(std::move(instruments)) {}

  // Byte by byte: whoever answers the same request does it at the same byte.
  std::vector<Exchange> Receive(std::span<const std::uint8_t> bytes) override {
    std::vector<Exchange> exchanges;
    for (std::size_t i = 0; i < bytes.size(); ++i) Take(bytes.subspan(i, 1), exchanges);
    return exchanges;
  }

  void Idle() override {
    for (const auto& instrument : instruments_) instrument->Idle();
  }

 private:
  void Take(std::span<const std::uint8_t> byte, std::vector<Exchange>& exchanges) {
    const std::size_t before = exchanges.size();
    for (const auto& instrument : instruments_) {
      for (Exchange& exchange : instrument->Receive(byte)) {
        if (exchange.reply.empty()) continue;
        if (exchanges.size() == before) {
          exchanges.push_back(std::move(exchange));
        } else {
          Collide(exchanges.back().reply, exchange.reply);
        }
      }
    }
  }

  std::vector<std::unique_ptr<Instrument>> instruments_;
};

}  // namespace

std::unique_ptr<Instrument> OnSharedLine(std::vector<std::unique_ptr<Instrument>> instruments) {
  return std::make_unique<SharedLine>(std::move(instruments));
}

}  // namespace simulator
