#include "tests/support/fake_clock.h"

#include <mutex>

#include "platform/platform.h"

namespace {

constexpr SYSTEMTIME kStart{2016, 9, 0, 4, 13, 5, 9, 0};

struct State {
  std::mutex mutex;
  SYSTEMTIME now = kStart;
  std::vector<unsigned> pauses;
  std::function<void(unsigned)> hook;
};

State& Clock() {
  static State state;
  return state;
}

}  // namespace

namespace support::clock {

void Reset() {
  const std::lock_guard lock(Clock().mutex);
  Clock().now = kStart;
  Clock().pauses.clear();
  Clock().hook = nullptr;
}

void SetLocalTime(const SYSTEMTIME& time) {
  const std::lock_guard lock(Clock().mutex);
  Clock().now = time;
}

std::vector<unsigned> Pauses() {
  const std::lock_guard lock(Clock().mutex);
  return Clock().pauses;
}

void OnPause(std::function<void(unsigned)> hook) {
  const std::lock_guard lock(Clock().mutex);
  Clock().hook = std::move(hook);
}

}  // namespace support::clock

namespace platform {

void Sleep(unsigned milliseconds) {
  std::function<void(unsigned)> hook;
  {
    const std::lock_guard lock(Clock().mutex);
    Clock().pauses.push_back(milliseconds);
    hook = Clock().hook;
  }
  if (hook) hook(milliseconds);
  TerminationPoint();
}

SYSTEMTIME GetLocalTime() {
  const std::lock_guard lock(Clock().mutex);
  return Clock().now;
}

}  // namespace platform
