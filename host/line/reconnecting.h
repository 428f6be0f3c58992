// A connection that is made again when the gateway has closed it.
#pragma once

#include <atomic>
#include <functional>
#include <future>
#include <mutex>
#include <optional>

#include "host/line/channel.h"
#include "host/line/serial.h"

namespace host {

// What is to be told to a person, without a program's name in front; from any thread.
using LineReport = std::function<void(const std::string& text)>;

// Whoever waits for a reply gets nothing more when the connection ends. The next request waits for
// another connection, however long that takes, until Hurry; what comes over the new one before the
// request is thrown away, since it may be the rest of the reply that was broken off.
class Reconnecting final : public Channel {
 public:
  // Throws std::runtime_error with one sentence; called from a thread of its own, but for the first
  // time.
  using Open = std::function<std::unique_ptr<Channel>()>;

  Reconnecting(Open open, LineReport report);

  Transfer Receive(std::span<char> into, Clock::time_point deadline) override;
  Transfer Send(std::span<const char> bytes, Clock::time_point deadline) override;
  std::string Set(const SerialSettings& settings) override;
  void Hurry(bool hurry) override { hurried_ = hurry; }
  std::string Trouble() const override;

 private:
  struct Opened {
    std::unique_ptr<Channel> channel;
    std::string trouble;  // not empty: it is of no use
  };

  void Break(const std::string& trouble);
  bool Connect();
  void Begin();
  bool Finish();
  void DropOld();
  void SetTrouble(const std::string& trouble);

  const Open open_;
  const LineReport report_;
  std::unique_ptr<Channel> channel_;  // null: the connection is gone
  std::optional<SerialSettings> settings_;
  std::future<Opened> opening_;
  Clock::time_point next_;              // when the next attempt begins
  std::chrono::milliseconds pause_{0};  // before it
  std::atomic<bool> hurried_ = false;
  mutable std::mutex mutex_;  // guards trouble_
  std::string trouble_;       // what keeps it from working; empty: nothing
};

}  // namespace host
