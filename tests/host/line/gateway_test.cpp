// Gateways: those that close the connection, and those that set their line by RFC 2217.
#include <doctest/doctest.h>

#include <algorithm>
#include <deque>
#include <vector>

#include "host/line/reconnecting.h"
#include "host/line/rfc2217.h"
#include "host/line/stream_line.h"
#include "host/line/stretched_line.h"

namespace {

using Sent = std::vector<std::string>;

std::string Hex(const std::string& bytes) {
  constexpr const char* kDigits = "0123456789abcdef";
  std::string text;
  for (const char byte : bytes) {
    text += kDigits[static_cast<unsigned char>(byte) >> 4];
    text += kDigits[static_cast<unsigned char>(byte) & 15];
  }
  return text;
}

std::string Bytes(const std::string& hex) {
  std::string bytes;
  for (std::size_t i = 0; i < hex.size(); i += 2) {
    bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
  }
  return bytes;
}

// A connection's other end: what it sends by itself, and to what it answers.
struct Gateway {
  struct Answer {
    std::string to;
    std::string bytes;
  };
  std::string coming;  // the next bytes
  std::vector<Answer> answers{};
  bool closed = false;
  std::string sent{};
};

class Connection final : public host::Channel {
 public:
  explicit Connection(Gateway& gateway) : gateway_(gateway) {}
  host::Transfer Receive(std::span<char> into, Clock::time_point) override {
    const std::size_t count = std::min(into.size(), gateway_.coming.size());
    std::copy_n(gateway_.coming.begin(), count, into.begin());
    gateway_.coming.erase(0, count);
    if (count == 0 && gateway_.closed) return {0, "the gateway closed the connection"};
    return {count, {}};
  }
  host::Transfer Send(std::span<const char> bytes, Clock::time_point) override {
    const std::string text(bytes.data(), bytes.size());
    gateway_.sent += text;
    for (const Gateway::Answer& answer : gateway_.answers) {
      if (text.find(answer.to) != std::string::npos) gateway_.coming += answer.bytes;
    }
    return {bytes.size(), {}};
  }

 private:
  Gateway& gateway_;
};

std::string ReadText(host::LinePort& line, unsigned count) {
  std::string text(count, '\0');
  text.resize(static_cast<std::size_t>(line.Read(0, count, text.data())));
  return text;
}

int WriteText(host::LinePort& line, const std::string& text) {
  return line.Write(text.data(), static_cast<unsigned>(text.size()));
}

const std::string kOffer = Bytes("fffb2c");
const std::string kTakes = Bytes("fffd2c");
const std::string kRefuses = Bytes("fffe2c");

// 2400 bit/s, 8 data bits, even parity, one stop bit.
const std::string kConfirmed =
    Bytes("fffa2c6500000960fff0fffa2c6608fff0fffa2c6703fff0fffa2c6801fff0");

}  // namespace

TEST_CASE("a gateway's line is set by RFC 2217, and every byte passes") {
  // Beside the option it offers what nobody wants, and tells of its modem lines.
  Gateway gateway{Bytes("fffb01fffd18"), {{kOffer, kTakes}}};
  gateway.answers.push_back({Bytes("fffa2c01"), Bytes("fffa2c6b30fff0") + kConfirmed});
  host::StreamLine line("g:1",
                        host::NegotiateRfc2217(std::make_unique<Connection>(gateway), "g:1"));
  CHECK(Hex(gateway.sent).find("fffe01fffc18") != std::string::npos);
  gateway.sent.clear();
  CHECK(line.SetLine(1, 0, 2400, 8, 2, 0));
  CHECK(Hex(gateway.sent) ==
        "fffa2c0100000960fff0fffa2c0208fff0fffa2c0303fff0fffa2c0401fff0fffa2c0501fff0");
  gateway.sent.clear();
  gateway.answers = {{"\x10", Bytes("10fffff6fffa2c6a00fff0fff0ffff16")}};
  CHECK(WriteText(line, Bytes("ff10ff")) == 3);
  CHECK(Hex(gateway.sent) == "ffff10ffff");
  CHECK(Hex(ReadText(line, 8)) == "10fff6ff16");
  CHECK(line.Trouble() == "");
}

TEST_CASE("a gateway that cannot be set is told in a sentence") {
  Gateway refuses{"", {{kOffer, kRefuses}}};
  CHECK_THROWS_WITH(host::NegotiateRfc2217(std::make_unique<Connection>(refuses), "g:1"),
                    "g:1: the gateway refuses RFC 2217, by which it would be set; tcp: needs none "
                    "of it");
  std::string other = kConfirmed;
  other[kConfirmed.find('\x60')] = '\x61';
  Gateway gateway{"", {{kOffer, kTakes}, {Bytes("fffa2c01"), other}}};
  host::StreamLine line("g:1",
                        host::NegotiateRfc2217(std::make_unique<Connection>(gateway), "g:1"));
  CHECK(!line.SetLine(1, 0, 2400, 8, 2, 0));
  CHECK(line.Trouble() ==
        "g:1 cannot be set to 2400 bit/s with 8 data bits: the gateway takes another speed");
}

TEST_CASE(
    "a connection that the gateway closes is made again, and no reply is made of two halves") {
  std::deque<Gateway> gateways;
  Sent told;
  const auto open = [&]() -> std::unique_ptr<host::Channel> {
    gateways.push_back(gateways.empty() ? Gateway{"half", {}, true}
                                        : Gateway{"rest", {{"again", "whole"}}});
    return std::make_unique<Connection>(gateways.back());
  };
  host::StreamLine line("g:1", std::make_unique<host::Reconnecting>(
                                   open, [&](const auto& text) { told.push_back(text); }));
  CHECK(ReadText(line, 8) == "half");
  CHECK(ReadText(line, 8).empty());
  CHECK(!line.Lost());
  CHECK(line.Trouble() == "g:1: the gateway closed the connection");
  line.Hurry(true);
  CHECK(WriteText(line, "again") == 0);
  line.Hurry(false);
  CHECK(WriteText(line, "again") == 5);
  CHECK(ReadText(line, 5) == "whole");
  CHECK(line.Trouble() == "");
  CHECK(told == Sent{"the gateway closed the connection; connecting again"});
}

TEST_CASE("a stretched line waits in pieces of the driver's limits") {
  struct Waits : host::Channel {
    host::Transfer Receive(std::span<char>, Clock::time_point) override {
      if (++waits == 3) line->Hurry(true);
      return {};
    }
    host::Transfer Send(std::span<const char>, Clock::time_point) override { return {}; }
    host::LinePort* line = nullptr;
    int waits = 0;
  };
  for (const double factor : {1.0, 2.0, 2.5, 20.0}) {
    CAPTURE(factor);
    auto channel = std::make_unique<Waits>();
    Waits& waits = *channel;
    host::StretchedLine line(std::make_unique<host::StreamLine>("g:1", std::move(channel)), factor);
    waits.line = &line;
    char byte = 0;
    CHECK(line.Read(500, 1, &byte) == 0);
    CHECK(waits.waits == std::min(3, factor == 2.5 ? 3 : static_cast<int>(factor)));
  }
}
