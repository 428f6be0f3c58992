// Finding, identifying and questioning an instrument.
#include <doctest/doctest.h>

#include "simulator/k7/items.h"
#include "tests/k7/simulated.h"

using namespace common::literals;
using k7test::Frame;
using k7test::Reading;
using support::Bytes;
using support::Hex;

namespace {

// A reply in place of the instrument's; no command: silence.
struct Replaced {
  int command;
  Bytes data;

  void operator()(const Frame& request, Bytes& reply) const {
    reply = command != 0 && request.isLong ? k7test::Reply(request, command, data) : Bytes{};
  }
};

}  // namespace

TEST_CASE("an instrument introduces itself and tells its clock") {
  Reading reading("k7-521");
  CHECK(reading.Run() == "OK / ReadStop");
  const std::string model = "УРМ521"_w, number = *reading.values.ParameterText(0, 0x3A);
  const auto& said = reading.stream.messages;
  CHECK(std::vector<std::string>(said.begin() + 1, said.end() - 1) ==
        std::vector<std::string>{"FULL / Init...", "FULL OK / Init", model + " / Tip",
                                 "V7 / Version", number + " / Numer", "2016.9.4 13:5:9 / DT",
                                 std::string("ТВ0"_w) + " / Ch", "OK / ReadStop"});
  CHECK(reading.driver.typeText == model);
  CHECK(reading.driver.numberText == number);
  CHECK(std::string(reading.driver.versionText) == "V7");
  REQUIRE(reading.requests.size() == 3);
  CHECK(reading.requests[0].data == Hex("00 00 00 00"));
  CHECK(reading.requests[1].data ==
        Hex("4A 03 00 3A 00 4A 03 00 01 00 4A 03 00 02 00 4A 03 00 40 20 4A 03 00 26 20"));
  CHECK(reading.requests[2].data == Hex("4A 03 00 00 04 4A 03 00 01 04"));
  CHECK(reading.driver.GetPr() == 101);
}

TEST_CASE("an instrument that cannot be identified ends the reading after both frame variants") {
  struct Case {
    Replaced reply;
    const char* said;
  };
  for (const Case& c : {Case{{0, {}}, "count=1 / error query"},
                        Case{{0x40, {}}, "not 0x3F result=0x40 / error start"},
                        Case{{0x3F, Hex("93 29 00 01")}, "undefined 2993 / error start "}}) {
    INFO(std::string(c.said));
    Reading reading("k7-521", "T");
    reading.onReply = c.reply;
    CHECK(reading.Run() == "Error / ReadStop");
    for (const char* said : {c.said, "FULL / Init...", "SHORT / Init..."}) {
      CHECK(reading.stream.Said(said));
    }
    CHECK(reading.stream.messages.at(reading.stream.messages.size() - 3) == "error / Init");
    CHECK(reading.port.writes.back() ==
          simulator::k7::Build({false, 1, 0, 0x3F, Hex("00 00 00 00")}));
    CHECK(reading.driver.GetPr() == -1);
    CHECK(reading.stream.writes.empty());
  }
}

TEST_CASE("a basic read that the link fails is passed over, all else ends the reading") {
  struct Case {
    const char* request;
    Replaced reply;
    const char* said;
    int introduced;
    bool read;
  };
  const char* const basic = "0:7+4";
  const char* const clock = "0:1024+2";
  for (const Case& c : {Case{basic, {0, {}}, " / Numer", 1, true},
                        Case{basic, {0x3F, {}}, "not 0x72 result=0x3F / error basic", 0, false},
                        Case{clock, {0, {}}, "count=1 / error query", 1, false},
                        Case{clock, {0x61, {}}, "not 0x72 result=0x61 / error dt", 1, false}}) {
    INFO(std::string(c.said));
    Reading reading("k7-523", "T");
    reading.onReply = [&](const Frame& request, Bytes& reply) {
      if (request.command == 0x72 && k7test::RangeOf(request) == c.request) c.reply(request, reply);
    };
    CHECK(reading.Run() == (c.read ? "OK / ReadStop" : "Error / ReadStop"));
    CHECK(reading.stream.Said(c.said));
    CHECK(reading.stream.CountOf("V3 / Version") == c.introduced);
    const auto sections = reading.Sections();
    CHECK(sections.size() == (c.read ? 4 : 0));
    if (!c.read) continue;
    CHECK(sections[0].Column("P1").unit == "кгс/см2"_w);
    CHECK(sections[1].Column("Q").unit == "кгс/см2"_w);
  }
}

TEST_CASE("units are limited to the last one; a number of any length stays within its field") {
  struct Case {
    const char *model, *unit1, *unit2, *pressure, *heat;
  };
  for (const Case& c : {Case{"k7-521", "5", "1", "бар"_w, "МПа"_w},
                        Case{"k7-521", "0", "4294967295", "кгс/см2"_w, "бар"_w},
                        Case{"k7-521", "1", "", "МПа"_w, "кгс/см2"_w},
                        Case{"k7-523", "1", "2", "МПа"_w, "МПа"_w}}) {
    Reading reading(c.model, "T");
    reading.onReply = [&](const Frame& request, Bytes& reply) {
      if (reading.requests.size() != 2) return;
      Bytes items;
      for (const std::string& text :
           {std::string(300, '7'), std::string(c.unit1), std::string(c.unit2)}) {
        simulator::k7::PutText(items, text);
      }
      reply = k7test::Reply(request, 0x72, items);
    };
    CHECK(reading.Run() == "OK / ReadStop");
    const auto sections = reading.Sections();
    CHECK(sections.at(0).Column("P1").unit == c.pressure);
    CHECK(sections.at(1).Column("Qgvs").unit == c.heat);
    CHECK(reading.Said(std::string(39, '7'), "Numer"));
    CHECK(sections.at(0).number == std::string(29, '7'));
  }
}
