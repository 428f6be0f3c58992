// What stands where in an instrument of the older protocol, by the driver's models.
#pragma once

#include <optional>

#include "host/frames/context.h"
#include "host/frames/values.h"

namespace host::frames {

// What a request asks for.
struct OlderPlace {
  std::string name{};           // "current values", "hour 2016-03-01 05:00"
  std::size_t dataSize = 0;     // of each reply; 0: not known
  std::vector<Piece> pieces{};  // of the data, when they were given
};

// A request as its nine bytes have it. data: of the reply to it, or empty. Of a request whose place
// the context's model does not have, the name tells the address.
OlderPlace FindPlace(const Context& context, const older::Request& request, ByteView data);

// The request in its frame.
older::Request RequestIn(ByteView frame);

}  // namespace host::frames
