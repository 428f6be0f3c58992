// Instruments that answer with anything: whatever comes over the line, a reading ends and its
// stream stays whole.
#include <doctest/doctest.h>

#include <random>

#include "tests/support/reading.h"
#include "tests/support/sections.h"
#include "tests/support/simulated_line.h"

using support::Bytes;

namespace {

using Random = std::mt19937;

std::size_t Below(Random& random, std::size_t limit) { return random() % limit; }

// What a bad line and a bad instrument make of a reply.
Bytes Spoil(Bytes reply, Random& random) {
  switch (Below(random, 12)) {
    case 0:  // cut
      reply.resize(Below(random, reply.size() + 1));
      return reply;
    case 1:  // replaced
      reply.resize(Below(random, 300));
      for (auto& byte : reply) byte = static_cast<std::uint8_t>(random());
      return reply;
    case 2:  // more of it than was asked for
      reply.insert(reply.end(), reply.begin(), reply.end());
      return reply;
    default:
      return reply;
  }
}

// Other data in a frame that is right: values that no instrument measures.
Bytes Scramble(Bytes reply, Random& random) {
  if (reply.size() < 12) return reply;  // the identification stays
  std::uint8_t sum = static_cast<std::uint8_t>(reply[1] + reply[2]);
  for (std::size_t i = 3; i + 2 < reply.size(); ++i) {
    if (Below(random, 8) == 0) reply[i] = static_cast<std::uint8_t>(random());
    sum = static_cast<std::uint8_t>(sum + reply[i]);
  }
  reply[reply.size() - 2] = static_cast<std::uint8_t>(~sum);
  return reply;
}

void Read(const char* model, unsigned seed, Bytes (*change)(Bytes, Random&)) {
  CAPTURE(model);
  CAPTURE(seed);
  Random random(seed);
  support::Reading r;
  simulator::Settings settings;
  settings.model = model;
  support::Connect(r.port, settings);
  const auto instrument = r.port.answer;
  r.port.answer = [&](const Bytes& written) {
    const Bytes reply = instrument(written);
    return reply.empty() ? reply : change(reply, random);
  };
  r.driver.SetupDateTime({2016, 8, 0, 31, 20}, {2016, 9, 0, 1, 3});
  r.Groups("BTMSHE");
  r.Parameter(1, 3);
  r.Run();
  CHECK_NOTHROW(support::TakeApart(r.stream.writes));
  const int progress = r.driver.GetPr();
  CHECK((progress == 101 || progress < 0));
  CHECK(r.stream.messages.back() == "2016.09.04:13.05.09 / Opros End");
}

}  // namespace

TEST_CASE("replies that are cut, replaced or doubled, and frames that hold anything") {
  for (const char* model : {"521", "522", "523", "721", "521.1x"}) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
      Read(model, seed, Spoil);
      Read(model, seed, Scramble);
    }
  }
}

TEST_CASE("parameters and dates that make no sense") {
  struct Case {
    const char* name;
    SYSTEMTIME from, to;
    int attempts, pause;
  };
  const Case cases[] = {
      {"month 13 to 0", {2016, 13, 0, 1}, {2017, 0, 0, 40, 99}, 1, -1},
      {"year 0", {0, 0, 0, 0}, {0, 1, 0, 1}, 1, 0},
      {"everything at its end",
       {65535, 65535, 0, 65535, 65535},
       {65535, 65535, 0, 65535, 65535},
       1,
       0},
      {"negative attempts", {2016, 9, 0, 1}, {2016, 9, 0, 1}, -5, 0},
  };
  for (const Case& c : cases) {
    CAPTURE(c.name);
    support::Reading r;
    simulator::Settings settings;
    support::Connect(r.port, settings);
    const auto instrument = r.port.answer;
    // Dates outside the calendar are asked for as they are; nobody has to like that.
    r.port.answer = [&](const Bytes& written) {
      const bool archive =
          written.size() == 9 && written[2] != 'R' && written[2] != 'E' && written[2] != '?';
      return archive ? Bytes{} : instrument(written);
    };
    r.driver.SetupDateTime(c.from, c.to);
    r.Groups("BTMSHE");
    r.Parameter(1, c.attempts);
    r.Parameter(4, c.pause);
    // A range that wraps around the calendar goes on until the host stops it.
    r.port.onRead = [&] {
      if (r.port.reads > 5000) r.driver.Stop();
    };
    r.Run();
    CHECK_NOTHROW(support::TakeApart(r.stream.writes));
    CHECK((r.driver.GetPr() == 101 || r.driver.GetPr() < 0));
  }
}
