// Opens a line from its address:
//
//   serial:/dev/ttyUSB0, serial:COM3   a serial device of this computer
//   tcp:gateway:4001, tcp:[::1]:4001   a gateway that passes raw bytes
//   rfc2217:gateway:4001               a gateway whose line is set by RFC 2217
//   simulate:523                       a simulated instrument of this model
#pragma once

#include <memory>
#include <string>

#include "host/line/line_port.h"
#include "host/line/reconnecting.h"
#include "simulator/simulator.h"

namespace host {

// Throws std::invalid_argument with one sentence when the text is no such address.
void CheckLineAddress(const std::string& address);

// simulated: everything about a simulated instrument but its model; the line keeps the instrument
// running. report: told when a gateway closes the connection. Throws std::invalid_argument like
// CheckLineAddress, and std::runtime_error with one sentence when the line cannot be opened.
std::unique_ptr<LinePort> OpenLine(const std::string& address,
                                   const simulator::Settings& simulated = {},
                                   const LineReport& report = {});

}  // namespace host
