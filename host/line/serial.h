// What both systems' serial devices share: settings and what can be wrong.
#pragma once

#include <asio/serial_port_base.hpp>
#include <stdexcept>
#include <string>
#include <system_error>

namespace host {

// As the driver gives them: parity 1 odd, 2 even, else none; stop bits 0 one, 1 one and a half, 2
// two.
struct SerialSettings {
  int baud;  // bit/s
  int dataBits;
  int parity;
  int stopBits;
};

// Calls set with each of Asio's options in turn.
template <class Set>
void ForEachOption(const SerialSettings& settings, Set set) {
  using Base = asio::serial_port_base;
  constexpr Base::parity::type kParity[] = {Base::parity::none, Base::parity::odd,
                                            Base::parity::even};
  constexpr Base::stop_bits::type kStopBits[] = {
      Base::stop_bits::one, Base::stop_bits::onepointfive, Base::stop_bits::two};
  const auto known = [](int code) { return code == 1 || code == 2 ? code : 0; };
  set(Base::baud_rate(static_cast<unsigned>(settings.baud)));
  set(Base::character_size(static_cast<unsigned>(settings.dataBits)));
  set(Base::parity(kParity[known(settings.parity)]));
  set(Base::stop_bits(kStopBits[known(settings.stopBits)]));
  set(Base::flow_control(Base::flow_control::none));
}

// One sentence each.
std::runtime_error BusyError(const std::string& device);
std::runtime_error OpenError(const std::string& device, const std::error_code& error);

}  // namespace host
