#include "k7/link/frames.h"

#include <doctest/doctest.h>

#include "k7/link/crc.h"
#include "tests/k7/k7_bytes.h"

using support::Bytes;
using support::Hex;
using support::ToHex;

namespace {

Bytes Copy(std::span<const std::uint8_t> bytes) { return {bytes.begin(), bytes.end()}; }

}  // namespace

TEST_CASE("the check sums of known texts") {
  const Bytes digits = Hex("31 32 33 34 35 36 37 38 39");
  CHECK(k7::Crc16(digits) == 0x31C3);
  CHECK(k7::Crc16({}) == 0);
  CHECK(k7::Checksum(Hex("05 3F")) == 0xBB);
  CHECK(k7::Checksum({}) == 0xFF);
}

TEST_CASE("requests are laid out byte by byte") {
  k7::TxBuf buffer;
  buffer.fill(0xAA);
  const Bytes data = Hex("4A 03 00 01 04");
  const Bytes frame = Copy(k7::BuildLongFrame(buffer, 5, 7, 0x72, data));
  CHECK(ToHex(frame).substr(0, 38) == "10 05 90 07 00 06 00 72 4A 03 00 01 04");
  CHECK(frame == k7test::LongFrame(5, 7, 0x72, data));
  CHECK(buffer[frame.size()] == 0);

  CHECK(ToHex(Copy(k7::BuildShortFrame(buffer, 5, 0x3F, Hex("00 00 00 00")))) ==
        "10 05 3F 00 00 00 00 BB 16");
}

TEST_CASE("the length of a long request loses its high byte, the CRC covers all of it") {
  k7::TxBuf buffer;
  const Bytes frame = Copy(k7::BuildLongFrame(buffer, 5, 7, 0x72, Bytes(300, 0x11)));
  REQUIRE(frame.size() == 310);
  CHECK(frame[5] == 0x2D);
  CHECK(frame[6] == 0x00);
  const unsigned crc = k7test::Crc(Bytes(frame.begin() + 1, frame.end() - 2));
  CHECK(frame[308] * 256U + frame[309] == crc);
}

TEST_CASE("data that no frame can hold is cut") {
  k7::TxBuf buffer;
  const Bytes data(5000, 0x11);
  CHECK(k7::BuildLongFrame(buffer, 5, 7, 0x72, data).size() == buffer.size());
  CHECK(k7::BuildShortFrame(buffer, 5, 0x72, data).size() == buffer.size());
}
