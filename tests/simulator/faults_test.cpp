#include <doctest/doctest.h>

#include <algorithm>
#include <bit>
#include <map>
#include <numeric>

#include "simulator/k7/frame.h"
#include "tests/simulator/line.h"

using namespace simulator;
using support::operator+;

namespace {

// A request that a host repeats: the clock of an older instrument, or a day of a K7.
Bytes RequestTo(const std::string& model) {
  if (!model.starts_with("k7")) return Request("52 64 00 06 00");
  return k7::Build({true, 1, 1, 0x61,
                    support::Hex("04 05 FF FF 00 01 01 49 08 10 09 01 00 1E 28 00 00 "
                                 "49 08 10 09 03 0B 00 00 00 00")});
}

std::vector<Bytes> Replies(const std::string& model, const std::vector<Fault>& faults,
                           std::size_t count, std::uint32_t seed = 1) {
  Settings settings = FixedSettings(model);
  settings.faults = faults;
  settings.seed = seed;
  Line line(settings);
  std::vector<Bytes> replies(count);
  for (Bytes& reply : replies) {
    CHECK(line.Send(support::Hex("10 02 3F 00 00 00 00 BE 16")).empty());  // it doesn't count
    reply = line.Send(RequestTo(model));
  }
  return replies;
}

// A reply with a fault, beside its request and the reply without.
struct Struck {
  const Bytes& request;
  const Bytes& clean;
  const Bytes& reply;

  bool EndsClean() const {
    return reply.size() > clean.size() && std::equal(clean.rbegin(), clean.rend(), reply.rbegin());
  }
  bool IsCut() const {
    return !reply.empty() && reply.size() < clean.size() &&
           std::equal(reply.begin(), reply.end(), clean.begin());
  }
  bool IsOneBitApart() const {
    const auto bits = [](int a, int b) { return std::popcount(static_cast<unsigned>(a ^ b)); };
    return reply.size() == clean.size() &&
           std::transform_reduce(reply.begin(), reply.end(), clean.begin(), 0, std::plus<>(),
                                 bits) == 1;
  }
  k7::Frame Frame() const { return k7::Parse(reply).value(); }
  Bytes Data() const { return Frame().data; }
  Bytes CleanData() const { return k7::Parse(clean).value().data; }
  // The first ten bytes of the data: an archive record's stamp.
  Bytes Stamp() const { return Bytes(clean.begin() + 8, clean.begin() + 18); }
};

const std::map<std::string, bool (*)(const Struck&)> kFaults = {
    {"no-reply", [](const Struck& s) { return s.reply.empty(); }},
    {"frozen", [](const Struck& s) { return s.reply.empty(); }},
    {"cut-reply", [](const Struck& s) { return s.IsCut(); }},
    {"flipped-bit", [](const Struck& s) { return s.IsOneBitApart(); }},
    {"noise",
     [](const Struck& s) { return s.EndsClean() && s.reply.size() - s.clean.size() <= 8; }},
    {"error-reply", [](const Struck& s) { return s.reply.size() == 6 && s.reply[2] == 0x21; }},
    {"wrong-sequence", [](const Struck& s) { return s.Frame().sequence == 2; }},
    {"echo", [](const Struck& s) { return s.reply == s.request + s.clean; }},
    {"false-starts", [](const Struck& s) { return s.EndsClean(); }},
    {"other-command", [](const Struck& s) { return s.Frame().command == 0x21; }},
    {"unknown-items", [](const Struck& s) { return s.Data()[0] == 5; }},
    {"stamp-alone",
     [](const Struck& s) {
       return s.Data() == s.Stamp() + Bytes{5, 0};
     }},
    {"past-end",
     [](const Struck& s) {
       const Bytes data = s.Data();
       return data[11] == 0x82 && data[12] * 256u + data[13] > data.size() - 14;
     }},
    {"several-records", [](const Struck& s) { return s.Data() == s.CleanData() + s.CleanData(); }},
    {"empty-reply", [](const Struck& s) { return s.Data().empty(); }},
};

}  // namespace

TEST_CASE("each fault strikes when it should and is the same for a seed") {
  for (const char* model : {"521", "k7-521"}) {
    const Bytes request = RequestTo(model), clean = Replies(model, {}, 1)[0];
    for (const Choice& fault : FaultsOf(model)) {
      CAPTURE(model);
      CAPTURE(fault.name);
      const std::vector<Fault> faults = {{fault.name, 3, 4}};
      const std::vector<Bytes> replies = Replies(model, faults, 30);
      const bool frozen = fault.name == std::string("frozen");
      for (std::size_t i = 0; i < replies.size(); ++i) {
        CAPTURE(i);
        const bool struck = frozen ? i >= 3 && i < 7 : i % 3 == 2;
        CHECK(
            (struck ? kFaults.at(fault.name)({request, clean, replies[i]}) : replies[i] == clean));
      }
      CHECK(Replies(model, faults, 30) == replies);
      // The clock's bytes are the same for every seed.
      const bool random = clean.size() == 11 && !replies[5].empty();
      CHECK(random == (clean.size() == 11 && Replies(model, faults, 30, 2) != replies));
    }
  }
}

TEST_CASE("a fault takes what another one left of a reply, and no byte behind it") {
  const char* const model = "k7-521";
  const Bytes request = RequestTo(model), clean = Replies(model, {}, 1)[0];
  for (const Choice& first : FaultsOf(model)) {
    for (const Choice& second : FaultsOf(model)) {
      CAPTURE(first.name);
      CAPTURE(second.name);
      const std::vector<Fault> both = {{first.name, 1}, {second.name, 1}, {"unknown-items", 2}};
      for (const Bytes& reply : Replies(model, both, 8)) CHECK(reply.size() < 5 * clean.size());
    }
  }
  const Bytes alone = Replies(model, {{"stamp-alone"}, {"past-end"}}, 1)[0];
  CHECK(kFaults.at("stamp-alone")({request, clean, alone}));
  // The last record as it was, then an item of the fault's own.
  const Bytes mixed = Replies(model, {{"past-end"}, {"unknown-items"}}, 1)[0];
  const Bytes data = k7::Parse(mixed).value().data, end = k7::Parse(clean).value().data;
  CHECK(std::equal(end.rbegin(), end.rbegin() + 20, data.rbegin() + 2));
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
