#include "host/line/stream_line.h"

#include <fmt/format.h>

#include <algorithm>
#include <thread>
#include <utility>

#include "host/line/serial.h"

namespace host {
namespace {

using std::chrono::milliseconds;

constexpr int kOpened = 5;
constexpr int kDropReceived = 3;
constexpr milliseconds kDropLimit{100};
constexpr std::size_t kDroppedKept = 4096;
constexpr milliseconds kLostPause{20};
// A reply is over when the line was silent for so long; adapters hand bytes on every 16 ms. A line
// that never falls silent must not hold the driver.
constexpr milliseconds kSilence{40};
constexpr milliseconds kLateLimit{1000};
constexpr char kWakeUp = '\xFF';

}  // namespace

StreamLine::StreamLine(std::string name, std::unique_ptr<Channel> channel)
    : name_(std::move(name)), channel_(std::move(channel)) {}

std::string StreamLine::Trouble() const {
  {
    const std::lock_guard lock(mutex_);
    if (!trouble_.empty()) return trouble_;
  }
  const std::string now = channel_->Trouble();
  return now.empty() ? now : name_ + ": " + now;
}

void StreamLine::Note(const std::string& trouble) {
  const std::lock_guard lock(mutex_);
  if (trouble_.empty()) trouble_ = name_ + trouble;
}

void StreamLine::Lose(const std::string& trouble) {
  Note(": " + trouble);
  lost_ = true;
}

bool StreamLine::SetTimeouts(unsigned /*readInterval*/, unsigned /*readPerByte*/,
                             unsigned /*readConstant*/, unsigned writePerByte,
                             unsigned writeConstant) {
  writePerByte_ = writePerByte;
  writeConstant_ = writeConstant;
  return true;
}

bool StreamLine::SetLine(int /*unknown1*/, int /*unknown0*/, int baud, int dataBits, int parity,
                         int stopBits) {
  baud_ = baud;
  const std::string trouble = channel_->Set({baud, dataBits, parity, stopBits});
  if (trouble.empty()) return true;
  Note(fmt::format(" cannot be set to {} bit/s with {} data bits: {}", baud, dataBits, trouble));
  return false;
}

bool StreamLine::Control(int code) {
  dropped_ = {};
  if (code == kDropReceived || code == kOpened) {
    DropReceived();
    cleared_ = true;
  }
  return !Lost();
}

// The second limit keeps a line that never falls silent from holding the driver here.
void StreamLine::DropReceived() {
  const auto latest = Clock::now() + kDropLimit;
  do {
    KeepDropped();
  } while (!Lost() && Clock::now() < latest && Receive(Clock::now()));
}

void StreamLine::KeepDropped() {
  const auto kept = std::min(received_.size(), kDroppedKept - dropped_.size());
  dropped_.append(received_.data(), kept);
  received_ = {};
}

// Some questions are asked again without a Control between. What is left of the reply before, as
// the second page of the parameters of a 521, would be taken for the reply to come; it may still be
// on its way. A byte that wakes an instrument is no question: nothing answers it.
void StreamLine::DropLate(std::string_view question) {
  const bool again = question == asked_ && !question.ends_with(kWakeUp);
  asked_ = question;
  dropped_.clear();
  if (std::exchange(cleared_, false)) return;
  const milliseconds silence = again ? kSilence : milliseconds(0);
  const auto latest = Clock::now() + kLateLimit;
  do {
    KeepDropped();
  } while (!Lost() && Clock::now() < latest && Receive(Clock::now() + silence));
}

bool StreamLine::Receive(Clock::time_point deadline) {
  const Transfer came = channel_->Receive(buffer_, deadline);
  received_ = std::span(buffer_).first(came.count);
  if (!came.trouble.empty()) Lose(came.trouble);
  return came.count > 0;
}

std::size_t StreamLine::Take(std::span<char> into) {
  const std::size_t count = std::min(into.size(), received_.size());
  std::copy_n(received_.begin(), count, into.begin());
  received_ = received_.subspan(count);
  return count;
}

int StreamLine::Read(unsigned timeoutMs, unsigned count, void* destination) {
  cleared_ = false;
  // A wait that takes nothing: the driver makes it after waking the instrument, pauses by itself
  // afterwards and drops what came in before its request, so there is nothing to wait for.
  if (count == 0) return 0;
  const std::span into(static_cast<char*>(destination), count);
  std::size_t taken = Take(into);
  if (taken == count) return static_cast<int>(taken);
  // A long request is still on its way when the system has taken all of it: the instrument's time
  // begins when it has the whole of it.
  const auto deadline = std::max(Clock::now(), sentAt_) + milliseconds(timeoutMs);
  while (taken < count && !Lost() && Receive(deadline)) taken += Take(into.subspan(taken));
  if (taken == 0 && Lost()) {
    std::this_thread::sleep_for(std::min(milliseconds(timeoutMs), kLostPause));
  }
  return static_cast<int>(taken);
}

int StreamLine::Write(const void* data, unsigned length) {
  if (Lost()) return 0;
  const std::span bytes(static_cast<const char*>(data), length);
  DropLate({bytes.data(), bytes.size()});
  const milliseconds limit(writeConstant_ + std::uint64_t{writePerByte_} * length);
  const Transfer went = channel_->Send(bytes, Clock::now() + limit);
  if (!went.trouble.empty()) Lose(went.trouble);
  AddSent(went.count);
  return static_cast<int>(went.count);
}

void StreamLine::AddSent(std::size_t count) {
  constexpr std::uint64_t kBitsPerByte = 11;
  if (baud_ <= 0) return;
  const std::chrono::microseconds onTheWay(count * kBitsPerByte * 1'000'000 /
                                           static_cast<std::uint64_t>(baud_));
  sentAt_ = std::max(Clock::now(), sentAt_) + onTheWay;
}

}  // namespace host
