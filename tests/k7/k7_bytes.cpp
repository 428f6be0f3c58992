#include "tests/k7/k7_bytes.h"

#include <cstring>
#include <stdexcept>

namespace k7test {
namespace {

std::uint8_t Byte(unsigned value) { return static_cast<std::uint8_t>(value & 0xFF); }

Bytes LowFirst(std::uint32_t value) {
  return {Byte(value), Byte(value >> 8), Byte(value >> 16), Byte(value >> 24)};
}

Bytes FloatBytes(float value) {
  std::uint32_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  return LowFirst(bits);
}

}  // namespace

// By long division of the bits, 16 zero bits appended.
std::uint16_t Crc(const Bytes& bytes) {
  std::uint32_t rest = 0;
  for (std::size_t bit = 0; bit < (bytes.size() + 2) * 8; ++bit) {
    const unsigned byte = bit / 8 < bytes.size() ? bytes[bit / 8] : 0;
    rest = (rest << 1) | ((byte >> (7 - bit % 8)) & 1U);
    if ((rest & 0x10000U) != 0) rest ^= 0x11021U;
  }
  return static_cast<std::uint16_t>(rest);
}

Bytes LongFrame(int address, int sequence, int command, const Bytes& data) {
  const auto length = static_cast<unsigned>(data.size() + 1);
  const Bytes head = {Byte(static_cast<unsigned>(address)),
                      0x90,
                      Byte(static_cast<unsigned>(sequence)),
                      0,
                      Byte(length),
                      Byte(length >> 8),
                      Byte(static_cast<unsigned>(command))};
  const Bytes covered = Joined({head, data});
  const unsigned crc = Crc(covered);
  return Joined({{0x10}, covered, {Byte(crc >> 8), Byte(crc)}});
}

Bytes ShortFrame(int address, int command, const Bytes& data) {
  const Bytes head = {Byte(static_cast<unsigned>(address)), Byte(static_cast<unsigned>(command))};
  const Bytes covered = Joined({head, data});
  unsigned sum = 0;
  for (const std::uint8_t byte : covered) sum += byte;
  return Joined({{0x10}, covered, {Byte(~sum), 0x16}});
}

Bytes Item(int tag, const Bytes& value) {
  const std::uint8_t first = Byte(static_cast<unsigned>(tag));
  const auto length = static_cast<unsigned>(value.size());
  const Bytes head = length < 0x80 ? Bytes{first, Byte(length)}
                                   : Bytes{first, 0x82, Byte(length >> 8), Byte(length)};
  return Joined({head, value});
}

Bytes FloatItem(float value) { return Item(0x09, FloatBytes(value)); }
Bytes UIntItem(std::uint32_t value) { return Item(0x02, LowFirst(value)); }

Bytes IntFloatItem(std::int32_t whole, float fraction) {
  return Item(0x09, Joined({LowFirst(static_cast<std::uint32_t>(whole)), FloatBytes(fraction)}));
}

Bytes TextItem(const char* text) { return Item(0x16, Bytes(text, text + std::strlen(text))); }

Bytes ArchiveRecord(const Bytes& stamp, const Bytes& values) {
  return Joined({Item(0x49, stamp), Item(0x30, values)});
}

Bytes Joined(std::initializer_list<Bytes> parts) {
  Bytes all;
  for (const Bytes& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

std::optional<Request> ParseLong(const Bytes& written) {
  if (written.size() < 10 || written[0] != 0x10 || written[2] != 0x90) return std::nullopt;
  const Request request = {written[1], written[3], written[7],
                           Bytes(written.begin() + 8, written.end() - 2)};
  if (LongFrame(request.address, request.sequence, request.command, request.data) != written) {
    throw std::logic_error("a damaged request: " + support::ToHex(written));
  }
  return request;
}

void Attach(support::FakePort& port, Instrument instrument) {
  port.answer = [instrument = std::move(instrument)](const Bytes& written) -> Bytes {
    const auto request = ParseLong(written);
    if (!request) return {};
    const auto answer = instrument(*request);
    if (!answer) return {};
    return LongFrame(request->address, request->sequence, answer->command, answer->data);
  };
}

ParameterRange RangeOf(const Request& request) {
  const Bytes& data = request.data;
  return {data.at(2), data.at(3) + 256 * data.at(4), static_cast<int>(data.size() / 5)};
}

}  // namespace k7test
