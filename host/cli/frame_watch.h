// What passes a line, as frames: counted, and shown while it happens.
#pragma once

#include <memory>

#include "host/frames/feeding_line.h"
#include "host/line/line_statistics.h"
#include "host/output/screen.h"

namespace host {

class FrameWatch {
 public:
  // screen must outlive it. shown: frames stand on it as they pass.
  FrameWatch(Screen& screen, bool shown);

  // The watch must outlive the line that it makes, of which there is one.
  std::unique_ptr<LinePort> Over(std::unique_ptr<LinePort> line, LineStatistics::Now now);

 private:
  void Take(const frames::Frame& frame, ByteView bytes, long long ms);

  Screen& screen_;
  const bool shown_;
  LineStatistics* statistics_ = nullptr;
  frames::FrameFeed feed_;
};

}  // namespace host
