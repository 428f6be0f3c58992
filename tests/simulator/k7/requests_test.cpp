// How the newer protocol's instruments answer requests, good and bad ones.
#include <doctest/doctest.h>

#include <optional>

#include "simulator/k7/frame.h"
#include "tests/simulator/line.h"

using namespace simulator;
using simulator::k7::Build;
using simulator::k7::Parse;
using support::Hex;
using support::ToHex;
using support::operator+;

namespace {

// A long request to number 1, and the data of its reply; nothing when there is none.
std::optional<std::string> Ask(Line& line, std::uint8_t sequence, std::uint8_t command,
                               const std::string& data) {
  const auto reply = Parse(line.Send(Build({true, 1, sequence, command, Hex(data)})));
  if (!reply) return std::nullopt;
  CHECK(reply->sequence == sequence);
  CHECK(reply->command == command);
  return ToHex(reply->data);
}

const std::string kDay =
    "04 05 FF FF 00 01 01 49 08 10 09 01 00 1E 28 00 00 49 08 10 09 03 0B 00 00 00 00";

}  // namespace

TEST_CASE("replies, one of them to a request asked again") {
  Line meter(FixedSettings("k7-523"));
  CHECK(Ask(meter, 1, 0x3F, "00 00 00 00") == "54 2B 00 03");
  CHECK(Ask(meter, 2, 0x72, "4A 03 00 00 04 4A 03 00 01 04") == "42 04 00 09 05 0D 41 03 04 09 10");
  CHECK(Ask(meter, 2, 0x72, "4A 03 00 40 20") == "02 04 45 23 01 00");  // asked again
  CHECK(meter.reports.empty());
  Line line(FixedSettings("k7-521"));
  line.now = {2016, 9, 1, 23, 59, 59};
  CHECK(Ask(line, 1, 0x61, kDay) == "");  // that day has not ended
}

TEST_CASE("a short frame without an end is taken in byte by byte until the line is silent") {
  Line line(FixedSettings("k7-521"));
  CHECK(line.Send(Hex("10 01 3F") + Bytes(1'000'000, 0x16)).empty());
  line.GetInstrument().Idle();
  CHECK(line.reports == std::vector<std::string>{"A request broke off after 1000003 bytes."});
  CHECK(Ask(line, 1, 0x3F, "00 00 00 00").has_value());
}

TEST_CASE("requests that no host should send are complained about") {
  struct Case {
    const char* name;
    Bytes request;
    bool answered;
  };
  const auto frame = [](std::uint8_t command, const std::string& data) {
    return Build({true, 1, 2, command, Hex(data)});
  };
  const auto changed = [](Bytes bytes, std::size_t at) {
    bytes[at] ^= 1;
    return bytes;
  };
  const auto archive = [&](std::size_t at, const char* value) {
    std::string data = kDay;
    return frame(0x61, data.replace(3 * at, 2, value));
  };
  const Bytes good = frame(0x3F, "00 00 00 00");
  for (const Case& c : {
           Case{"a wrong CRC", changed(good, good.size() - 1), false},
           Case{"a wrong fifth byte", changed(good, 4), false},
           Case{"another number", Build({true, 2, 2, 0x3F, Hex("00 00 00 00")}), false},
           Case{"an unknown command", frame(0x40, ""), false},
           Case{"a leap of the sequence", Build({true, 1, 9, 0x3F, Hex("00 00 00 00")}), true},
           Case{"an identification with data", frame(0x3F, "00 01 00 00"), true},
           Case{"a short one without data", Build({false, 1, 0, 0x3F, {}}), true},
           Case{"a cut reference", frame(0x72, "4A 03 00 00"), false},
           Case{"another tag", frame(0x72, "4B 03 00 00 00"), false},
           Case{"no such parameter", frame(0x72, "4A 03 00 70 00"), true},
           Case{"no such channel", frame(0x72, "4A 03 03 00 00"), true},
           Case{"no such system", archive(4, "01"), false},
           Case{"no such archive", archive(5, "02"), false},
           Case{"another selector", archive(6, "E8"), false},
           Case{"a date that does not exist", archive(10, "0D"), false},
           Case{"the end's own minute", archive(23, "1E"), false},
           Case{"an archive request cut short", frame(0x61, kDay.substr(0, 77)), false},
       }) {
    CAPTURE(std::string(c.name));
    Line line(FixedSettings("k7-521"));
    CHECK(Ask(line, 1, 0x3F, "00 00 00 00").has_value());
    CHECK(line.reports.empty());
    CHECK(line.Send(c.request).empty() != c.answered);
    CHECK(line.reports.size() == 1);
  }
}
