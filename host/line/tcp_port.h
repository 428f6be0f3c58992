// A serial line behind a gateway that passes raw bytes over TCP. The gateway knows the line's
// speed.
#pragma once

#include <string>

#include "host/line/asio_port.h"

namespace host {

struct TcpAddress {
  std::string host;
  std::string port;
};

// "gateway:4001", "[::1]:4001". Throws std::invalid_argument with one sentence.
TcpAddress ParseTcpAddress(const std::string& text);

class TcpPort final : public AsioPort<asio::ip::tcp::socket> {
 public:
  // Throws std::runtime_error with one sentence when there is no connection within five seconds.
  explicit TcpPort(const TcpAddress& address);

  // The gateway's own settings decide; the speed tells how long a request is on its way.
  bool SetLine(int, int, int baud, int, int, int) override {
    SetSpeed(baud);
    return true;
  }
};

}  // namespace host
