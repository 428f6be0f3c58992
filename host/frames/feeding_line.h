// A line whose bytes are told as frames while they pass.
#pragma once

#include <chrono>
#include <functional>

#include "host/frames/feed.h"
#include "host/line/wrapped_line.h"

namespace host::frames {

class FeedingLine final : public WrappedLine {
 public:
  using Now = std::function<std::chrono::steady_clock::time_point()>;

  // feed must outlive the line. Its times count from here on.
  FeedingLine(std::unique_ptr<LinePort> line, FrameFeed& feed,
              Now now = std::chrono::steady_clock::now)
      : WrappedLine(std::move(line)), now_(std::move(now)), begun_(now_()), feed_(feed) {}

  bool Control(int code) override;
  int Read(unsigned timeoutMs, unsigned count, void* destination) override;
  int Write(const void* data, unsigned length) override;

 private:
  // What is wrong with the feed is no trouble of the driver, which makes these calls.
  template <class Action>
  void Feed(Action action);
  void Drop();
  long long Elapsed() const;

  const Now now_;
  const std::chrono::steady_clock::time_point begun_;
  FrameFeed& feed_;
  bool broken_ = false;
};

}  // namespace host::frames
