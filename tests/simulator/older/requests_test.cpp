#include <doctest/doctest.h>

#include "tests/simulator/line.h"

using namespace simulator;
using support::operator+;

TEST_CASE("a bad request is refused with one sentence, or gets no answer") {
  const struct {
    const char* name;
    const char* request;
    const char* reply;
    const char* sentence;
  } cases[] = {
      {"start byte", "11 01 3F 00 00 00 00 BF 16", "", "start byte is 0x11"},
      {"end byte", "10 01 3F 00 00 00 00 BF 17", "", "end byte is 0x17"},
      {"checksum", "10 01 3F 00 00 00 00 BE 16", "", "checksum is 0xBE instead of 0xBF"},
      {"number", "10 02 3F 00 00 00 00 BE 16", "", "network number is 0x02"},
      {"function", "10 01 57 00 00 00 00 A7 16", "10 01 21 00 DD 16", "function 0x57"},
      {"system", "10 01 3F 01 00 00 00 BE 16", "10 01 21 01 DC 16", "no heat system 1"},
      {"unused P2", "10 01 3F 00 01 00 00 BE 16", "10 01 21 01 DC 16", "no parameters P2"},
      {"unused P4", "10 01 52 64 00 06 01 41 16", "10 01 21 01 DC 16", "no parameter P4"},
      {"address", "10 01 52 65 00 06 00 41 16", "10 01 21 02 DB 16", "address 0x0065"},
      {"length", "10 01 52 C3 00 29 00 C0 16", "10 01 21 02 DB 16", "no value of 41 bytes"},
      {"pages", "10 01 45 01 00 02 00 B6 16", "10 01 21 02 DB 16", "not all of 2 flash pages"},
      {"no page", "10 01 45 00 00 00 00 B9 16", "10 01 21 01 DC 16", "at least one page"},
      {"month", "10 01 48 74 0D 04 0D 24 16", "10 01 21 01 DC 16", "no date"},
      {"day", "10 01 59 73 02 1D 00 13 16", "10 01 21 01 DC 16", "no date"},
      {"hour", "10 01 48 74 09 04 18 1D 16", "10 01 21 01 DC 16", "no date"},
      {"day of a month", "10 01 4D 74 09 01 00 33 16", "10 01 21 01 DC 16", "no date"},
      {"hour of a day", "10 01 59 74 09 04 01 23 16", "10 01 21 01 DC 16", "no date"},
  };
  for (const auto& one : cases) {
    CAPTURE(one.name);
    Line line(FixedSettings("521"));
    CHECK(support::ToHex(line.Send(support::Hex(one.request))) == one.reply);
    REQUIRE(line.reports.size() == 1);
    CAPTURE(line.reports[0]);
    CHECK(line.reports[0].find("Request " + std::string(one.request) + ": ") == 0);
    CHECK(line.reports[0].find(one.sentence) != std::string::npos);
    CHECK(line.reports[0].back() == '.');
  }
}

TEST_CASE("a request comes in any pieces, and one that breaks off is dropped") {
  Line line(FixedSettings("521"));
  const Bytes request = Request("3F 00 00 00 00");
  const std::string reply = "10 01 3F 54 29 04 3E 16";
  Bytes replies;
  for (const std::uint8_t byte : Bytes(16, 0xFF) + request) replies = replies + line.Send({byte});
  CHECK(support::ToHex(replies) == reply);
  CHECK(support::ToHex(line.Send(request + request)) == reply + " " + reply);

  CHECK(line.Send({0x10, 0x01, 0x3F}).empty());
  line.GetInstrument().Idle();
  CHECK(support::ToHex(line.Send(request)) == reply);
  line.GetInstrument().Idle();
  CHECK(line.reports == std::vector<std::string>{"A request broke off after 3 bytes."});
}
