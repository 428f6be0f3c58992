#include "k7/link/frames.h"

#include <doctest/doctest.h>

#include "k7/link/crc.h"
#include "simulator/k7/frame.h"
#include "tests/support/hex.h"

using support::Bytes;
using support::Hex;
using support::ToHex;

namespace {

Bytes Copy(std::span<const std::uint8_t> bytes) { return {bytes.begin(), bytes.end()}; }

}  // namespace

TEST_CASE("requests are laid out byte by byte, their check sums are those of known texts") {
  CHECK(k7::Crc16(Hex("31 32 33 34 35 36 37 38 39")) == 0x31C3);
  k7::TxBuf buffer;
  buffer.fill(0xAA);
  const Bytes data = Hex("4A 03 00 01 04");
  const Bytes frame = Copy(k7::BuildLongFrame(buffer, 5, 7, 0x72, data));
  CHECK(ToHex(frame).substr(0, 38) == "10 05 90 07 00 06 00 72 4A 03 00 01 04");
  CHECK(frame == simulator::k7::Build({true, 5, 7, 0x72, data}));
  CHECK(buffer[frame.size()] == 0);
  CHECK(ToHex(Copy(k7::BuildShortFrame(buffer, 5, 0x3F, Hex("00 00 00 00")))) ==
        "10 05 3F 00 00 00 00 BB 16");
}

TEST_CASE("a long request's length loses its high byte, data that no frame can hold is cut") {
  k7::TxBuf buffer;
  const Bytes data(5000, 0x11);
  const Bytes frame = Copy(k7::BuildLongFrame(buffer, 5, 7, 0x72, std::span(data).first(300)));
  REQUIRE(frame.size() == 310);
  CHECK(ToHex({frame.begin() + 5, frame.begin() + 7}) == "2D 00");
  CHECK(k7::Crc16(std::span(frame).subspan(1)) == 0);  // it covers all of it
  CHECK(k7::BuildLongFrame(buffer, 5, 7, 0x72, data).size() == buffer.size());
  CHECK(k7::BuildShortFrame(buffer, 5, 0x72, data).size() == buffer.size());
}
