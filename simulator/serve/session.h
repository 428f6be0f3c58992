// An instrument on an open line: takes what comes, answers at the line's speed.
#pragma once

#include <array>
#include <asio.hpp>
#include <chrono>
#include <deque>
#include <functional>
#include <utility>

#include "simulator/instrument.h"
#include "simulator/serve/pacer.h"

namespace simulator {

// Stream is an Asio stream socket or descriptor. Everything runs on the thread of its context.
template <class Stream>
class Session {
 public:
  // ended is called once nothing more can come from the line.
  Session(Stream stream, Instrument& instrument, int lineSpeed, std::function<void()> ended)
      : stream_(std::move(stream)),
        wait_(stream_.get_executor()),
        guard_(stream_.get_executor()),
        instrument_(instrument),
        pacer_(lineSpeed),
        ended_(std::move(ended)) {
    Listen();
  }

 private:
  // A gap that no request has inside. A host waits as long for a reply before it asks again.
  static constexpr std::chrono::milliseconds kIdle{450};
  // A host that takes nothing for so long loses the rest, as it would on a line.
  static constexpr std::chrono::seconds kStuck{2};

  void Listen() {
    stream_.async_read_some(asio::buffer(input_), [this](std::error_code error, std::size_t count) {
      if (error == asio::error::operation_aborted) return Listen();  // the guard came late
      if (error) return ended_();
      Take(count);
    });
  }

  void Take(std::size_t count) {
    const auto now = Pacer::Time::clock::now();
    if (now - heard_ > kIdle) instrument_.Idle();
    heard_ = now;
    pacer_.Received(now, count);
    for (Exchange& exchange : instrument_.Receive(std::span(input_).first(count))) {
      for (Part& part : exchange.reply) parts_.push_back(std::move(part));
    }
    Next();
  }

  // Starts the next part of the replies, or listens again.
  void Next() {
    if (parts_.empty()) return Listen();
    part_ = std::move(parts_.front().bytes);
    sent_ = 0;
    pacer_.Start(Pacer::Time::clock::now(), parts_.front().silence, part_.size());
    parts_.pop_front();
    Continue();
  }

  void Continue() {
    if (sent_ == part_.size()) return Next();
    wait_.expires_at(pacer_.Due(sent_ + 1));
    wait_.async_wait([this](std::error_code error) {
      if (!error) Send();
    });
  }

  // Sends what is due by now.
  void Send() {
    const std::size_t due = pacer_.DueBy(Pacer::Time::clock::now(), part_.size());
    guard_.expires_after(kStuck);
    guard_.async_wait([this](std::error_code error) {
      if (!error) stream_.cancel();
    });
    asio::async_write(stream_, asio::buffer(part_.data() + sent_, due - sent_),
                      [this, due](std::error_code error, std::size_t) {
                        guard_.cancel();
                        if (error && error != asio::error::operation_aborted) return ended_();
                        sent_ = error ? part_.size() : due;
                        Continue();
                      });
  }

  Stream stream_;
  asio::steady_timer wait_, guard_;
  Instrument& instrument_;
  Pacer pacer_;
  std::function<void()> ended_;
  std::array<std::uint8_t, 512> input_{};
  Pacer::Time heard_{};
  std::deque<Part> parts_;
  Bytes part_;
  std::size_t sent_ = 0;
};

}  // namespace simulator
