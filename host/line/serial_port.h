// A serial device: a device file, or a COM port on Windows.
#pragma once

#include <string>

#include "host/line/asio_port.h"

namespace host {

class SerialPort final : public AsioPort<asio::serial_port> {
 public:
  // Throws std::runtime_error with one sentence when there is no such device, it is no serial line
  // or another program uses it.
  explicit SerialPort(const std::string& device);
  ~SerialPort() override;

  bool SetLine(int unknown1, int unknown0, int baud, int dataBits, int parity,
               int stopBits) override;
};

}  // namespace host
