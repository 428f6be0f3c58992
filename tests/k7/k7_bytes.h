// K7 frames and items as the line carries them, put together by the tests' own means: nothing here
// comes from the driver.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <vector>

#include "tests/support/fake_port.h"
#include "tests/support/hex.h"

namespace k7test {

using support::Bytes;

std::uint16_t Crc(const Bytes& bytes);

Bytes LongFrame(int address, int sequence, int command, const Bytes& data);
Bytes ShortFrame(int address, int command, const Bytes& data);

Bytes Item(int tag, const Bytes& value);
Bytes FloatItem(float value);
Bytes UIntItem(std::uint32_t value);
Bytes IntFloatItem(std::int32_t whole, float fraction);
Bytes TextItem(const char* text);

// An archive record: the stamp (year since 2000, month, day, hour, ...) and the values.
Bytes ArchiveRecord(const Bytes& stamp, const Bytes& values);
Bytes Joined(std::initializer_list<Bytes> parts);

struct Request {
  int address = 0, sequence = 0, command = 0;
  Bytes data;
};
// The long frame that a write holds; nothing for the wake-up run and for short frames. Throws
// std::logic_error when the frame is damaged.
std::optional<Request> ParseLong(const Bytes& written);

struct Answer {
  int command = 0;
  Bytes data;
};
// Makes the port answer long frames; nothing from the function: silence.
using Instrument = std::function<std::optional<Answer>(const Request&)>;
void Attach(support::FakePort& port, Instrument instrument);

// The first parameter's number and the count of a parameter request.
struct ParameterRange {
  int channel = 0, first = 0, count = 0;
};
ParameterRange RangeOf(const Request& request);

}  // namespace k7test
