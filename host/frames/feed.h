// What passes a port, as frames: for those who show it while it happens, and those who count.
#pragma once

#include <functional>

#include "host/frames/explain.h"

namespace host::frames {

class FrameFeed {
 public:
  // bytes: of the frame; ms: when the last of them passed.
  using Tell = std::function<void(const Frame& frame, ByteView bytes, long long ms)>;

  explicit FrameFeed(Tell tell, Explainer explainer = Explainer())
      : tell_(std::move(tell)), explainer_(std::move(explainer)) {}

  // What follows has nothing to do with what was before.
  void Begin(Explainer explainer);
  // What the driver writes. Received bytes that make no whole frame are told before it.
  void Send(ByteView bytes, long long ms);
  // What it reads, in pieces of any size: a reply is told as soon as it is whole.
  void Receive(ByteView bytes, long long ms);
  // What was not read and thrown away before a request. It is told together with what was read
  // before it, so that a frame behind noise is seen whole.
  void Drop(ByteView bytes, long long ms);
  // At the end.
  void Finish();

 private:
  void TellWakeUp();
  void TellReceived();
  void TellAll(const std::vector<Frame>& frames, ByteView bytes, long long ms);

  Tell tell_;
  Explainer explainer_;
  Bytes wakeUp_;    // some drivers write it byte by byte
  Bytes received_;  // since the last whole frame
  long long wakeUpMs_ = 0;
  long long receivedMs_ = 0;
};

}  // namespace host::frames
