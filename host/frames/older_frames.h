// The frames of the older protocol, byte by byte.
#pragma once

#include "host/frames/context.h"
#include "host/frames/labels.h"

namespace host::frames {

// All return whole frames with the right or a wrong checksum; kind and labels are set by what the
// frame says, not by what was asked.
Frame ExplainOlderRequest(const Context& context, ByteView frame, std::size_t first);
// A data reply; function: of the request that it is taken for.
Frame ExplainOlderReply(const Context& context, ByteView frame, std::size_t first);
Frame ExplainOlderError(const Context& context, ByteView frame, std::size_t first);

// Whether the checksum of the bytes between the first one and the last two stands behind them.
bool IsSummed(ByteView frame);

// Bytes of a data reply to the last request; 0: not known.
std::size_t OlderReplySize(const Context& context);

inline constexpr std::size_t kOlderErrorSize = 6;

}  // namespace host::frames
