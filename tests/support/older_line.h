// The older protocol seen from the instrument's side, for tests that write their own replies.
#pragma once

#include "tests/support/hex.h"

namespace support::older {

// A data reply of network number 1 around these data, with its checksum.
Bytes Reply(char function, const Bytes& data);
// An error reply with a code.
Bytes ErrorReply(int code);
// The identification of an instrument by family, model and version byte.
Bytes Identification(int family, int model, int version);
// An instrument float.
Bytes Float(float value);
// Whether the bytes written are a request of this function; wake-up bytes are none.
bool IsRequest(const Bytes& written, char function);

}  // namespace support::older
