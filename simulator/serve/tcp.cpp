#include <optional>
#include <stdexcept>

#include "simulator/serve/server.h"
#include "simulator/serve/session.h"

namespace simulator {
namespace {

using asio::ip::tcp;

#ifdef _WIN32
constexpr bool kReuse = false;  // there it would let two programs listen on one port
#else
constexpr bool kReuse = true;  // a port whose last connection has just ended
#endif

class TcpServer : public Server {
 public:
  TcpServer(const Settings& settings, std::uint16_t port)
      : Server(settings),
        acceptor_(context_, {asio::ip::address_v4::loopback(), port}, kReuse),
        port_(acceptor_.local_endpoint().port()) {
    Accept();
    Run();
  }
  ~TcpServer() override { Stop(); }

  std::string Address() const override { return "127.0.0.1:" + std::to_string(port_); }

 private:
  // A host that connects while another one is served waits.
  void Accept() {
    acceptor_.async_accept([this](std::error_code error, tcp::socket socket) {
      if (error) return Accept();
      socket.set_option(tcp::no_delay(true), error);
      session_.emplace(std::move(socket), *instrument_, lineSpeed_, [this] { Ended(); });
    });
  }

  // Not at once: the session that ends is the caller.
  void Ended() {
    asio::post(context_, [this] {
      session_.reset();
      Accept();
    });
  }

  tcp::acceptor acceptor_;
  std::uint16_t port_;
  std::optional<Session<tcp::socket>> session_;
};

}  // namespace

std::unique_ptr<Served> ServeTcp(const Settings& settings, std::uint16_t port) {
  try {
    return std::make_unique<TcpServer>(settings, port);
  } catch (const std::system_error& error) {
    throw std::runtime_error("TCP port " + std::to_string(port) + " can't be served (" +
                             error.code().message() + "): take another, or 0 for any free one.");
  }
}

}  // namespace simulator
