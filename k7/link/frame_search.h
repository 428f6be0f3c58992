// Finding the reply in the bytes that arrive. Both searches are told of each byte once and answer
// as if they had searched everything received so far from its beginning; their cost is
// proportional to the number of bytes, whatever these are.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "k7/link/crc.h"

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
class LongFrameSearch {
 public:
  // Begins an attempt. request: the frame that was sent; it stays where it is until the end.
  void Start(std::uint8_t address, std::uint8_t sequence, std::span<const std::uint8_t> request);
  // received[last] is the byte that arrived; called for last = 0, 1, 2, ... in turn.
  SearchResult FindLongFrame(const RxBuf& received, std::size_t last);

 private:
  // A frame start whose last byte has not arrived yet.
  struct Candidate {
    std::uint16_t start;
    std::uint16_t end;        // index of the frame's last byte
    std::uint16_t crcBefore;  // the stream's CRC before the first covered byte
    std::uint16_t next;       // 1 + the index of the one noted before it that ends at the same byte
  };
  // A start needs at least three bytes until the next one can follow.
  static constexpr std::size_t kMostCandidates = kReceiveLimit / 3 + 1;

  bool IsStart(const RxBuf& received, std::size_t start) const;
  void NoteCandidate(const RxBuf& received, std::size_t last);
  const Candidate* FirstValid(const RxBuf& received, std::size_t last) const;
  bool IsEcho(const RxBuf& received, const Candidate& frame) const;

  std::uint8_t address_ = 0;
  std::uint8_t sequence_ = 0;
  std::span<const std::uint8_t> request_;
  StreamCrc crc_;
  std::array<StreamCrc, 8> recentCrc_{};    // before each of the last eight bytes, by index mod 8
  std::size_t hiddenFrom_ = kReceiveLimit;  // starts from here on are no longer looked at
  std::size_t count_ = 0;
  std::array<Candidate, kMostCandidates> candidates_{};
  std::array<std::uint16_t, kReceiveLimit> endingAt_{};  // 1 + index of a candidate; 0: none
};

// Short frames with the address of the request. The stop byte is sought at one place only, four
// bytes behind the start, so that only replies without data can be found; with any other byte
// there the search does not come to an end. Both are intended.
class ShortFrameSearch {
 public:
  void Start(std::uint8_t address);
  SearchResult FindShortFrame(const RxBuf& received, std::size_t last);

 private:
  std::uint8_t address_ = 0;
  bool hidden_ = false;  // a valid frame with command 0 was met
};

}  // namespace k7
