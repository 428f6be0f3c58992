#include "host/line/replay_line.h"

#include <fmt/format.h>

#include <algorithm>
#include <thread>

namespace host {
namespace {

using Kind = TraceEvent::Kind;

constexpr int kMostIdlePolls = 100;  // ten seconds

// What the trace has where something else was done.
std::string NameOf(const TraceEvent* event) {
  if (event == nullptr) return "its end";
  switch (event->kind) {
    case Kind::kBeginRun:
      return "a run of the driver with " + event->settings;
    case Kind::kCall:
      return Describe(event->call);
    case Kind::kStop:
      return "a stop";
    case Kind::kEndRun:
      break;
  }
  return "the end of the driver's run";
}

}  // namespace

const TraceEvent* ReplayLine::Next() const {
  return next_ < trace_.events.size() ? &trace_.events[next_] : nullptr;
}

// The next event happens. A stop is the last thing that does: the driver may look for it at once.
const TraceEvent& ReplayLine::Take() {
  const TraceEvent& event = trace_.events[next_++];
  ms_ = event.ms;
  if (event.trouble) trouble_ = *event.trouble;
  if (event.lost) lost_ = true;
  if (event.kind == Kind::kCall) ++calls_;
  if (event.stop != StopCause::kNone) {
    cause_ = event.stop;
    if (stop_) stop_();
  }
  return event;
}

std::string ReplayLine::Place() const {
  if (Next() == nullptr) return fmt::format("call {}", calls_ + 1);
  return fmt::format("call {} (line {}, {:.3f} s)", calls_ + 1, Next()->line,
                     static_cast<double>(Next()->ms) / 1000);
}

void ReplayLine::Depart(const std::string& what) {
  if (departed_) return;
  departed_ = true;
  if (stop_) stop_();
  lost_ = true;
  const bool cut = Next() == nullptr && !trace_.end;
  trouble_ =
      cut ? "the trace is cut before " + Place()
          : fmt::format("the replay departs from the trace at {}: the trace has {}, here came {}",
                        Place(), NameOf(Next()), what);
}

// Its driver was kept from the line, and does not know it.
const TraceEvent* ReplayLine::ForcedEnd() const {
  const TraceEvent* const next = Next();
  return next != nullptr && next->kind == Kind::kEndRun && !next->obeyed ? next : nullptr;
}

bool ReplayLine::RunsAreOver() const {
  const std::lock_guard lock(mutex_);
  return Next() == nullptr;
}

bool ReplayLine::Follow(const PortCall& call, CallResult& result) {
  const std::lock_guard lock(mutex_);
  if (departed_ || ForcedEnd() != nullptr) return false;
  while (Next() != nullptr && Next()->kind == Kind::kStop) Take();
  if (Next() == nullptr || Next()->kind != Kind::kCall || Next()->call != call) {
    Depart(Describe(call));
    return false;
  }
  result = Take().result;
  return true;
}

// A driver that is not followed any more must not use the processor until it is stopped.
CallResult ReplayLine::Repeat(const PortCall& call) {
  CallResult result;
  if (!Follow(call, result)) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  dropped_ = result.dropped;
  return result;
}

bool ReplayLine::Control(int code) { return RepeatFlag({PortCall::Name::kControl, {code}}); }

bool ReplayLine::SetTimeouts(unsigned readInterval, unsigned readPerByte, unsigned readConstant,
                             unsigned writePerByte, unsigned writeConstant) {
  return RepeatFlag({PortCall::Name::kTimeouts,
                     {readInterval, readPerByte, readConstant, writePerByte, writeConstant}});
}

bool ReplayLine::SetLine(int unknown1, int unknown0, int baud, int dataBits, int parity,
                         int stopBits) {
  return RepeatFlag(
      {PortCall::Name::kLine, {unknown1, unknown0, baud, dataBits, parity, stopBits}});
}

bool ReplayLine::SetBuffers(int input, int output) {
  return RepeatFlag({PortCall::Name::kBuffers, {input, output}});
}

int ReplayLine::Read(unsigned timeoutMs, unsigned count, void* destination) {
  const CallResult result = Repeat({PortCall::Name::kRead, {timeoutMs, count}});
  std::copy(result.received.begin(), result.received.end(), static_cast<char*>(destination));
  return result.value;
}

int ReplayLine::Write(const void* data, unsigned length) {
  std::string sent(static_cast<const char*>(data), length);
  return Repeat({PortCall::Name::kWrite, {}, std::move(sent)}).value;
}

std::string ReplayLine::Trouble() const {
  const std::lock_guard lock(mutex_);
  return trouble_;
}

void ReplayLine::BeginRun(const std::string& settings, const StopDriver& stop) {
  const std::lock_guard lock(mutex_);
  stop_ = stop;
  cause_ = StopCause::kNone;
  if (departed_) return;
  const bool same =
      Next() != nullptr && Next()->kind == Kind::kBeginRun && Next()->settings == settings;
  if (!same) return Depart("a run of the driver with " + settings);
  Take();
}

// The trace decides, but for a driver that departs from it or does not go on, and for records that
// are not taken here.
StopCause ReplayLine::Decide(StopCause wanted, const StopDriver& stop) {
  const std::lock_guard lock(mutex_);
  if (!departed_ && Next() != nullptr && Next()->kind == Kind::kStop) Take();
  idlePolls_ = next_ == lastNext_ ? idlePolls_ + 1 : 0;
  lastNext_ = next_;
  if (wanted == StopCause::kWaited && idlePolls_ > kMostIdlePolls) Depart("a driver that waits");
  StopCause cause = StopCause::kNone;
  if (wanted == StopCause::kRefused) cause = wanted;
  if (const TraceEvent* const end = ForcedEnd()) cause = end->stop;
  if (departed_) cause = StopCause::kLost;
  if (cause != StopCause::kNone) stop();
  return cause;
}

StopCause ReplayLine::EndRun(bool /*obeyed*/, StopCause cause) {
  const std::lock_guard lock(mutex_);
  stop_ = nullptr;
  if (departed_) return cause;
  while (Next() != nullptr && Next()->kind == Kind::kStop) ++next_;
  if (Next() == nullptr || Next()->kind != Kind::kEndRun) {
    Depart("the end of the driver's run");
    return cause;
  }
  Take();
  return cause_;
}

void ReplayLine::Finish() {
  const std::lock_guard lock(mutex_);
  if (Next() != nullptr || !trace_.end) Depart("the end of the reading");
}

void ReplayLine::Interrupt() {
  const std::lock_guard lock(mutex_);
  Depart("");
  trouble_ = "the replay was interrupted";
}

bool ReplayLine::Departed() const {
  const std::lock_guard lock(mutex_);
  return departed_;
}

StopCause ReplayLine::StoppedFor() const {
  const std::lock_guard lock(mutex_);
  return cause_;
}

}  // namespace host
