// Finding the reply in the bytes that arrive. A search is made for one attempt. It is told of each
// byte once and returns what a search through everything received so far would find.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "k7/link/frames.h"

namespace k7 {

// The most bytes that one attempt takes, and the most that a reply holds.
inline constexpr std::size_t kReceiveLimit = 65535;

using RxBuf = std::array<std::uint8_t, kReceiveLimit>;

struct SearchResult {
  enum class State {
    kNothing,  // nothing yet
    kFound,
    kEndless,  // no further byte changes anything: the search does not come to an end
  };

  State state = State::kNothing;
  std::uint8_t command = 0;  // never 0 when found
  std::size_t dataAt = 0;    // index of the first data byte
  std::size_t length = 0;    // of the data, as it is reported
};

// Long frames that carry the address and the sequence number of the request.
//
// - The length reported is one more than the data's and takes the first CRC byte along: intended.
// - A frame that repeats the request byte for byte is the line's echo and no reply.
// - A valid frame with command 0 is never a reply and hides everything that starts behind it, for
//   the rest of the attempt: intended.
// - Of several frames that end with the same byte, the one that starts first counts.
//
// A byte costs two comparisons, and each frame start one checksum of the frame that it claims, when
// that frame's last byte is there. The reply of an instrument is one start. At worst 9362 starts,
// one behind the other in 65535 bytes, claim everything behind them: 3 * 10^8 steps of the checksum
// in an attempt, about a second.
class LongFrameSearch {
 public:
  // request: the frame that was sent; it outlives the search.
  LongFrameSearch(std::uint8_t address, std::uint8_t sequence,
                  std::span<const std::uint8_t> request)
      : address_(address), sequence_(sequence), request_(request) {}

  // received[last] is the byte that arrived; called for last = 0, 1, 2, ... in turn.
  SearchResult FindLongFrame(const RxBuf& received, std::size_t last) {
    if (received[last] == kStartByte) lookAt_ = std::min(lookAt_, last + kToLengthEnd);
    return last == lookAt_ ? Look(received, last) : SearchResult{};
  }

 private:
  // From a frame's start to the last byte of its length.
  static constexpr std::size_t kToLengthEnd = 6;

  SearchResult Look(const RxBuf& received, std::size_t last);
  SearchResult LookAtFrames(const RxBuf& received, std::size_t last);
  void NoteStart(const RxBuf& received, std::size_t start);
  bool IsStart(const RxBuf& received, std::size_t start) const;
  bool IsReply(const RxBuf& received, std::size_t start, std::size_t end) const;
  SearchResult Found(const RxBuf& received, std::size_t start);

  std::uint8_t address_;
  std::uint8_t sequence_;
  std::span<const std::uint8_t> request_;
  std::size_t lookAt_ = kReceiveLimit;      // the byte at which there is something to do
  std::size_t nextEnd_ = kReceiveLimit;     // the next byte that ends a frame that has started
  std::size_t hiddenFrom_ = kReceiveLimit;  // starts from here on are no longer looked at
};

// Short frames with the address of the request. The stop byte is sought at one place only, four
// bytes behind the start, so that only replies without data can be found; with any other byte
// there the search does not come to an end. Both are intended.
class ShortFrameSearch {
 public:
  explicit ShortFrameSearch(std::uint8_t address) : address_(address) {}

  SearchResult FindShortFrame(const RxBuf& received, std::size_t last);

 private:
  std::uint8_t address_;
  bool hidden_ = false;  // a valid frame with command 0 was met
};

}  // namespace k7
