// Connections to gateways that pass a serial line's raw bytes over TCP.
#pragma once

#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <string>

namespace host {

struct TcpAddress {
  std::string gateway;  // name or address
  std::string port;
};

// "gateway:4001", "[::1]:4001". Throws std::invalid_argument with one sentence.
TcpAddress ParseTcpAddress(const std::string& text);

// As messages show it: ParseTcpAddress' text without brackets.
std::string NameOf(const TcpAddress& address);

// Throws std::runtime_error with one sentence when there is no connection within five seconds.
asio::ip::tcp::socket Connect(asio::io_context& context, const TcpAddress& address);

}  // namespace host
