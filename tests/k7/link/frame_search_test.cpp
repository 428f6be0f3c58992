// The searches against the literal ones, which look through everything received after each byte.
#include "k7/link/frame_search.h"

#include <doctest/doctest.h>

#include <memory>
#include <random>

#include "tests/k7/k7_bytes.h"

using k7::SearchResult;
using k7test::Joined;
using k7test::LongFrame;
using support::Bytes;
using support::Hex;
using support::ToHex;
using State = SearchResult::State;

namespace {

struct Link {
  int address, sequence;
  Bytes request;
};

SearchResult LiteralLong(const Bytes& rx, std::size_t ir, const Link& link) {
  for (std::size_t i = 0; i + 5 <= ir; ++i) {
    if (rx[i] != 0x10 || rx[i + 1] != link.address || rx[i + 2] != 0x90 ||
        rx[i + 3] != link.sequence || rx[i + 4] != 0) {
      continue;
    }
    const std::size_t length = rx[i + 5] + (i + 6 <= ir ? 256U * rx[i + 6] : 0U);
    if (i + length + 8 > ir) continue;
    const auto at = [&](std::size_t index) {
      return rx.begin() + static_cast<std::ptrdiff_t>(index);
    };
    const unsigned crc = k7test::Crc(Bytes(at(i + 1), at(i + length + 7)));
    if (rx[i + length + 7] != crc >> 8 || rx[i + length + 8] != (crc & 0xFF)) continue;
    if (Bytes(at(i), at(i + length + 9)) == link.request) continue;
    if (rx[i + 7] == 0) return {};
    return {State::kFound, rx[i + 7], i + 8, length};
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

std::string Describe(const SearchResult& result) {
  return std::to_string(static_cast<int>(result.state)) + " command " +
         std::to_string(result.command) + " at " + std::to_string(result.dataAt) + " length " +
         std::to_string(result.length);
}

// One object for all cases: what an attempt leaves behind must not reach the next one.
struct Searches {
  k7::LongFrameSearch longSearch;
  k7::ShortFrameSearch shortSearch;
  k7::RxBuf received{};
};

// How many frames were found in the stream, which both searches take byte by byte.
int CompareLong(Searches& searches, const Bytes& stream, const Link& link) {
  searches.longSearch.Start(static_cast<std::uint8_t>(link.address),
                            static_cast<std::uint8_t>(link.sequence), link.request);
  for (std::size_t ir = 0; ir < stream.size(); ++ir) {
    searches.received[ir] = stream[ir];
    const SearchResult found = searches.longSearch.FindLongFrame(searches.received, ir);
    const SearchResult expected = LiteralLong(stream, ir, link);
    INFO(ToHex(stream), ", byte ", ir);
    REQUIRE(Describe(found) == Describe(expected));
    if (found.state != State::kNothing) return 1;
  }
  return 0;
}

State CompareShort(Searches& searches, const Bytes& stream, const Link& link) {
  searches.shortSearch.Start(static_cast<std::uint8_t>(link.address));
  for (std::size_t ir = 0; ir < stream.size(); ++ir) {
    searches.received[ir] = stream[ir];
    const SearchResult found = searches.shortSearch.FindShortFrame(searches.received, ir);
    const SearchResult expected = LiteralShort(stream, ir, link);
    INFO(ToHex(stream), ", byte ", ir);
    REQUIRE(Describe(found) == Describe(expected));
    if (found.state != State::kNothing) return found.state;
  }
  return State::kNothing;
}

// Streams that are mostly frame starts, true and false ones, in and behind each other.
class Noise {
 public:
  Link NextLink() {
    // Addresses and numbers under which frame starts overlap.
    constexpr int kAwkward[] = {0x00, 0x10, 0x90, 0x16};
    const auto pick = [&] { return Below(3) == 0 ? Below(256) : kAwkward[Below(4)]; };
    link_ = {pick(), pick(), {}};
    link_.request = Frame(Below(2) == 0 ? 0 : 0x3F, Below(4));
    return link_;
  }
  Bytes Stream() {
    Bytes stream;
    for (int pieces = 1 + Below(9); pieces > 0; --pieces) stream = Joined({stream, Piece()});
    return stream;
  }
  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

 private:
  Bytes Random(int size) {
    Bytes bytes(static_cast<std::size_t>(size));
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(Below(256));
    return bytes;
  }
  Bytes Frame(int command, int size) {
    return LongFrame(link_.address, link_.sequence, command, Random(size));
  }
  Bytes Piece() {
    const Bytes whole = Frame(Below(3) == 0 ? 0 : Below(256), Below(6));
    switch (Below(8)) {
      case 0:
        return Random(Below(5));
      case 1:
        return link_.request;
      case 2:  // a start that claims a little more than itself
        return Joined(
            {Bytes(whole.begin(), whole.begin() + 5), {static_cast<std::uint8_t>(Below(30)), 0}});
      case 3:  // a start that breaks off
        return {whole.begin(), whole.begin() + 1 + Below(8)};
      case 4:  // a frame within a frame
        return LongFrame(link_.address, link_.sequence, Below(2), Joined({Random(2), whole}));
      case 5:
        return k7test::ShortFrame(link_.address, Below(3), Random(Below(3)));
      case 6:
        return Chain(Below(2), Below(2));
      default:
        return whole;
    }
  }
  // Two frames of which the second starts inside the first and ends behind it.
  Bytes Chain(int firstCommand, int secondCommand) {
    const Bytes start = LongFrame(link_.address, link_.sequence, secondCommand, Random(2));
    const Bytes head(start.begin(), start.begin() + 8);
    const Bytes first = LongFrame(link_.address, link_.sequence, firstCommand, head);
    const Bytes second = LongFrame(link_.address, link_.sequence, secondCommand,
                                   {first[first.size() - 2], first.back()});
    return Joined({first, {second[second.size() - 2], second.back()}});
  }

  std::mt19937 random_{20160904};
  Link link_{};
};

}  // namespace

TEST_CASE("the searches find what the literal ones find, at the same byte") {
  const auto searches = std::make_unique<Searches>();
  Noise noise;
  int frames = 0, shorts = 0, endless = 0, nothing = 0;
  for (int i = 0; i < 6000; ++i) {
    const Link link = noise.NextLink();
    const Bytes stream = noise.Stream();
    const int found = CompareLong(*searches, stream, link);
    frames += found;
    nothing += 1 - found;
    const State end = CompareShort(*searches, stream, link);
    shorts += end == State::kFound ? 1 : 0;
    endless += end == State::kEndless ? 1 : 0;
  }
  // The streams do exercise all ends.
  CHECK(frames > 1000);
  CHECK(nothing > 1000);
  CHECK(shorts > 100);
  CHECK(endless > 1000);
}

TEST_CASE("of two frames that end with the same byte the one that starts first counts") {
  // The outer frame's data holds the inner frame up to the CRC that both share. For that, the
  // bytes between the two starts must be their own CRC: two free bytes are tried out.
  const auto outer = [](unsigned free, int command) {
    const Bytes inner = LongFrame(5, 1, 0x61, Hex("AA"));
    const auto length = static_cast<std::uint8_t>(3 + inner.size() - 2);
    Bytes head = {5, 0x90, 1, 0, length, 0, static_cast<std::uint8_t>(command)};
    head = Joined({head,
                   {static_cast<std::uint8_t>(free >> 8), static_cast<std::uint8_t>(free & 0xFF)},
                   {0x10}});
    return std::pair(Joined({{0x10}, head, Bytes(inner.begin() + 1, inner.end())}), head);
  };
  const auto searches = std::make_unique<Searches>();
  for (const int command : {0x72, 0x00}) {
    unsigned free = 0;
    while (free < 0x10000 && k7test::Crc(outer(free, command).second) != 0) ++free;
    REQUIRE(free < 0x10000);
    const Bytes stream = outer(free, command).first;
    CHECK(LiteralLong(stream, stream.size() - 1, {5, 1, {}}).command == command);
    // A frame with command 0 hides the inner one and everything that comes later.
    CHECK(CompareLong(*searches, stream, {5, 1, {}}) == (command != 0 ? 1 : 0));
    CHECK(CompareLong(*searches, Joined({stream, LongFrame(5, 1, 0x61, {})}), {5, 1, {}}) ==
          (command != 0 ? 1 : 0));
  }
}
