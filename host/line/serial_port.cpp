#include "host/line/serial_port.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <stdexcept>

#include "host/line/device.h"

namespace host {
namespace {

using Line = asio::serial_port_base;

constexpr int kOddParity = 1;
constexpr int kEvenParity = 2;
constexpr int kOneAndAHalfStopBits = 1;
constexpr int kTwoStopBits = 2;

Line::parity ParityOf(int code) {
  if (code == kOddParity) return Line::parity(Line::parity::odd);
  if (code == kEvenParity) return Line::parity(Line::parity::even);
  return Line::parity(Line::parity::none);
}

Line::stop_bits StopBitsOf(int code) {
  if (code == kOneAndAHalfStopBits) return Line::stop_bits(Line::stop_bits::onepointfive);
  if (code == kTwoStopBits) return Line::stop_bits(Line::stop_bits::two);
  return Line::stop_bits(Line::stop_bits::one);
}

std::runtime_error Busy(const std::string& device) {
  return std::runtime_error(device + " is in use by another program");
}

std::runtime_error OpenError(const std::string& device, const asio::error_code& error) {
  if (IsBusy(error)) return Busy(device);
  if (IsNoSerialLine(error)) return std::runtime_error(device + " is no serial line");
  const auto devices = ListDevices();
  const std::string others =
      devices.empty() ? "" : fmt::format(" (serial lines here: {})", fmt::join(devices, ", "));
  return std::runtime_error(fmt::format("cannot open {}: {}{}", device, ErrorText(error), others));
}

}  // namespace

SerialPort::SerialPort(const std::string& device) : AsioPort(device, "the device is gone") {
  asio::error_code error;
  Line().open(device, error);
  if (error) throw OpenError(device, error);
  if (!Claim(Line().native_handle())) throw Busy(device);
}

SerialPort::~SerialPort() { Release(Line().native_handle()); }

bool SerialPort::SetLine(int /*unknown1*/, int /*unknown0*/, int baud, int dataBits, int parity,
                         int stopBits) {
  SetSpeed(baud);
  asio::error_code error;
  const auto set = [&](const auto& option) {
    if (!error) Line().set_option(option, error);
  };
  set(asio::serial_port_base::baud_rate(static_cast<unsigned>(baud)));
  set(asio::serial_port_base::character_size(static_cast<unsigned>(dataBits)));
  set(ParityOf(parity));
  set(StopBitsOf(stopBits));
  set(asio::serial_port_base::flow_control(asio::serial_port_base::flow_control::none));
  if (error) {
    Note(fmt::format("{} cannot be set to {} bit/s with {} data bits: {}", Name(), baud, dataBits,
                     ErrorText(error)));
  }
  return !error;
}

}  // namespace host
