// The lines over real ones: a TCP connection, and a pseudo terminal where there is one.
#include <doctest/doctest.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>

#include "host/line/serial_port.h"
#include "host/line/tcp_port.h"

#if !defined(_WIN32)
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#endif

namespace {

using asio::ip::tcp;

constexpr unsigned kLongWait = 5000;  // ms, for what does come
constexpr unsigned kShortWait = 20;   // ms, for what does not

// The other end of a line.
class FarEnd {
 public:
  virtual ~FarEnd() = default;
  virtual std::unique_ptr<host::LinePort> Open() = 0;
  virtual void Send(const std::string& bytes) = 0;
  virtual std::string Receive(std::size_t count) = 0;
  virtual void Close() = 0;
};

class Gateway final : public FarEnd {
 public:
  std::unique_ptr<host::LinePort> Open() override {
    const std::string address = "127.0.0.1:" + std::to_string(acceptor_.local_endpoint().port());
    auto port = std::make_unique<host::TcpPort>(host::ParseTcpAddress(address));
    acceptor_.accept(socket_);
    return port;
  }
  void Send(const std::string& bytes) override { asio::write(socket_, asio::buffer(bytes)); }
  std::string Receive(std::size_t count) override {
    std::string bytes(count, '\0');
    asio::read(socket_, asio::buffer(bytes));
    return bytes;
  }
  void Close() override { socket_.close(); }

 private:
  asio::io_context context_;
  tcp::acceptor acceptor_{context_, tcp::endpoint(asio::ip::address_v4::loopback(), 0)};
  tcp::socket socket_{context_};
};

#if !defined(_WIN32)
class Terminal final : public FarEnd {
 public:
  Terminal() : master_(posix_openpt(O_RDWR | O_NOCTTY)) {
    REQUIRE(master_ >= 0);
    REQUIRE(grantpt(master_) == 0);
    REQUIRE(unlockpt(master_) == 0);
    device_ = ptsname(master_);
  }
  ~Terminal() override { Close(); }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  std::unique_ptr<host::LinePort> Open() override {
    return std::make_unique<host::SerialPort>(device_);
  }
  void Send(const std::string& bytes) override {
    REQUIRE(write(master_, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
  }
  std::string Receive(std::size_t count) override {
    std::string bytes;
    char byte = 0;
    while (bytes.size() < count && read(master_, &byte, 1) == 1) bytes += byte;
    return bytes;
  }
  void Close() override {
    if (master_ >= 0) close(master_);
    master_ = -1;
  }
  const std::string& Device() const { return device_; }

 private:
  int master_;
  std::string device_;
};
#endif

std::string ReadText(host::LinePort& port, unsigned limit, unsigned count) {
  std::string text(count, '\0');
  text.resize(static_cast<std::size_t>(port.Read(limit, count, text.data())));
  return text;
}

void CheckLine(FarEnd& end) {
  const auto port = end.Open();
  REQUIRE(port->SetLine(1, 0, 2400, 8, 2, 0));
  REQUIRE(port->SetTimeouts(5000, 0, 5000, 100, 1000));
  REQUIRE(port->Control(5));

  CHECK(port->Write("request", 7) == 7);
  CHECK(end.Receive(7) == "request");

  end.Send(std::string("ab\0\x11\x13\xFF\n", 7));
  CHECK(ReadText(*port, kLongWait, 2) == "ab");
  CHECK(ReadText(*port, kLongWait, 5) == std::string("\0\x11\x13\xFF\n", 5));

  CHECK(ReadText(*port, kShortWait, 1).empty());
  end.Send("cut");
  CHECK(ReadText(*port, 300, 5) == "cut");
  CHECK(ReadText(*port, kLongWait, 0).empty());

  end.Send("xstale");
  CHECK(ReadText(*port, kLongWait, 1) == "x");
  CHECK(port->Control(3));
  end.Send("fresh");
  CHECK(ReadText(*port, kLongWait, 5) == "fresh");

  // This request is on its way for 0.9 s, and only then the instrument's time begins.
  const std::string request(200, 'r');
  CHECK(port->Write(request.data(), 200) == 200);
  CHECK(end.Receive(200) == request);
  std::thread instrument([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(5 * kShortWait));
    end.Send("late");
  });
  CHECK(ReadText(*port, kShortWait, 4) == "late");
  instrument.join();
  CHECK(!port->Lost());

  end.Send("last");
  CHECK(ReadText(*port, kLongWait, 1) == "l");
  end.Close();
  CHECK(ReadText(*port, kLongWait, 3) == "ast");
  CHECK(ReadText(*port, kLongWait, 1).empty());
  CHECK(port->Lost());
  CHECK(!port->Trouble().empty());
  CHECK(port->Write("request", 7) == 0);
  CHECK(!port->Control(3));
}

}  // namespace

TEST_CASE("a TCP gateway is a line") {
  Gateway gateway;
  CheckLine(gateway);
  CHECK_THROWS_AS(host::TcpPort({"127.0.0.1", "1"}), std::runtime_error);
}

TEST_CASE("TCP addresses") {
  CHECK(host::ParseTcpAddress("gateway:4001").host == "gateway");
  CHECK(host::ParseTcpAddress("[::1]:4001").host == "::1");
  for (const char* text : {"", ":", "gateway", "gateway:", ":1", "gateway:0", "gateway:x1"}) {
    CAPTURE(text);
    CHECK_THROWS_AS(host::ParseTcpAddress(text), std::invalid_argument);
  }
}

#if !defined(_WIN32)
TEST_CASE("a device file is a line") {
  Terminal terminal;
  CheckLine(terminal);
}

TEST_CASE("a device is opened once, and only a serial one") {
  Terminal terminal;
  {
    const auto port = terminal.Open();
    CHECK_THROWS_WITH(terminal.Open(),
                      (terminal.Device() + " is in use by another program").c_str());
  }
  CHECK(terminal.Open() != nullptr);
  CHECK_THROWS_WITH(host::SerialPort("/dev/null"), "/dev/null is no serial line");
  CHECK_THROWS_AS(host::SerialPort("/dev/no-such-device"), std::runtime_error);
}
#endif
