// Both kinds of channel are Asio's streams with overlapped reads and writes.
#include <asio.hpp>

#include "host/line/channel.h"
#include "host/line/serial.h"
#include "host/line/tcp.h"
#include "host/line/within.h"
#include "host/system/console.h"

namespace host {
namespace {

template <class Stream>
class Overlapped : public Channel {
 public:
  // closed: what messages say when the other end is gone.
  explicit Overlapped(const char* closed) : closed_(closed) {}

  Transfer Receive(std::span<char> into, Clock::time_point deadline) final {
    return Transferred(Within(context_, stream_, LeftUntil(deadline), [&](auto handler) {
      stream_.async_read_some(asio::buffer(into.data(), into.size()), handler);
    }));
  }
  Transfer Send(std::span<const char> bytes, Clock::time_point deadline) final {
    return Transferred(Within(context_, stream_, LeftUntil(deadline), [&](auto handler) {
      asio::async_write(stream_, asio::buffer(bytes.data(), bytes.size()), handler);
    }));
  }

 protected:
  asio::io_context& Context() { return context_; }
  Stream& Opened() { return stream_; }

 private:
  static std::chrono::milliseconds LeftUntil(Clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    return std::max(left, std::chrono::milliseconds(0));
  }
  Transfer Transferred(const Outcome& outcome) const {
    if (!outcome.error || outcome.error == asio::error::operation_aborted)
      return {outcome.count, {}};
    const bool ended = outcome.error == asio::error::eof;
    return {outcome.count, ended ? closed_ : ErrorText(outcome.error)};
  }

  const char* closed_;
  asio::io_context context_;
  Stream stream_{context_};
};

class Device final : public Overlapped<asio::serial_port> {
 public:
  explicit Device(const std::string& name) : Overlapped("the device is gone") {
    asio::error_code error;
    Opened().open(name, error);
    if (error) throw OpenError(name, error);
  }

  std::string Set(const SerialSettings& settings) override {
    asio::error_code error;
    ForEachOption(settings, [&](const auto& option) {
      if (!error) Opened().set_option(option, error);
    });
    return error ? ErrorText(error) : "";
  }
};

class Connection final : public Overlapped<asio::ip::tcp::socket> {
 public:
  explicit Connection(const TcpAddress& address) : Overlapped("the gateway closed the connection") {
    Opened() = Connect(Context(), address);
  }
};

}  // namespace

std::unique_ptr<Channel> OpenDevice(const std::string& device) {
  return std::make_unique<Device>(device);
}

std::unique_ptr<Channel> OpenConnection(const TcpAddress& address) {
  return std::make_unique<Connection>(address);
}

}  // namespace host
