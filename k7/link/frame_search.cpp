#include "k7/link/frame_search.h"

#include "k7/link/crc.h"

namespace k7 {
namespace {

using State = SearchResult::State;

// Neither search looks at anything before six bytes are there.
constexpr std::size_t kFirstLook = 5;
constexpr std::size_t kToStopByte = 4;

std::size_t LengthOf(const RxBuf& received, std::size_t start) {
  return received[start + kLengthAt] + 256U * received[start + kLengthAt + 1];
}

// The last byte of the frame that starts there.
std::size_t EndOf(const RxBuf& received, std::size_t start) {
  return start + LengthOf(received, start) + kLongOverhead - 1;
}

}  // namespace

// A frame ends here, or the length of one that may start six bytes back is complete.
SearchResult LongFrameSearch::Look(const RxBuf& received, std::size_t last) {
  const SearchResult result = last == nextEnd_ ? LookAtFrames(received, last) : SearchResult{};
  NoteStart(received, last - kToLengthEnd);
  lookAt_ = nextEnd_;
  for (std::size_t start = last; start > last - kToLengthEnd; --start) {
    if (received[start] == kStartByte) lookAt_ = std::min(nextEnd_, start + kToLengthEnd);
  }
  return result;
}

// From the first start on: of the frames that end here, and for the next end of one.
SearchResult LongFrameSearch::LookAtFrames(const RxBuf& received, std::size_t last) {
  nextEnd_ = kReceiveLimit;
  const std::size_t startsEnd = std::min(hiddenFrom_, last - kToLengthEnd);
  for (std::size_t start = 0; start < startsEnd; ++start) {
    if (!IsStart(received, start)) continue;
    const std::size_t end = EndOf(received, start);
    if (end > last) nextEnd_ = std::min(nextEnd_, end);
    if (end == last && IsReply(received, start, end)) return Found(received, start);
  }
  return {};
}

void LongFrameSearch::NoteStart(const RxBuf& received, std::size_t start) {
  if (start >= hiddenFrom_ || !IsStart(received, start)) return;
  nextEnd_ = std::min(nextEnd_, EndOf(received, start));
}

bool LongFrameSearch::IsStart(const RxBuf& received, std::size_t start) const {
  return received[start] == kStartByte && received[start + 1] == address_ &&
         received[start + 2] == kLongMarker && received[start + 3] == sequence_ &&
         received[start + 4] == 0;
}

// Bytes with their own checksum behind them sum up to 0.
bool LongFrameSearch::IsReply(const RxBuf& received, std::size_t start, std::size_t end) const {
  const auto frame = std::span(received).subspan(start, end + 1 - start);
  return Crc16(frame.subspan(1)) == 0 &&
         !std::equal(frame.begin(), frame.end(), request_.begin(), request_.end());
}

SearchResult LongFrameSearch::Found(const RxBuf& received, std::size_t start) {
  const std::uint8_t command = received[start + kCommandAt];
  if (command != 0) return {State::kFound, command, start + kDataAt, LengthOf(received, start)};
  hiddenFrom_ = start;
  return {};
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
