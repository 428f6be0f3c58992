#include <doctest/doctest.h>

#include <bit>
#include <numeric>

#include "tests/simulator/line.h"

using namespace simulator;

namespace {

Bytes Clean() { return support::Hex("10 01 52 10 09 04 0D 05 09 74 16"); }

// The replies to clock requests in a row.
std::vector<Bytes> Replies(const std::vector<Fault>& faults, std::size_t count,
                           std::uint32_t seed = 1) {
  Settings settings = FixedSettings("521");
  settings.faults = faults;
  settings.seed = seed;
  Line line(settings);
  std::vector<Bytes> replies(count);
  for (Bytes& reply : replies) reply = line.Send(Request("52 64 00 06 00"));
  return replies;
}

int BitsApart(const Bytes& a, const Bytes& b) {
  return std::transform_reduce(
      a.begin(), a.end(), b.begin(), 0, std::plus<>(),
      [](std::uint8_t x, std::uint8_t y) { return std::popcount(static_cast<unsigned>(x ^ y)); });
}

bool IsFault(const std::string& kind, const Bytes& reply) {
  const Bytes clean = Clean();
  if (kind == "no-reply") return reply.empty();
  if (kind == "cut-reply") {
    return !reply.empty() && reply.size() < clean.size() &&
           std::equal(reply.begin(), reply.end(), clean.begin());
  }
  if (kind == "flipped-bit") return reply.size() == clean.size() && BitsApart(reply, clean) == 1;
  if (kind == "noise") {
    return reply.size() > clean.size() && reply.size() <= clean.size() + 8 &&
           std::equal(clean.rbegin(), clean.rend(), reply.rbegin());
  }
  return kind == "error-reply" && reply.size() == 6 && reply[2] == 0x21;
}

}  // namespace

TEST_CASE("each fault strikes on every Nth exchange and is the same for a seed") {
  for (const std::string fault : {"no-reply", "cut-reply", "flipped-bit", "noise", "error-reply"}) {
    CAPTURE(fault);
    const std::vector<Bytes> replies = Replies({{fault, 3}}, 30);
    for (std::size_t i = 0; i < replies.size(); ++i) {
      CAPTURE(support::ToHex(replies[i]));
      const bool struck = (i + 1) % 3 == 0;
      CHECK((struck ? IsFault(fault, replies[i]) : replies[i] == Clean()));
    }
    CHECK(Replies({{fault, 3}}, 30) == replies);
    const bool random = fault != "no-reply";
    CHECK((Replies({{fault, 3}}, 30, 2) != replies) == random);
  }
}

TEST_CASE("only exchanges with a reply are counted, and faults come together") {
  Settings settings = FixedSettings("521");
  settings.faults = {{"no-reply", 2}, {"noise", 2}};
  Line line(settings);
  CHECK(line.Ask("52 64 00 06 00") == support::ToHex(Clean()));
  CHECK(line.Send(support::Hex("10 02 3F 00 00 00 00 BE 16")).empty());
  CHECK(line.Ask("52 64 00 06 00").empty());
  CHECK(line.Ask("52 64 00 06 00") == support::ToHex(Clean()));
}

TEST_CASE("a page that fails is followed by the next one after the host's time limit") {
  Settings settings = FixedSettings("521");
  settings.special.failingPage = 0;
  Line line(settings);
  const auto exchanges = line.GetInstrument().Receive(Request("45 00 00 02 00"));
  REQUIRE(exchanges.size() == 1);
  REQUIRE(exchanges[0].reply.size() == 2);
  CHECK(support::ToHex(exchanges[0].reply[0].bytes) == "10 01 21 02");
  CHECK(exchanges[0].reply[1].silence > std::chrono::milliseconds(500));
  CHECK(exchanges[0].reply[1].bytes.size() == 69);
}
