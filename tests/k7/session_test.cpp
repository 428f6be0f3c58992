// Finding, identifying and questioning an instrument.
#include <doctest/doctest.h>

#include "tests/k7/scripted_urm.h"

using namespace common::literals;
using k7test::Answer;
using k7test::Reading;
using k7test::Request;
using support::Bytes;
using support::Hex;

namespace {

using Before = std::optional<std::optional<Answer>>;

// Answers one command so and leaves the others alone.
auto Only(int command, std::optional<Answer> answer) {
  return [=](const Request& request) -> Before {
    if (request.command != command) return std::nullopt;
    return answer;
  };
}

std::vector<std::string> Middle(const std::vector<std::string>& messages) {
  return {messages.begin() + 1, messages.end() - 1};
}

}  // namespace

TEST_CASE("an instrument introduces itself and tells its clock") {
  Reading reading(k7test::kCode521);
  reading.urm.items[{0, 0x3A}] = k7test::TextItem("0123456");
  CHECK(reading.Run() == "OK / ReadStop");
  const std::string model = "УРМ521"_w;
  CHECK(Middle(reading.stream.messages) ==
        std::vector<std::string>{"FULL / Init...", "FULL OK / Init", model + " / Tip",
                                 "V12 / Version", "0123456 / Numer", "2016.9.4 13:5:9 / DT",
                                 std::string("ТВ0"_w) + " / Ch", "OK / ReadStop"});
  CHECK(reading.driver.typeText == model);
  CHECK(std::string(reading.driver.numberText) == "0123456");
  CHECK(std::string(reading.driver.versionText) == "V12");
  REQUIRE(reading.urm.requests.size() == 3);
  CHECK(reading.urm.requests[0].data == Hex("00 00 00 00"));
  CHECK(reading.urm.requests[1].data ==
        Hex("4A 03 00 3A 00 4A 03 00 01 00 4A 03 00 02 00 4A 03 00 40 20 4A 03 00 26 20"));
  CHECK(reading.urm.requests[2].data == Hex("4A 03 00 00 04 4A 03 00 01 04"));
  CHECK(reading.driver.GetPr() == 101);
}

TEST_CASE("an instrument that cannot be identified ends the reading after both frame variants") {
  struct Case {
    const char* name;
    std::optional<Answer> identification;
    const char* said;
  };
  for (const Case& c : {
           Case{"silence", std::nullopt, "count=1 / error query"},
           Case{"another command", Answer{0x40, {}}, "not 0x3F result=0x40 / error start"},
           Case{"an unknown model", Answer{0x3F, Hex("93 29 00 01")},
                "undefined 2993 / error start "},
       }) {
    INFO(std::string(c.name));
    Reading reading(k7test::kCode521, "T");
    reading.urm.before = Only(0x3F, c.identification);
    CHECK(reading.Run() == "Error / ReadStop");
    CHECK(reading.stream.Said(c.said));
    CHECK(reading.stream.Said("FULL / Init..."));
    CHECK(reading.stream.Said("SHORT / Init..."));
    CHECK(reading.stream.messages.at(reading.stream.messages.size() - 3) == "error / Init");
    CHECK(reading.port.writes.back() == k7test::ShortFrame(5, 0x3F, Hex("00 00 00 00")));
    CHECK(reading.driver.GetPr() == -1);
    CHECK(reading.stream.writes.empty());
  }
}

TEST_CASE("the basic read turned over: a link failure goes on, another command ends the reading") {
  Reading silent(k7test::kCode521);
  silent.urm.before = [&](const Request& request) -> Before {
    if (request.command != 0x72 || request.data.at(3) != 0x3A) return std::nullopt;
    return std::optional<Answer>{};
  };
  CHECK(silent.Run() == "OK / ReadStop");
  CHECK(silent.stream.Said("count=1 / error query"));
  CHECK(silent.stream.Said(" / Numer"));

  Reading wrong(k7test::kCode521);
  wrong.urm.before = Only(0x72, Answer{0x3F, {}});
  CHECK(wrong.Run() == "Error / ReadStop");
  CHECK(wrong.stream.Said("not 0x72 result=0x3F / error basic"));
  CHECK(wrong.stream.CountOf("V12 / Version") == 0);
}

TEST_CASE("a clock that is not told ends the reading") {
  for (const auto& answer : {std::optional<Answer>{}, std::optional{Answer{0x61, {}}}}) {
    Reading reading(k7test::kCode523, "T");
    reading.urm.before = [&](const Request& request) -> Before {
      if (request.command != 0x72 || request.data.at(4) != 4) return std::nullopt;
      return answer;
    };
    CHECK(reading.Run() == "Error / ReadStop");
    CHECK(reading.stream.Said("not 0x72 result=0x61 / error dt") == answer.has_value());
    CHECK(reading.stream.writes.empty());
  }
}

TEST_CASE("units are limited to the last one; a number of any length stays within its field") {
  struct Case {
    int code, numberParameter, firstUnit;
    const char *unit1, *unit2;
    const char *pressure, *heat;
  };
  for (const Case& c : {
           Case{k7test::kCode521, 0x3A, 1, "5", "1", "бар"_w, "МПа"_w},
           Case{k7test::kCode521, 0x3A, 1, "0", "4294967295", "кгс/см2"_w, "бар"_w},
           Case{k7test::kCode521, 0x3A, 1, "1", "", "МПа"_w, "кгс/см2"_w},
           Case{k7test::kCode523, 0x07, 0, "1", "2", "МПа"_w, "МПа"_w},
       }) {
    Reading reading(c.code, "T");
    reading.urm.items[{0, c.numberParameter}] = k7test::Item(0x16, Bytes(300, '7'));
    reading.urm.items[{0, c.firstUnit}] = k7test::TextItem(c.unit1);
    reading.urm.items[{0, c.firstUnit + 1}] = k7test::TextItem(c.unit2);
    CHECK(reading.Run() == "OK / ReadStop");
    const auto sections = reading.Sections();
    CHECK(sections.at(0).Column("P1").unit == c.pressure);
    CHECK(sections.at(1).Column("Qgvs").unit == c.heat);
    CHECK(reading.stream.Said(std::string(39, '7') + " / Numer"));
    CHECK(sections.at(0).number == std::string(29, '7'));
  }
}
