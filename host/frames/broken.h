// Bytes that are no frame, or one whose checksum is wrong.
#pragma once

#include "host/frames/context.h"

namespace host::frames {

// Appends what they look like, and why they are not. No frame with a right checksum is among them.
void AppendBroken(std::vector<Frame>& frames, Context& context, ByteView bytes, std::size_t first,
                  Direction direction);

}  // namespace host::frames
