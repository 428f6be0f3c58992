// Reading and writing with time limits over any of Asio's byte streams.
//
// The operations run on the thread that calls them, one at a time: each starts an asynchronous
// operation and a timer and lets the first of the two end the other.
#pragma once

#include <algorithm>
#include <array>
#include <asio.hpp>
#include <chrono>
#include <cstring>
#include <string>
#include <thread>
#include <utility>

#include "host/line/line_port.h"
#include "host/system/console.h"

namespace host {

template <class Stream>
class AsioPort : public LinePort {
 public:
  bool Control(int code) final;
  bool SetTimeouts(unsigned readInterval, unsigned readPerByte, unsigned readConstant,
                   unsigned writePerByte, unsigned writeConstant) final;
  bool SetBuffers(int /*input*/, int /*output*/) final { return true; }
  int Read(unsigned timeoutMs, unsigned count, void* destination) final;
  int Write(const void* data, unsigned length) final;

 protected:
  // name: what messages call the line; closed: what they say when its other end is gone.
  AsioPort(std::string name, const char* closed) : name_(std::move(name)), closed_(closed) {}

  const std::string& Name() const { return name_; }
  asio::io_context& Context() { return context_; }
  Stream& Line() { return stream_; }

  struct Outcome {
    asio::error_code error;  // operation_aborted: the time was over
    std::size_t count = 0;
  };
  // bit/s at which the line carries what is written.
  void SetSpeed(int baud) { baud_ = baud; }

  // start is called with the handler of an operation on Line().
  template <class Start>
  Outcome Within(std::chrono::milliseconds limit, Start start);

 private:
  static constexpr int kOpened = 5;
  static constexpr int kDropReceived = 3;
  static constexpr std::chrono::milliseconds kLostPause{20};
  static constexpr std::size_t kChunk = 4096;

  using Clock = std::chrono::steady_clock;

  // False when nothing came before the deadline.
  bool Receive(Clock::time_point deadline);
  std::size_t Received() const { return end_ - begin_; }
  void DropReceived();
  void Lose(const asio::error_code& error);
  void AddSent(std::size_t count);

  std::string name_;
  const char* closed_;
  asio::io_context context_;
  Stream stream_{context_};
  asio::steady_timer timer_{context_};
  int baud_ = 0;                   // 0: not known
  Clock::time_point sentAt_;       // when the last byte written has left a line of this speed
  unsigned writePerByte_ = 100;    // ms
  unsigned writeConstant_ = 1000;  // ms
  // Received and not yet asked for: buffer_[begin_] to buffer_[end_ - 1].
  std::string buffer_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
};

template <class Stream>
template <class Start>
typename AsioPort<Stream>::Outcome AsioPort<Stream>::Within(std::chrono::milliseconds limit,
                                                            Start start) {
  Outcome outcome;
  context_.restart();
  timer_.expires_after(limit);
  start([&](const asio::error_code& error, std::size_t count) {
    outcome = {error, count};
    timer_.cancel();
  });
  timer_.async_wait([&](const asio::error_code& error) {
    asio::error_code ignored;
    if (!error) stream_.cancel(ignored);
  });
  context_.run();
  return outcome;
}

template <class Stream>
void AsioPort<Stream>::Lose(const asio::error_code& error) {
  LinePort::Lose(name_ + ": " + (error == asio::error::eof ? closed_ : ErrorText(error)));
}

template <class Stream>
bool AsioPort<Stream>::Receive(Clock::time_point deadline) {
  if (begin_ == end_) begin_ = end_ = 0;
  buffer_.resize(end_ + kChunk);
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
  const Outcome outcome = Within(std::max(left, std::chrono::milliseconds(0)), [&](auto handler) {
    stream_.async_read_some(asio::buffer(buffer_.data() + end_, kChunk), handler);
  });
  end_ += outcome.count;
  if (outcome.error && outcome.error != asio::error::operation_aborted) {
    Lose(outcome.error);
  }
  return outcome.count > 0;
}

template <class Stream>
void AsioPort<Stream>::DropReceived() {
  // The second limit keeps a line that never falls silent from holding the driver here.
  const auto latest = Clock::now() + std::chrono::milliseconds(100);
  do {
    begin_ = end_ = 0;
  } while (!Lost() && Clock::now() < latest && Receive(Clock::now()));
  begin_ = end_ = 0;
}

template <class Stream>
bool AsioPort<Stream>::Control(int code) {
  if (code == kDropReceived || code == kOpened) DropReceived();
  return !Lost();
}

template <class Stream>
bool AsioPort<Stream>::SetTimeouts(unsigned /*readInterval*/, unsigned /*readPerByte*/,
                                   unsigned /*readConstant*/, unsigned writePerByte,
                                   unsigned writeConstant) {
  writePerByte_ = writePerByte;
  writeConstant_ = writeConstant;
  return true;
}

template <class Stream>
int AsioPort<Stream>::Read(unsigned timeoutMs, unsigned count, void* destination) {
  // A wait that takes nothing: the driver makes it after waking the instrument, pauses by itself
  // afterwards and drops what came in before its request, so there is nothing to wait for.
  if (count == 0) return 0;
  // A long request is still on its way when the system has taken all of it: the instrument's time
  // begins when it has the whole of it.
  const auto deadline = std::max(Clock::now(), sentAt_) + std::chrono::milliseconds(timeoutMs);
  while (Received() < count && !Lost() && Receive(deadline)) {
  }
  const std::size_t taken = std::min<std::size_t>(count, Received());
  if (taken > 0) std::memcpy(destination, buffer_.data() + begin_, taken);
  begin_ += taken;
  if (taken == 0 && Lost()) {
    std::this_thread::sleep_for(std::min(std::chrono::milliseconds(timeoutMs), kLostPause));
  }
  return static_cast<int>(taken);
}

template <class Stream>
int AsioPort<Stream>::Write(const void* data, unsigned length) {
  if (Lost()) return 0;
  const std::chrono::milliseconds limit(writeConstant_ + std::uint64_t{writePerByte_} * length);
  const Outcome outcome = Within(limit, [&](auto handler) {
    asio::async_write(stream_, asio::buffer(data, length), handler);
  });
  if (outcome.error && outcome.error != asio::error::operation_aborted) {
    Lose(outcome.error);
  }
  AddSent(outcome.count);
  return static_cast<int>(outcome.count);
}

template <class Stream>
void AsioPort<Stream>::AddSent(std::size_t count) {
  constexpr std::uint64_t kBitsPerByte = 11;
  if (baud_ <= 0) return;
  const std::chrono::microseconds onTheWay(count * kBitsPerByte * 1'000'000 /
                                           static_cast<std::uint64_t>(baud_));
  sentAt_ = std::max(Clock::now(), sentAt_) + onTheWay;
}

}  // namespace host
