// The frames of both protocols, explained: what each byte is, and what a stretch of bytes came to.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/stream/section.h"

namespace host::frames {

enum class Protocol { kUnknown, kOlder, kK7 };

// Which way bytes went. Unknown ones are told apart by what they say.
enum class Direction { kUnknown, kSent, kReceived };

// What a stretch of the line's bytes is.
enum class FrameClass {
  kWakeUp,  // the 0xFF bytes before an identification
  kRequest,
  kReply,          // a good one, to the request before it
  kErrorReply,     // the instrument refused the request
  kWrongChecksum,  // as long as a frame should be, or as it claims to be
  kForeign,        // of another network number
  kLate,           // a good reply, but to another request
  kEcho,           // the request, as a half-duplex line repeats it
  kCutShort,       // the start of a frame
  kNoise,          // no frame
};
// "wrong checksum".
const char* NameOf(FrameClass kind);

// Bytes that belong together.
struct Label {
  std::size_t first = 0;  // in the bytes that were given
  std::size_t count = 0;
  std::string name;
  std::string meaning;  // may be empty
};

struct Frame {
  FrameClass kind{};
  Direction direction{};
  std::string summary;        // "ask hour 2016-03-01 05:00", "reply 64 bytes, checksum right"
  std::vector<Label> labels;  // one behind the other: every byte of the frame is in one

  std::size_t First() const { return labels.front().first; }
  std::size_t Size() const { return labels.back().first + labels.back().count - First(); }
};

}  // namespace host::frames
