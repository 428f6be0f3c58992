// Where frames stand among bytes. Checksums tell; what is left over is told by what it looks like.
#pragma once

#include <optional>

#include "host/frames/context.h"

namespace host::frames {

enum class Form { kWakeUp, kOlderRequest, kOlderReply, kOlderError, kK7Long, kK7Short, kNone };

struct Found {
  Form form = Form::kNone;
  std::size_t count = 0;  // bytes that are there
  std::size_t whole = 0;  // that it should have; 0: nothing tells
  bool right = false;     // its checksum is there and right
};

// The frame with a right checksum that starts bytes; none when there is none. aligned: a reply may
// start here whatever its first byte is, as the driver takes it.
Found FindRight(const Context& context, ByteView bytes, Direction direction, bool aligned);

// What bytes without such a frame start with.
Found FindBroken(const Context& context, ByteView bytes, Direction direction);

}  // namespace host::frames
