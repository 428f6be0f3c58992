#include "host/line/tcp_port.h"

#include <fmt/format.h>

#include <stdexcept>

namespace host {
namespace {

using asio::ip::tcp;

constexpr std::chrono::seconds kConnectLimit{5};

std::runtime_error ConnectError(const std::string& name, const asio::error_code& error) {
  return std::runtime_error(fmt::format(
      "cannot connect to {}: {}", name,
      error == asio::error::operation_aborted ? "no answer in time" : ErrorText(error)));
}

bool IsPortNumber(const std::string& text) {
  if (text.empty() || text.size() > 5) return false;
  if (text.find_first_not_of("0123456789") != std::string::npos) return false;
  const int number = std::stoi(text);
  return number >= 1 && number <= 65535;
}

}  // namespace

TcpAddress ParseTcpAddress(const std::string& text) {
  const std::size_t colon = text.rfind(':');
  TcpAddress address;
  if (colon != std::string::npos) address = {text.substr(0, colon), text.substr(colon + 1)};
  if (address.host.starts_with('[') && address.host.ends_with(']')) {
    address.host = address.host.substr(1, address.host.size() - 2);
  }
  if (address.host.empty() || !IsPortNumber(address.port)) {
    throw std::invalid_argument(fmt::format("{} is no HOST:PORT", text));
  }
  return address;
}

TcpPort::TcpPort(const TcpAddress& address)
    : AsioPort(address.host + ":" + address.port, "the gateway closed the connection") {
  asio::error_code error;
  const auto endpoints = tcp::resolver(Context()).resolve(address.host, address.port, error);
  if (error) throw ConnectError(Name(), error);
  for (const auto& endpoint : endpoints) {
    Line().close(error);
    error = Within(kConnectLimit, [&](auto handler) {
              Line().async_connect(endpoint.endpoint(), [handler](const asio::error_code& result) {
                handler(result, 0);
              });
            }).error;
    if (!error) break;
  }
  if (error) throw ConnectError(Name(), error);
  Line().set_option(tcp::no_delay(true), error);
}

}  // namespace host
