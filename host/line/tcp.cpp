#include "host/line/tcp.h"

#include <fmt/format.h>

#include <stdexcept>

#include "host/line/within.h"
#include "host/system/console.h"

namespace host {
namespace {

using asio::ip::tcp;

constexpr std::chrono::seconds kConnectLimit{5};

std::runtime_error ConnectError(const TcpAddress& address, const asio::error_code& error) {
  return std::runtime_error(fmt::format(
      "cannot connect to {}: {}", NameOf(address),
      error == asio::error::operation_aborted ? "no answer in time" : ErrorText(error)));
}

bool IsPortNumber(const std::string& text) {
  if (text.empty() || text.size() > 5) return false;
  if (text.find_first_not_of("0123456789") != std::string::npos) return false;
  const int number = std::stoi(text);
  return number >= 1 && number <= 65535;
}

asio::error_code TryConnect(asio::io_context& context, tcp::socket& socket,
                            const tcp::endpoint& endpoint) {
  asio::error_code error;
  socket.close(error);
  return Within(context, socket, kConnectLimit,
                [&](auto handler) {
                  socket.async_connect(
                      endpoint, [handler](const asio::error_code& result) { handler(result, 0); });
                })
      .error;
}

}  // namespace

TcpAddress ParseTcpAddress(const std::string& text) {
  const std::size_t colon = text.rfind(':');
  TcpAddress address;
  if (colon != std::string::npos) address = {text.substr(0, colon), text.substr(colon + 1)};
  if (address.gateway.starts_with('[') && address.gateway.ends_with(']')) {
    address.gateway = address.gateway.substr(1, address.gateway.size() - 2);
  }
  if (address.gateway.empty() || !IsPortNumber(address.port)) {
    throw std::invalid_argument(fmt::format("{} is no HOST:PORT, such as gateway:4001", text));
  }
  return address;
}

std::string NameOf(const TcpAddress& address) { return address.gateway + ":" + address.port; }

tcp::socket Connect(asio::io_context& context, const TcpAddress& address) {
  tcp::socket socket(context);
  asio::error_code error;
  const auto endpoints = tcp::resolver(context).resolve(address.gateway, address.port, error);
  if (error) throw ConnectError(address, error);
  for (const auto& endpoint : endpoints) {
    error = TryConnect(context, socket, endpoint.endpoint());
    if (!error) break;
  }
  if (error) throw ConnectError(address, error);
  socket.set_option(tcp::no_delay(true), error);
  return socket;
}

}  // namespace host
