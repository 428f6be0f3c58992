// A gateway whose serial line is set over the connection: telnet with the COM port option of
// RFC 2217.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/line/channel.h"

namespace host {

// Asks the gateway for the option, over an open connection. The channel that is returned sets the
// line by it. Throws std::runtime_error with one sentence when the gateway does not have it; name:
// what the sentence calls it.
std::unique_ptr<Channel> NegotiateRfc2217(std::unique_ptr<Channel> connection,
                                          const std::string& name);

}  // namespace host
