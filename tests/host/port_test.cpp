// The lines over real ones: a TCP connection, and a pseudo terminal where there is one.
#include <doctest/doctest.h>

#include <asio.hpp>
#include <chrono>
#include <memory>
#include <string>
#include <thread>

#include "host/line/open_line.h"
#include "host/line/stream_line.h"
#include "host/line/wrapped_line.h"

#if !defined(_WIN32)
#include <fcntl.h>
#include <pthread.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#endif

namespace {

using asio::ip::tcp;
using std::chrono::milliseconds;

constexpr unsigned kLongWait = 5000;  // ms, for what does come
constexpr unsigned kShortWait = 20;   // ms, for what does not

// The other end of a line.
template <class Stream>
struct FarEnd {
  void Send(const std::string& bytes) { asio::write(stream, asio::buffer(bytes)); }
  std::string Receive(std::size_t count) {
    std::string bytes(count, '\0');
    asio::read(stream, asio::buffer(bytes));
    return bytes;
  }

  asio::io_context context;
  Stream stream{context};
  std::string name;  // what messages call the line
  std::string gone;  // what they say once this end is closed
};

struct Gateway : FarEnd<tcp::socket> {
  Gateway() {
    name = "127.0.0.1:" + std::to_string(acceptor.local_endpoint().port());
    gone = name + ": the gateway closed the connection";
  }
  std::unique_ptr<host::LinePort> Open() {
    auto port = host::OpenLine("tcp:" + name);
    acceptor.accept(stream);
    return port;
  }
  // The next request goes over another connection, of which nobody has heard before.
  void ComesBack(host::LinePort& port) {
    const std::string request = "request";
    CHECK(port.Write(request.data(), 7) == 7);
    acceptor.accept(stream);
    CHECK(Receive(7) == request);
    CHECK(port.Trouble() == "");
    CHECK(!port.Lost());
  }
  tcp::acceptor acceptor{context, tcp::endpoint(asio::ip::address_v4::loopback(), 0)};
};

#if !defined(_WIN32)
struct Terminal : FarEnd<asio::posix::stream_descriptor> {
  Terminal() {
    stream.assign(posix_openpt(O_RDWR | O_NOCTTY));
    REQUIRE(grantpt(stream.native_handle()) == 0);
    REQUIRE(unlockpt(stream.native_handle()) == 0);
    name = ptsname(stream.native_handle());
    gone = name + ": the device is gone";
  }
  std::unique_ptr<host::LinePort> Open() const { return host::OpenLine("serial:" + name); }
  static void ComesBack(host::LinePort& port) { CHECK(port.Lost()); }
};
#endif

// A signal to a thread that may be waiting.
#if defined(_WIN32)
int Self() { return 0; }
void Disturb(int) {}
#else
pthread_t Self() {
  struct sigaction action = {};
  action.sa_handler = [](int) {};
  REQUIRE(sigaction(SIGUSR1, &action, nullptr) == 0);
  return pthread_self();
}
void Disturb(pthread_t thread) { pthread_kill(thread, SIGUSR1); }
#endif

std::string ReadText(host::LinePort& port, unsigned limit, std::size_t count) {
  std::string text(count, '\0');
  const int received = port.Read(limit, static_cast<unsigned>(count), text.data());
  text.resize(static_cast<std::size_t>(received));
  return text;
}

int WriteText(host::LinePort& port, const std::string& text) {
  return port.Write(text.data(), static_cast<unsigned>(text.size()));
}

template <class End>
void CheckReads(End& end, host::LinePort& port) {
  const std::string every("ab\0\x11\x13\xFF\n", 7);
  end.Send(every + "cd");
  CHECK(ReadText(port, kLongWait, 2) == "ab");
  CHECK(ReadText(port, kLongWait, 0).empty());
  CHECK(ReadText(port, kLongWait, 7) == every.substr(2) + "cd");
  CHECK(ReadText(port, kShortWait, 1).empty());
  end.Send("cut");
  CHECK(ReadText(port, 300, 5) == "cut");

  // More than the line keeps at once, and then a byte at a time.
  std::string burst;
  for (int i = 0; burst.size() < 3000; ++i) burst += std::to_string(i);
  std::thread instrument([&] {
    end.Send(burst);
    for (const char byte : every) {
      std::this_thread::sleep_for(milliseconds(5));
      end.Send({byte});
    }
  });
  CHECK(ReadText(port, kLongWait, 3) == burst.substr(0, 3));
  CHECK(ReadText(port, kLongWait, burst.size()) == burst.substr(3) + every.substr(0, 3));
  CHECK(ReadText(port, kLongWait, 4) == every.substr(3));
  instrument.join();
}

template <class End>
void CheckDropping(End& end, host::LinePort& port) {
  end.Send("xlate");
  CHECK(ReadText(port, kLongWait, 1) == "x");
  CHECK(port.Control(3));
  CHECK(port.Dropped() == "late");
  CHECK(port.Control(3));
  CHECK(port.Dropped().empty());
  end.Send("fresh");
  CHECK(ReadText(port, kLongWait, 5) == "fresh");
}

// This request is on its way for 0.9 s, and only then the instrument's time begins. Signals that
// come meanwhile change nothing.
template <class End>
void CheckWrites(End& end, host::LinePort& port) {
  const std::string request(200, 'r');
  CHECK(WriteText(port, request) == 200);
  CHECK(end.Receive(200) == request);
  std::thread instrument([&end, reader = Self()] {
    for (int i = 0; i < 5; ++i) {
      std::this_thread::sleep_for(milliseconds(kShortWait));
      Disturb(reader);
    }
    end.Send("late");
  });
  CHECK(ReadText(port, kShortWait, 4) == "late");
  instrument.join();
}

template <class End>
void CheckLoss(End& end, host::LinePort& port) {
  end.Send("last");
  CHECK(ReadText(port, kLongWait, 1) == "l");
  CHECK(!port.Lost());
  end.stream.close();
  CHECK(ReadText(port, kLongWait, 3) == "ast");
  CHECK(ReadText(port, kLongWait, 1).empty());
  CHECK(port.Trouble() == end.gone);
  if (!port.Lost()) return end.ComesBack(port);
  CHECK(WriteText(port, "request") == 0);
  CHECK(!port.Control(3));
}

template <class End>
void CheckLine(End& end) {
  const auto port = end.Open();
  REQUIRE(port->SetLine(1, 0, 2400, 8, 2, 0));
  REQUIRE(port->SetTimeouts(5000, 0, 5000, 100, 1000));
  REQUIRE(port->Control(5));
  CheckReads(end, *port);
  CheckDropping(end, *port);
  CheckWrites(end, *port);
  CheckLoss(end, *port);
}

}  // namespace

TEST_CASE("a TCP gateway is a line") {
  Gateway gateway;
  CheckLine(gateway);
  CHECK_THROWS_AS(host::OpenLine("tcp:127.0.0.1:1"), std::runtime_error);
}

TEST_CASE("addresses of lines") {
  for (const char* address :
       {"tcp:gateway:1", "tcp:[::1]:65535", "rfc2217:gateway:1", "serial:COM3", "simulate:521"}) {
    CAPTURE(address);
    CHECK_NOTHROW(host::CheckLineAddress(address));
  }
  for (const char* address : {"", "COM3", "serial:", "simulate:", "tcp:", "tcp::", "tcp:gateway",
                              "tcp:gateway:", "tcp::1", "tcp:gateway:0", "tcp:gateway:65536",
                              "tcp:gateway:100000", "tcp:gateway:x1", "rfc2217:gateway"}) {
    CAPTURE(address);
    CHECK_THROWS_AS(host::CheckLineAddress(address), std::invalid_argument);
    CHECK_THROWS_AS(host::OpenLine(address), std::invalid_argument);
  }
}

namespace {

class EndlessNoise final : public host::Channel {
 public:
  host::Transfer Receive(std::span<char> into, Clock::time_point) override {
    return {into.size(), {}};
  }
  host::Transfer Send(std::span<const char>, Clock::time_point) override { return {}; }
};

// Counts what came too late for the driver.
class CountingLine final : public host::WrappedLine {
 public:
  using WrappedLine::WrappedLine;
  bool Control(int code) override {
    const bool held = WrappedLine::Control(code);
    late += Dropped().size();
    return held;
  }
  std::size_t late = 0;
};

}  // namespace

TEST_CASE("a line that wraps another one is a line") {
  CountingLine line(host::OpenLine("simulate:521"));
  REQUIRE(line.SetLine(1, 0, 2400, 8, 2, 0));
  const std::string identify("\x10\x01\x3F\0\0\0\0\xBF\x16", 9);
  CHECK(WriteText(line, identify) == 9);
  CHECK(ReadText(line, kLongWait, 8).substr(0, 3) == "\x10\x01\x3F");
  CHECK(WriteText(line, identify) == 9);
  CHECK(ReadText(line, kLongWait, 1) == "\x10");
  CHECK(line.Control(3));
  CHECK(line.late == 7);
  CHECK(!line.Lost());
}

TEST_CASE("a line that never falls silent doesn't hold the driver") {
  host::StreamLine line("noise", std::make_unique<EndlessNoise>());
  CHECK(line.Control(3));
  CHECK(line.Dropped().size() == 4096);
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
    CHECK_THROWS_WITH(terminal.Open(), (terminal.name + " is in use by another program").c_str());
  }
  const auto files = [] {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return std::distance(begin(all), end(all));
  };
  const auto before = files();
  const auto port = terminal.Open();
  CHECK(files() == before + 1);
  // A claim on a pseudo terminal would outlive a program that is killed.
  const int other = open(terminal.name.c_str(), O_RDWR | O_NOCTTY);
  int claimed = -1;
  CHECK(ioctl(other, TIOCGEXCL, &claimed) == 0);
  CHECK(claimed == 0);
  close(other);
  CHECK_THROWS_WITH(host::OpenLine("serial:/dev/null"), "/dev/null is no serial line");
  CHECK_THROWS_AS(host::OpenLine("serial:/dev/no-such-device"), std::runtime_error);
}

TEST_CASE("a line that takes no more gives up in time and loses nothing") {
  Terminal terminal;
  const auto port = terminal.Open();
  REQUIRE(port->SetTimeouts(5000, 0, 5000, 0, kShortWait));
  std::string much;
  for (int i = 0; much.size() < 200'000; ++i) much += std::to_string(i);
  const auto taken = static_cast<std::size_t>(WriteText(*port, much));
  CHECK(taken > 0);
  CHECK(taken < much.size());
  CHECK(!port->Lost());
  CHECK(terminal.Receive(taken) == much.substr(0, taken));
}
#endif
