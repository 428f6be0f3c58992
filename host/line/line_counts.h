// What a line carried in a reading.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>

namespace host {

struct ReplyTimes {
  std::chrono::milliseconds median{};
  std::chrono::milliseconds worst{};
};

// What only those tell who know frames.
struct FrameCounts {
  std::size_t wrongChecksums = 0;
  std::size_t foreign = 0;  // replies of another instrument
  std::size_t echoes = 0;   // requests that the line repeated
};

struct LineCounts {
  std::size_t requests = 0;
  std::size_t replies = 0;   // requests that brought bytes, good or not
  std::size_t retries = 0;   // requests that repeat the one before, which brought nothing good
  std::size_t timeouts = 0;  // requests that brought less than was waited for
  std::size_t lateBytes = 0;
  std::size_t bytesOut = 0;
  std::size_t bytesIn = 0;  // the late ones among them
  // From each request to the end of the wait for its reply, and what the bytes of both ways need at
  // the speed of the line.
  std::chrono::milliseconds onLine{};
  std::chrono::milliseconds bytesAlone{};
  std::optional<ReplyTimes> reply{};    // none: nothing came
  std::optional<FrameCounts> frames{};  // none: nobody told
};

}  // namespace host
