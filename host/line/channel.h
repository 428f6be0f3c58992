// An open serial device or connection: bytes in and out with a time limit, and nothing else.
#pragma once

#include <chrono>
#include <memory>
#include <span>
#include <string>

namespace host {

struct SerialSettings;
struct TcpAddress;

struct Transfer {
  std::size_t count = 0;  // bytes that came or went
  std::string trouble;    // why no more ever will; empty while there may
};

class Channel {
 public:
  using Clock = std::chrono::steady_clock;

  virtual ~Channel() = default;

  // Gives what has come, and waits for it until the deadline when nothing has.
  virtual Transfer Receive(std::span<char> into, Clock::time_point deadline) = 0;
  // Gives up at the deadline; the count tells what the system has taken until then.
  virtual Transfer Send(std::span<const char> bytes, Clock::time_point deadline) = 0;
  // Returns what is wrong with the settings; empty when they hold.
  virtual std::string Set(const SerialSettings& /*settings*/) { return {}; }
  // hurry: Send no longer waits for longer than its deadline. From any thread, as the next.
  virtual void Hurry(bool /*hurry*/) {}
  // What keeps it from working at the moment, for one that may work again; empty: nothing.
  virtual std::string Trouble() const { return {}; }
};

// Both throw std::runtime_error with one sentence.
// When there is no such device, it is no serial line or another program uses it.
std::unique_ptr<Channel> OpenDevice(const std::string& device);
// When there is no connection within five seconds. The settings of the line are the gateway's.
std::unique_ptr<Channel> OpenConnection(const TcpAddress& address);

}  // namespace host
