#include "older/link/link.h"

#include <algorithm>
#include <utility>

#include "platform/platform.h"

namespace older {
namespace {

constexpr unsigned kReadLimit = 500;  // ms, of every read
constexpr int kWakeUpBytes = 16;
constexpr unsigned kWakeUpSpacing = 5;      // ms before each byte
constexpr unsigned kWakeUpSettling = 1000;  // ms
constexpr int kControlDrop = 3;
constexpr std::size_t kHeaderSize = 3;

}  // namespace

void Link::WakeUp() {
  const char wakeUp = '\xFF';
  for (int i = 0; i < kWakeUpBytes; ++i) {
    platform::Sleep(kWakeUpSpacing);
    if (driver_.WritePort(0, &wakeUp, 1) == 0) break;
  }
  Receive(0, 0);
  platform::Sleep(kWakeUpSettling);
}

ExchangeError Link::Send(const Request& request, LineControl control) {
  const auto frame = BuildRequest(static_cast<std::uint8_t>(driver_.numberN), request);
  if (control == LineControl::kCalled) {
    driver_.port->Control(kControlDrop);
    platform::TerminationPoint();
  }
  const auto* bytes = reinterpret_cast<const char*>(frame.data());
  const bool whole = driver_.WritePort(0, bytes, int{kRequestSize}) == kRequestSize;
  return whole ? ExchangeError::kNone : ExchangeError::kWrite;
}

ExchangeError Link::ReadReply(std::span<std::uint8_t> data) {
  reply_.fill(0);
  const std::size_t size = data.size();
  if (size + kReplyOverhead > reply_.size()) {
    driver_.MessageTav(nullptr, "error len buffer_rnb", "error", 0);
    return ExchangeError::kNoBuffer;
  }
  if (Receive(0, kHeaderSize) < int{kHeaderSize}) return ExchangeError::kNoHeader;
  if (reply_[2] == kErrorMark) return ReadErrorReply();
  const auto count = static_cast<unsigned>(size);
  if (Receive(kHeaderSize, count) < static_cast<int>(count)) return ExchangeError::kNoData;
  if (Receive(kHeaderSize + size, 2) < 2) return ExchangeError::kNoEnd;

  const std::uint8_t received = reply_[kHeaderSize + size];
  const auto checked = std::span(reply_).first(kHeaderSize + size + 1);
  if (Checksum(checked) != received) return ExchangeError::kChecksum;
  std::copy_n(reply_.begin() + kHeaderSize, size, data.begin());
  answered_ = true;
  return ExchangeError::kNone;
}

bool Link::TakeAnswered() { return std::exchange(answered_, false); }

ExchangeError Link::ReadErrorReply() {
  if (Receive(3, 1) < 1) return ExchangeError::kNoErrorCode;
  if (Receive(4, 2) < 2) return ExchangeError::kNoErrorEnd;
  return ErrorOfReply(reply_[3]);
}

int Link::ReadPlain(unsigned count) {
  reply_.fill(0);
  return Receive(0, count);
}

ExchangeError Link::ReadMemory(std::uint16_t address, std::span<std::uint8_t> data) {
  const auto count = static_cast<std::uint8_t>(data.size());
  const ExchangeError error = Send(MemoryRequest(address, count));
  return error != ExchangeError::kNone ? error : ReadReply(data);
}

ExchangeError Link::ReadFlash(std::uint16_t firstPage, std::span<std::uint8_t> pages) {
  std::fill(pages.begin(), pages.end(), std::uint8_t{0});
  const std::size_t count = pages.size() / kFlashPageSize;
  ExchangeError error = Send(FlashRequest(firstPage, static_cast<std::uint8_t>(count)));
  for (std::size_t page = 0; page < count && error == ExchangeError::kNone; ++page) {
    error = ReadReply(pages.subspan(page * kFlashPageSize, kFlashPageSize));
    if (error == ExchangeError::kNoErrorEnd) error = ExchangeError::kNone;
  }
  return error;
}

int Link::Receive(std::size_t position, unsigned count) {
  const int received = driver_.port->Read(kReadLimit, count, reply_.data() + position);
  platform::TerminationPoint();
  return received;
}

}  // namespace older
