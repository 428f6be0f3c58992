// A line whose bytes are told as frames while they pass.
#pragma once

#include <chrono>

#include "host/frames/feed.h"
#include "host/line/wrapped_line.h"

namespace host::frames {

class FeedingLine final : public WrappedLine {
 public:
  // feed must outlive the line. Its times count from here on.
  FeedingLine(std::unique_ptr<LinePort> line, FrameFeed& feed)
      : WrappedLine(std::move(line)), feed_(feed) {}

  bool Control(int code) override;
  int Read(unsigned timeoutMs, unsigned count, void* destination) override;
  int Write(const void* data, unsigned length) override;

 private:
  void Drop();
  long long Elapsed() const;

  const std::chrono::steady_clock::time_point begun_ = std::chrono::steady_clock::now();
  FrameFeed& feed_;
};

}  // namespace host::frames
