// The searches against the literal ones, which look through everything received after each byte.
#include "k7/link/frame_search.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <tuple>

#include "k7/link/crc.h"
#include "simulator/k7/frame.h"
#include "tests/support/hex.h"

using k7::SearchResult;
using simulator::k7::Build;
using support::Bytes;
using support::Hex;
using support::ToHex;
using support::operator+;
using State = SearchResult::State;

namespace {

struct Link {
  std::uint8_t address, sequence;
  Bytes request;
};

SearchResult LiteralLong(const Bytes& rx, std::size_t ir, const Link& link) {
  const std::uint8_t head[] = {0x10, link.address, 0x90, link.sequence, 0};
  for (std::size_t i = 0; i + 6 <= ir; ++i) {
    const auto at = std::span(rx).subspan(i);
    if (!std::equal(head, head + 5, at.begin())) continue;
    const std::size_t length = at[5] + 256U * at[6];
    if (i + length + 8 > ir) continue;
    const auto frame = at.first(length + 9);
    if (k7::Crc16(frame.subspan(1)) != 0 || std::ranges::equal(frame, link.request)) continue;
    if (at[7] == 0) return {};
    return {State::kFound, at[7], i + 8, length};
  }
  return {};
}

SearchResult LiteralShort(const Bytes& rx, std::size_t ir, const Link& link) {
  for (std::size_t first = 0; first + 5 <= ir; ++first) {
    if (rx[first] != 0x10 || rx[first + 1] != link.address) continue;
    const std::size_t j = first + 4;
    for (std::size_t i = first; j <= ir; ++i) {
      // From here on the start is behind the stop byte and nothing changes any more.
      if (i > j + 4) return {.state = State::kEndless};
      if (rx[j] != 0x16) continue;
      unsigned sum = 0;
      for (std::size_t k = i + 1; k + 2 <= j; ++k) sum += rx[k];
      if ((~sum & 0xFF) != rx[j - 1]) continue;
      if (rx[i + 2] == 0) return {};
      return {State::kFound, rx[i + 2], i + 3, j > i + 4 ? j - i - 4 : 0};
    }
  }
  return {};
}

auto Fields(const SearchResult& result) {
  return std::tuple(result.state, result.command, result.dataAt, result.length);
}

// The buffer keeps what earlier streams left in it.
struct Searches {
  template <typename Find, typename Literal>
  State Compare(const Bytes& stream, const Link& link, Find find, Literal literal) {
    INFO(ToHex(stream));
    for (std::size_t ir = 0; ir < stream.size(); ++ir) {
      received[ir] = stream[ir];
      const SearchResult found = find(ir);
      INFO("byte ", ir);
      REQUIRE((Fields(found) == Fields(literal(stream, ir, link))));
      if (found.state != State::kNothing) return found.state;
    }
    return State::kNothing;
  }
  State Long(const Bytes& stream, const Link& link) {
    k7::LongFrameSearch search(link.address, link.sequence, link.request);
    const auto find = [&](std::size_t ir) { return search.FindLongFrame(received, ir); };
    return Compare(stream, link, find, LiteralLong);
  }
  State Short(const Bytes& stream, const Link& link) {
    k7::ShortFrameSearch search(link.address);
    const auto find = [&](std::size_t ir) { return search.FindShortFrame(received, ir); };
    return Compare(stream, link, find, LiteralShort);
  }

  k7::RxBuf received{};
};

// Streams that are mostly frame starts, true and false ones, in and behind each other.
class Noise {
 public:
  Link NextLink() {
    // Addresses and numbers under which frame starts overlap.
    constexpr std::uint8_t kAwkward[] = {0x00, 0x10, 0x90, 0x16};
    const auto pick = [&] { return Below(3) == 0 ? Byte() : kAwkward[Below(4)]; };
    link_ = {pick(), pick(), {}};
    link_.request = Frame(Below(2) * 0x3F, Random(Below(4)));
    return link_;
  }
  Bytes Stream() {
    Bytes stream;
    for (int pieces = 1 + Below(9); pieces > 0; --pieces) stream = stream + Piece();
    return stream;
  }

 private:
  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  std::uint8_t Byte() { return static_cast<std::uint8_t>(Below(256)); }
  Bytes Random(int size) {
    Bytes bytes(static_cast<std::size_t>(size));
    for (auto& byte : bytes) byte = Byte();
    return bytes;
  }
  Bytes Frame(int command, const Bytes& data, bool isLong = true) const {
    return Build({isLong, link_.address, link_.sequence, static_cast<std::uint8_t>(command), data});
  }
  Bytes Piece() {
    const Bytes whole = Frame(Below(3) == 0 ? 0 : Below(256), Random(Below(6)));
    switch (Below(8)) {
      case 0:
        return Random(Below(5));
      case 1:
        return link_.request;
      case 2:  // a start that claims a little more than itself
        return Bytes(whole.begin(), whole.begin() + 5) +
               Bytes{static_cast<std::uint8_t>(Below(30)), 0};
      case 3:  // a start that breaks off
        return {whole.begin(), whole.begin() + 1 + Below(8)};
      case 4:  // a frame within a frame
        return Frame(Below(2), Random(2) + whole);
      case 5:
        return Frame(Below(3), Random(Below(3)), false);
      case 6:
        return Chain();
      default:
        return whole;
    }
  }
  // Two frames of which the second starts inside the first and ends behind it.
  Bytes Chain() {
    const int command = Below(2);
    const Bytes start = Frame(command, Random(2));
    const Bytes first = Frame(Below(2), {start.begin(), start.begin() + 8});
    const Bytes second = Frame(command, {first.end() - 2, first.end()});
    return first + Bytes(second.end() - 2, second.end());
  }

  std::mt19937 random_{20160904};
  Link link_{};
};

}  // namespace

TEST_CASE("the searches find what the literal ones find, at the same byte") {
  const auto searches = std::make_unique<Searches>();
  Noise noise;
  int longs[3] = {}, shorts[3] = {};  // by how they end
  for (int i = 0; i < 6000; ++i) {
    const Link link = noise.NextLink();
    const Bytes stream = noise.Stream();
    ++longs[static_cast<int>(searches->Long(stream, link))];
    ++shorts[static_cast<int>(searches->Short(stream, link))];
  }
  // The streams do exercise all ends.
  CHECK(longs[static_cast<int>(State::kFound)] > 1000);
  CHECK(longs[static_cast<int>(State::kNothing)] > 1000);
  CHECK(shorts[static_cast<int>(State::kFound)] > 100);
  CHECK(shorts[static_cast<int>(State::kEndless)] > 1000);
}

TEST_CASE("a short frame is sought from three starts") {
  struct Case {
    const char* stream;
    State end;
  };
  for (const Case& c :
       {Case{"10 05 72 88 16 AA", State::kFound}, Case{"10 05 72 8D 16 AA", State::kFound},
        Case{"10 05 72 FF 16 AA", State::kFound}, Case{"10 05 72 8A 16 AA", State::kEndless},
        Case{"10 05 00 FA 16 AA 10 05 72 88 16 AA", State::kNothing}}) {
    CHECK(std::make_unique<Searches>()->Short(Hex(c.stream), {5, 0, {}}) == c.end);
  }
}

TEST_CASE("of two frames that end with the same byte the one that starts first counts") {
  // The outer frame's data holds the inner frame up to the CRC that both share. For that, the
  // bytes between the two starts must be their own CRC: two free bytes are tried out.
  const auto outer = [](unsigned free, std::uint8_t command) {
    const Bytes inner = Build({true, 5, 1, 0x61, Hex("AA")});
    return Bytes{0x10,
                 5,
                 0x90,
                 1,
                 0,
                 static_cast<std::uint8_t>(1 + inner.size()),
                 0,
                 command,
                 static_cast<std::uint8_t>(free >> 8),
                 static_cast<std::uint8_t>(free & 0xFF)} +
           inner;
  };
  const auto searches = std::make_unique<Searches>();
  for (const std::uint8_t command : {std::uint8_t{0x72}, std::uint8_t{0}}) {
    unsigned free = 0;
    Bytes stream = outer(free, command);
    while (free < 0x10000 && k7::Crc16(std::span(stream).subspan(1, 10)) != 0) {
      stream = outer(++free, command);
    }
    CHECK(LiteralLong(stream, stream.size() - 1, {5, 1, {}}).command == command);
    // A frame with command 0 hides the inner one and everything that comes later.
    const State end = command != 0 ? State::kFound : State::kNothing;
    CHECK(searches->Long(stream, {5, 1, {}}) == end);
    CHECK(searches->Long(stream + Build({true, 5, 1, 0x61, {}}), {5, 1, {}}) == end);
  }
}
