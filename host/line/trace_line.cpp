#include "host/line/trace_line.h"

#include <utility>

namespace host {
namespace {

TraceEvent CallOf(PortCall::Name name, std::array<long long, 6> arguments, std::string sent = {}) {
  TraceEvent event{.kind = TraceEvent::Kind::kCall};
  event.call = {name, arguments, std::move(sent)};
  return event;
}

}  // namespace

void TraceLine::BeginCall() {
  const std::lock_guard lock(mutex_);
  calling_ = true;
}

void TraceLine::AddState(TraceEvent& event) {
  event.lost = !std::exchange(lost_, Wrapped().Lost()) && lost_;
  std::string trouble = Wrapped().Trouble();
  if (trouble == trouble_) return;
  trouble_ = std::move(trouble);
  event.trouble = trouble_;
}

void TraceLine::EndCall(TraceEvent& event) {
  const std::lock_guard lock(mutex_);
  calling_ = false;
  AddState(event);
  event.stop = std::exchange(wanted_, StopCause::kNone);
  if (event.stop != StopCause::kNone) stop_();
  trace_.Add(std::move(event));
}

template <class Make>
int TraceLine::Record(TraceEvent event, Make make) {
  BeginCall();
  const int value = event.result.value = make(event);
  EndCall(event);
  return value;
}

bool TraceLine::Control(int code) {
  return Record(CallOf(PortCall::Name::kControl, {code}), [&](TraceEvent& event) {
           const bool done = Wrapped().Control(code);
           event.result.dropped = Wrapped().Dropped();
           return done;
         }) != 0;
}

bool TraceLine::SetTimeouts(unsigned readInterval, unsigned readPerByte, unsigned readConstant,
                            unsigned writePerByte, unsigned writeConstant) {
  return Record(CallOf(PortCall::Name::kTimeouts,
                       {readInterval, readPerByte, readConstant, writePerByte, writeConstant}),
                [&](TraceEvent&) {
                  return Wrapped().SetTimeouts(readInterval, readPerByte, readConstant,
                                               writePerByte, writeConstant);
                }) != 0;
}

bool TraceLine::SetLine(int unknown1, int unknown0, int baud, int dataBits, int parity,
                        int stopBits) {
  return Record(
             CallOf(PortCall::Name::kLine, {unknown1, unknown0, baud, dataBits, parity, stopBits}),
             [&](TraceEvent&) {
               return Wrapped().SetLine(unknown1, unknown0, baud, dataBits, parity, stopBits);
             }) != 0;
}

bool TraceLine::SetBuffers(int input, int output) {
  return Record(CallOf(PortCall::Name::kBuffers, {input, output}),
                [&](TraceEvent&) { return Wrapped().SetBuffers(input, output); }) != 0;
}

int TraceLine::Read(unsigned timeoutMs, unsigned count, void* destination) {
  return Record(CallOf(PortCall::Name::kRead, {timeoutMs, count}), [&](TraceEvent& event) {
    const int taken = Wrapped().Read(timeoutMs, count, destination);
    event.result.received.assign(static_cast<const char*>(destination),
                                 static_cast<std::size_t>(taken));
    return taken;
  });
}

int TraceLine::Write(const void* data, unsigned length) {
  std::string sent(static_cast<const char*>(data), length);
  return Record(CallOf(PortCall::Name::kWrite, {}, std::move(sent)), [&](TraceEvent& event) {
    const int written = Wrapped().Write(data, length);
    event.result.dropped = Wrapped().Dropped();
    return written;
  });
}

void TraceLine::BeginRun(const std::string& settings, const StopDriver& stop) {
  const std::lock_guard lock(mutex_);
  stop_ = stop;
  wanted_ = StopCause::kNone;
  waiting_ = false;
  TraceEvent event{.kind = TraceEvent::Kind::kBeginRun};
  event.settings = settings;
  trace_.Add(std::move(event));
}

StopCause TraceLine::Decide(StopCause wanted, const StopDriver& stop) {
  const std::lock_guard lock(mutex_);
  waiting_ = wanted_ != StopCause::kNone && !calling_;
  wanted_ = wanted;
  if (wanted == StopCause::kNone || !waiting_) return wanted;
  TraceEvent event{.kind = TraceEvent::Kind::kStop};
  event.stop = std::exchange(wanted_, StopCause::kNone);
  trace_.Add(std::move(event));
  stop();
  return wanted;
}

StopCause TraceLine::EndRun(bool obeyed, StopCause cause) {
  const std::lock_guard lock(mutex_);
  TraceEvent event{.kind = TraceEvent::Kind::kEndRun};
  event.obeyed = obeyed;
  event.stop = cause;
  AddState(event);
  trace_.Add(std::move(event));
  return cause;
}

}  // namespace host
