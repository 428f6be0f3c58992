#include "simulator/faults.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>
#include <utility>

namespace simulator {
namespace {

std::size_t Length(const Exchange& exchange) {
  return std::accumulate(exchange.reply.begin(), exchange.reply.end(), std::size_t{0},
                         [](std::size_t sum, const Part& part) { return sum + part.bytes.size(); });
}

void NoReply(Exchange& exchange, Random&) { exchange.reply.clear(); }

// At least one byte arrives and at least one is missing.
void CutReply(Exchange& exchange, Random& random) {
  const std::size_t length = Length(exchange);
  std::size_t left = length < 2 ? 0 : 1 + random.Below(length - 1);
  for (Part& part : exchange.reply) {
    part.bytes.resize(std::min(part.bytes.size(), left));
    left -= part.bytes.size();
  }
}

void FlippedBit(Exchange& exchange, Random& random) {
  std::size_t position = random.Below(Length(exchange));
  for (Part& part : exchange.reply) {
    if (position < part.bytes.size()) {
      part.bytes[position] ^= static_cast<std::uint8_t>(1u << random.Below(8));
      return;
    }
    position -= part.bytes.size();
  }
}

void Noise(Exchange& exchange, Random& random) {
  Bytes noise(1 + random.Below(8));
  for (std::uint8_t& byte : noise) byte = random.Byte();
  Bytes& bytes = exchange.reply.front().bytes;
  bytes.insert(bytes.begin(), noise.begin(), noise.end());
}

constexpr FaultKind kLineFaults[] = {
    {{"no-reply", "the request is not answered"}, NoReply},
    {{"cut-reply", "the reply breaks off"}, CutReply},
    {{"flipped-bit", "one bit of the reply is wrong"}, FlippedBit},
    {{"noise", "up to eight random bytes come before the reply"}, Noise},
    {{"frozen", "after N replies the next requests are not answered: 240, or as frozen:N:REQUESTS"},
     NoReply,
     FaultKind::kAfterN},
};

const FaultKind* Find(std::span<const FaultKind> kinds, const std::string& name) {
  for (const FaultKind& kind : kinds) {
    if (name == kind.choice.name) return &kind;
  }
  return nullptr;
}

void CheckCount(const Fault& fault, int count) {
  if (count >= 1) return;
  throw std::invalid_argument("The fault " + fault.kind + " takes a count from 1 on.");
}

class FaultyInstrument : public Instrument {
 public:
  FaultyInstrument(std::unique_ptr<Instrument> instrument, std::span<const FaultKind> own,
                   const Settings& settings)
      : instrument_(std::move(instrument)), seed_(settings.seed) {
    for (const Fault& fault : settings.faults) Add(fault, own);
  }

  std::vector<Exchange> Receive(std::span<const std::uint8_t> bytes) override {
    std::vector<Exchange> exchanges = instrument_->Receive(bytes);
    for (Exchange& exchange : exchanges) {
      if (!exchange.reply.empty()) Disturb(exchange);
    }
    return exchanges;
  }

  void Idle() override { instrument_->Idle(); }

 private:
  struct Planned {
    const FaultKind* kind;
    std::uint64_t every, length;

    bool Strikes(std::uint64_t count) const {
      if (kind->when == FaultKind::kAfterN) return count > every && count <= every + length;
      return count % every == 0;
    }
  };

  void Add(const Fault& fault, std::span<const FaultKind> own) {
    const FaultKind* kind = Find(kLineFaults, fault.kind);
    if (!kind) kind = Find(own, fault.kind);
    if (!kind) throw std::invalid_argument("This instrument has no fault \"" + fault.kind + "\".");
    CheckCount(fault, fault.every);
    CheckCount(fault, fault.length);
    planned_.push_back(
        {kind, static_cast<std::uint64_t>(fault.every), static_cast<std::uint64_t>(fault.length)});
  }

  void Disturb(Exchange& exchange) {
    ++count_;
    Random random(Mix(seed_, count_));
    for (const Planned& fault : planned_) {
      if (fault.Strikes(count_) && Length(exchange) > 0) fault.kind->apply(exchange, random);
    }
  }

  std::unique_ptr<Instrument> instrument_;
  std::uint64_t seed_;
  std::uint64_t count_ = 0;
  std::vector<Planned> planned_;
};

}  // namespace

std::span<const FaultKind> LineFaults() { return kLineFaults; }

std::unique_ptr<Instrument> WithFaults(std::unique_ptr<Instrument> instrument,
                                       std::span<const FaultKind> own, const Settings& settings) {
  if (settings.faults.empty()) return instrument;
  return std::make_unique<FaultyInstrument>(std::move(instrument), own, settings);
}

}  // namespace simulator
