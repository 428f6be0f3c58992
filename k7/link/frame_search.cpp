#include "k7/link/frame_search.h"

#include <algorithm>

#include "k7/link/frames.h"

namespace k7 {
namespace {

using State = SearchResult::State;

// Offsets within a long frame.
constexpr std::size_t kLengthAt = 5;
constexpr std::size_t kCommandAt = 7;
constexpr std::size_t kDataAt = 8;
// From the start to the last byte of a long frame, beside its length.
constexpr std::size_t kToLongEnd = kLongOverhead - 1;

// Neither search looks at anything before six bytes are there.
constexpr std::size_t kFirstLook = 5;
constexpr std::size_t kToStopByte = 4;

std::size_t LengthOf(const RxBuf& received, std::size_t start) {
  return received[start + kLengthAt] + 256U * received[start + kLengthAt + 1];
}

}  // namespace

void LongFrameSearch::Start(std::uint8_t address, std::uint8_t sequence,
                            std::span<const std::uint8_t> request) {
  address_ = address;
  sequence_ = sequence;
  request_ = request;
  crc_ = {};
  hiddenFrom_ = kReceiveLimit;
  // Only the places that candidates took are cleared: the cost stays that of the bytes received.
  while (count_ > 0) endingAt_[candidates_[--count_].end] = 0;
}

bool LongFrameSearch::IsStart(const RxBuf& received, std::size_t start) const {
  return received[start] == kStartByte && received[start + 1] == address_ &&
         received[start + 2] == kLongMarker && received[start + 3] == sequence_ &&
         received[start + 4] == 0;
}

// With the byte at last the length of a frame that starts six bytes before it is complete.
void LongFrameSearch::NoteCandidate(const RxBuf& received, std::size_t last) {
  if (last < kLengthAt + 1) return;
  const std::size_t start = last - (kLengthAt + 1);
  if (start >= hiddenFrom_ || !IsStart(received, start)) return;
  const std::size_t end = start + LengthOf(received, start) + kToLongEnd;
  if (end >= kReceiveLimit) return;
  candidates_[count_] = {static_cast<std::uint16_t>(start), static_cast<std::uint16_t>(end),
                         recentCrc_[(start + 1) % recentCrc_.size()].Value(), endingAt_[end]};
  endingAt_[end] = static_cast<std::uint16_t>(++count_);
}

bool LongFrameSearch::IsEcho(const RxBuf& received, const Candidate& frame) const {
  const std::size_t size = std::size_t{frame.end} - frame.start + 1;
  return size == request_.size() &&
         std::equal(request_.begin(), request_.end(), received.begin() + frame.start);
}

// Later starts come first in the list, so the last valid one is the answer.
const LongFrameSearch::Candidate* LongFrameSearch::FirstValid(const RxBuf& received,
                                                              std::size_t last) const {
  std::size_t number = endingAt_[last];
  if (number == 0) return nullptr;
  const std::uint16_t crc = crc_.Value();
  const Candidate* first = nullptr;
  while (number != 0) {
    const Candidate& candidate = candidates_[number - 1];
    if (candidate.start < hiddenFrom_ && candidate.crcBefore == crc &&
        !IsEcho(received, candidate)) {
      first = &candidate;
    }
    number = candidate.next;
  }
  return first;
}

SearchResult LongFrameSearch::FindLongFrame(const RxBuf& received, std::size_t last) {
  recentCrc_[last % recentCrc_.size()] = crc_;
  crc_.Add(received[last]);
  NoteCandidate(received, last);
  const Candidate* const frame = FirstValid(received, last);
  if (frame == nullptr) return {};
  const std::uint8_t command = received[frame->start + kCommandAt];
  if (command == 0) {
    hiddenFrom_ = frame->start;
    return {};
  }
  return {State::kFound, command, frame->start + kDataAt, LengthOf(received, frame->start)};
}

void ShortFrameSearch::Start(std::uint8_t address) {
  address_ = address;
  hidden_ = false;
}

SearchResult ShortFrameSearch::FindShortFrame(const RxBuf& received, std::size_t last) {
  if (last < kFirstLook || hidden_) return {};
  const std::size_t first = last - kFirstLook;
  if (received[first] != kStartByte || received[first + 1] != address_) return {};

  // The stop byte's place stays where it is while the start moves on; from the third start on
  // nothing is left to sum up, and no later one could match.
  const std::size_t stop = first + kToStopByte;
  if (received[stop] != kStopByte) return {.state = State::kEndless};
  for (std::size_t start = first; start < first + 3; ++start) {
    const auto covered = std::span(received).subspan(start + 1, stop - start - 2);
    if (Checksum(covered) != received[stop - 1]) continue;
    const std::uint8_t command = received[start + 2];
    hidden_ = command == 0;
    return hidden_ ? SearchResult{} : SearchResult{State::kFound, command, start + 3, 0};
  }
  return {.state = State::kEndless};
}

}  // namespace k7
