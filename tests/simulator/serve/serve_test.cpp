#include <doctest/doctest.h>

#include <asio.hpp>
#include <filesystem>
#include <fstream>

#include "simulator/serve/pacer.h"
#include "tests/simulator/line.h"

using namespace simulator;
using support::operator+;

namespace {

constexpr std::size_t kReplySize = 8;
const std::string kReply = "10 01 3F 54 29 04 3E 16";

Bytes WakeUpAndIdentify() { return Bytes(16, 0xFF) + Request("3F 00 00 00 00"); }

// An identification over an open stream.
template <class Stream>
std::string Identify(Stream& stream) {
  Bytes reply(kReplySize);
  asio::write(stream, asio::buffer(WakeUpAndIdentify()));
  asio::read(stream, asio::buffer(reply));
  return support::ToHex(reply);
}

asio::ip::tcp::socket Connect(asio::io_context& context, const std::string& address) {
  asio::ip::tcp::socket socket(context);
  const auto port = static_cast<std::uint16_t>(std::stoi(address.substr(address.find(':') + 1)));
  socket.connect({asio::ip::address_v4::loopback(), port});
  return socket;
}

}  // namespace

TEST_CASE("over TCP one host after the other is served, whenever one leaves") {
  Settings settings = FixedSettings("521");
  settings.lineSpeed = 9600;
  const auto served = ServeTcp(settings, 0);
  CHECK(served->Address().find("127.0.0.1:") == 0);
  asio::io_context context;
  auto first = Connect(context, served->Address()), second = Connect(context, served->Address());
  asio::write(first, asio::buffer(Request("45 00 00 02 00")));
  Bytes begin(3);
  asio::read(first, asio::buffer(begin));
  first.close();
  CHECK(Identify(second) == kReply);
  const auto port = second.remote_endpoint().port();
  CHECK_THROWS_AS(ServeTcp(settings, port), std::runtime_error);
}

TEST_CASE("the end of a server doesn't wait for its reply") {
  Settings settings = FixedSettings("521");
  settings.lineSpeed = 1;  // eleven seconds a byte
  const auto served = ServeTcp(settings, 0);
  asio::io_context context;
  auto host = Connect(context, served->Address());
  asio::write(host, asio::buffer(WakeUpAndIdentify()));
}

TEST_CASE("bytes are due at their time from the start of a reply, however late the timers are") {
  using std::chrono::milliseconds;
  const Pacer::Time start{std::chrono::hours(1)};
  Pacer pacer(11000);  // a millisecond a byte
  pacer.Received(start, 9);
  pacer.Start(start, milliseconds(0), 20);
  CHECK(pacer.Due(1) == start + milliseconds(10));
  CHECK(pacer.Due(20) == start + milliseconds(29));
  CHECK(pacer.DueBy(start + milliseconds(5), 20) == 0);
  CHECK(pacer.DueBy(start + milliseconds(15), 20) == 6);
  CHECK(pacer.DueBy(start + milliseconds(99), 20) == 20);
  pacer.Start(start + milliseconds(15), milliseconds(700), 20);
  CHECK(pacer.Due(1) == start + milliseconds(29 + 700 + 1));

  Pacer odd(2400);  // no whole number of nanoseconds a byte
  odd.Start(start, milliseconds(0), 300);
  for (std::size_t count = 1; count <= 300; ++count) {
    CHECK(odd.DueBy(odd.Due(count), 300) >= count);
  }
}

#ifndef _WIN32

#include <unistd.h>

namespace fs = std::filesystem;

namespace {

struct TemporaryFolder {
  TemporaryFolder() { fs::create_directory(path); }
  ~TemporaryFolder() { fs::remove_all(path); }
  fs::path path = fs::temp_directory_path() / ("simulator-" + std::to_string(getpid()));
};

asio::serial_port Open(asio::io_context& context, const std::string& device) {
  asio::serial_port port(context, device);
  port.set_option(asio::serial_port::baud_rate(2400));
  return port;
}

}  // namespace

TEST_CASE("a pseudo terminal stays while hosts open and close it") {
  const TemporaryFolder folder;
  const std::string link = folder.path / "meter";
  fs::create_symlink("nowhere", link);
  {
    const auto served = ServePty(FixedSettings("521"), link);
    CHECK(fs::read_symlink(link) == served->Address());
    CHECK_THROWS_AS(ServePty(FixedSettings("522"), link), std::runtime_error);  // it is taken
    CHECK(fs::read_symlink(link) == served->Address());
    asio::io_context context;
    for (int i = 0; i < 3; ++i) {
      auto port = Open(context, i == 1 ? link : served->Address());
      CHECK(Identify(port) == kReply);
    }
  }
  CHECK(fs::symlink_status(link).type() == fs::file_type::not_found);
  // A killed one leaves its link, and the next one gets its terminal.
  const std::string device = ServePty(FixedSettings("521"), "")->Address();
  fs::create_symlink(device, link);
  const auto next = ServePty(FixedSettings("521"), link);
  CHECK(fs::read_symlink(link) == next->Address());
}

TEST_CASE("a paced pseudo terminal carries every byte value") {
  Settings settings = FixedSettings("521");
  settings.number = 0x11;  // XON
  settings.lineSpeed = 115200;
  const auto served = ServePty(settings, "");
  asio::io_context context;
  auto port = Open(context, served->Address());
  // A read of 19 (XOFF) bytes at 0x0D0A (line ends) with 0x03 (interrupt) in the wrong place
  asio::write(port, asio::buffer(support::Hex("10 11 52 0A 0D 13 03 6F 16")));
  Bytes reply(6);
  asio::read(port, asio::buffer(reply));
  CHECK(support::ToHex(reply) == "10 11 21 01 CC 16");
}

TEST_CASE("a link never replaces a file") {
  const TemporaryFolder folder;
  const std::string file = folder.path / "file";
  std::ofstream(file) << "kept";
  CHECK_THROWS_AS(ServePty(FixedSettings("521"), file), std::runtime_error);
  CHECK_THROWS_AS(ServePty(FixedSettings("521"), folder.path / "no" / "such"), std::runtime_error);
  CHECK(fs::file_size(file) == 4);
}

#endif
