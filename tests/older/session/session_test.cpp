// Which instrument answers, and its clock.
#include "older/session/session.h"

#include <doctest/doctest.h>

#include <cstring>

#include "common/cp1251.h"
#include "older/models/catalogue.h"
#include "tests/older/simulated.h"
#include "tests/support/older_line.h"

using namespace common::literals;
using support::Bytes;
using support::Hex;
using support::older::Identification;

TEST_CASE("identification replies") {
  const auto changed = [](std::size_t index, std::uint8_t byte) {
    Bytes reply = Identification('T', 0x29, 3);
    reply[index] = byte;
    return reply;
  };
  const struct {
    const char* name;
    Bytes reply;
    std::string told;  // name, key and version, or the failure
    const older::Model* model = nullptr;
  } cases[] = {
      {"521", Identification('T', 0x29, 3), "УРМ521 urm521 vX.2.10"_w, &older::kModel521},
      {"any checksum", changed(6, 0x77), "УРМ521 urm521 vX.2.10"_w, &older::kModel521},
      {"last version", Identification('T', 0x29, 15), "УРМ521 urm521 wX.2.14"_w, &older::kModel521},
      {"no version 9", Identification('T', 0x29, 9), "УРМ521 urm521 X.X.?"_w},
      {"no version 16", Identification('T', 0x29, 16), "УРМ521 urm521 X.X.?"_w},
      {"522", Identification('T', 0x2A, 200), "УРМ522 urm522 V200"_w, &older::kModel522},
      {"523", Identification('T', 0x2B, 7), "УРМ523 urm523 V7"_w, &older::kModel523},
      {"521.1x", Identification(0x92, 0x29, 1), "УРМ521 urm521_10 V1"_w, &older::kModel521x},
      {"721", Identification('G', 0x29, 0), "ДКГ721 dkg721 V0"_w, &older::kModel721},
      {"another family", Identification('X', 0x29, 0), "Read %h"},
      {"another model of its family", Identification(0x92, 0x2A, 0), "Read %h"},
      {"start byte", changed(0, 0x11), "0"},
      {"network number", changed(1, 2), "1"},
      {"function", changed(2, 'R'), "2"},
      {"end byte", changed(7, 0), "7"},
      {"nothing", {}, "Read 0"},
      {"cut", Hex("10 01 3F 54"), "Read 4"},
  };
  for (const auto& c : cases) {
    CAPTURE(c.name);
    support::Reading reading;
    older::TKSplImpl state(reading.driver, older::kIdentities);
    reading.port.answer = [&](const Bytes& written) {
      return written.size() == 9 ? c.reply : Bytes{};
    };
    const bool identified = older::Identify(state, 0);
    CHECK(identified == reading.stream.messages.empty());
    CHECK(older::FindModel(state.instrument) == c.model);
    const TKSplDrv& driver = reading.driver;
    if (identified) {
      CHECK(std::string(driver.typeText) + " " + state.modelKey + " " + driver.versionText ==
            c.told);
    } else {
      CHECK(reading.stream.messages == std::vector<std::string>{c.told + " / Error Version"});
    }
  }
}

TEST_CASE("an identification that cannot be asked for") {
  support::Reading reading;
  older::TKSplImpl state(reading.driver, older::kIdentities);
  support::clock::OnPause([&](unsigned ms) { reading.port.shortWrites = ms == 1000 ? 1 : 0; });
  CHECK_FALSE(older::Identify(state, 0));
  CHECK(reading.stream.messages == std::vector<std::string>{"Not Write / Error Version"});
}

TEST_CASE("the clock's bytes") {
  const struct {
    const char* bytes;
    TAVDT clock;
  } cases[] = {{"10 09 04 0D 05 09", {2016, 9, 4, 13, 5, 9}},
               {"59 0C 1F 17 3B 3B", {2089, 12, 31, 23, 59, 59}},
               {"5A 01 01 00 00 00", {1990, 1, 1, 0, 0, 0}},
               {"10 01 01 18 00 00", {2016, 1, 1, 23, 0, 0}},
               {"10 01 01 07 3C 01", {2016, 1, 1, 0, 60, 1}},
               {"10 01 01 07 01 3C", {2016, 1, 1, 0, 1, 60}}};
  for (const auto& c : cases) {
    CAPTURE(c.bytes);
    const Bytes bytes = Hex(c.bytes);
    const TAVDT clock = older::DecodeClock(std::span(bytes).first<6>());
    CHECK(std::memcmp(&clock, &c.clock, sizeof clock) == 0);
  }
}

TEST_CASE("a session that is opened again tells who answers and its clock") {
  const struct {
    int version;
    char lost;  // the function of requests without a reply
    bool done;
    std::vector<std::string> messages;
  } cases[] = {
      {3, 0, true, {"УРМ521 / Tip"_w, "vX.2.10 / Version", "2016.9.4 13:5:9 / DT"}},
      {3,
       'R',
       false,
       {"УРМ521 / Tip"_w, "vX.2.10 / Version", "1 Error: 12 / PopitkaTime", "12 / Dt"}},
      {9, 0, false, {"УРМ521 / Tip"_w, "X.X.? / Version", "pribor type not found / DT", "0 / Dt"}},
      {3, '?', false, {"Read 0 / Error Version", "1 / PopitkaInit"}},
  };
  for (const auto& c : cases) {
    simulator::Settings settings = support::Instrument("521");
    settings.special.version = c.version;
    support::SimulatedReading reading(settings);
    reading.Lose([&](const Bytes& request) { return request[2] == c.lost; });
    older::TKSplImpl state(reading.driver, older::kIdentities);
    CHECK(older::ReopenSession(state) == c.done);
    CHECK(reading.stream.messages == c.messages);
  }
}
