// An instrument without its line: bytes in, replies out. No I/O, no waiting; the time comes from a
// function, so that a test drives an instrument directly.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "simulator/random.h"
#include "simulator/simulator.h"

namespace simulator {

using Bytes = std::vector<std::uint8_t>;
using Clock = std::function<ClockTime()>;

// A stretch of a reply and the silence that comes before it. A part with a silence starts after
// the host has given up waiting for the part before.
struct Part {
  std::chrono::milliseconds silence{0};
  Bytes bytes;
};

// A request and what the instrument answers; no parts: no answer.
struct Exchange {
  Bytes request;
  std::vector<Part> reply;
};

// One kind of fault: changes the reply of an exchange, which isn't empty.
struct FaultKind {
  // Which exchanges it strikes.
  enum When {
    kEveryNth,
    kAfterN,  // the next ones after N, as many as the fault is long
  };
  Choice choice;
  void (*apply)(Exchange& exchange, Random& random);
  When when = kEveryNth;
};

class Instrument {
 public:
  virtual ~Instrument() = default;
  // Bytes as they come from the line, in pieces of any size; one exchange per complete request.
  virtual std::vector<Exchange> Receive(std::span<const std::uint8_t> bytes) = 0;
  // The line was silent for longer than a request takes: what came of a request is dropped.
  virtual void Idle() = 0;
};

struct ModelInfo {
  Choice choice;
  std::span<const Choice> units{};  // codes of Special::unitsCode and what they mean
};

// What speaks one protocol.
struct Protocol {
  std::vector<ModelInfo> (*models)();
  std::span<const FaultKind> (*faults)();  // that only its instruments have
  // Throws std::invalid_argument when a setting is out of range. now is asked at each request.
  std::unique_ptr<Instrument> (*make)(const Settings& settings, Clock now);
};

}  // namespace simulator
