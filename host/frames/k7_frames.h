// The frames of the K7 protocol, byte by byte.
#pragma once

#include "host/frames/context.h"
#include "host/frames/labels.h"

namespace host::frames {

// A long frame that holds its checksum, right or wrong. As a request, or as a reply to the
// context's request.
Frame ExplainK7(const Context& context, ByteView frame, std::size_t first, bool request);
// The same for short ones.
Frame ExplainK7Short(const Context& context, ByteView frame, std::size_t first, bool request);

// Whether bytes begin as a long frame does, and the size that it claims.
bool StartsK7(ByteView bytes);
std::size_t K7Size(ByteView bytes);
// Whether a long frame's checksum is right.
bool IsK7Summed(ByteView frame);
// Whether data of a command can only be a request's.
bool IsK7RequestData(std::uint8_t command, ByteView data);

}  // namespace host::frames
