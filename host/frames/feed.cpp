#include "host/frames/feed.h"

#include <algorithm>

namespace host::frames {
namespace {

constexpr unsigned char kWakeUpByte = 0xFF;

void Append(Bytes& bytes, ByteView more) { bytes.insert(bytes.end(), more.begin(), more.end()); }

}  // namespace

void FrameFeed::Begin(Explainer explainer) {
  Finish();
  explainer_ = std::move(explainer);
}

void FrameFeed::Send(ByteView bytes, long long ms) {
  TellReceived();
  const bool wakeUp = std::all_of(bytes.begin(), bytes.end(),
                                  [](unsigned char byte) { return byte == kWakeUpByte; });
  if (wakeUp) {
    wakeUpMs_ = ms;
    return Append(wakeUp_, bytes);
  }
  TellWakeUp();
  TellAll(explainer_.Explain(bytes, Direction::kSent), bytes, ms);
}

void FrameFeed::Receive(ByteView bytes, long long ms) {
  if (bytes.empty()) return;
  TellWakeUp();
  Append(received_, bytes);
  receivedMs_ = ms;
  if (explainer_.IsWholeReply(received_)) TellReceived();
}

void FrameFeed::Drop(ByteView bytes, long long ms) {
  if (bytes.empty()) return;
  TellWakeUp();
  const std::size_t read = received_.size();
  Append(received_, bytes);
  TellAll(explainer_.ExplainDropped(received_, read), received_, ms);
  received_.clear();
}

void FrameFeed::Finish() {
  TellWakeUp();
  TellReceived();
}

void FrameFeed::TellWakeUp() {
  TellAll(explainer_.Explain(wakeUp_, Direction::kSent), wakeUp_, wakeUpMs_);
  wakeUp_.clear();
}

void FrameFeed::TellReceived() {
  TellAll(explainer_.Explain(received_, Direction::kReceived), received_, receivedMs_);
  received_.clear();
}

void FrameFeed::TellAll(const std::vector<Frame>& frames, ByteView bytes, long long ms) {
  for (const Frame& frame : frames) tell_(frame, bytes.subspan(frame.First(), frame.Size()), ms);
}

}  // namespace host::frames
