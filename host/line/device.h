// What each system tells about serial devices.
#pragma once

#include <string>
#include <system_error>
#include <vector>

namespace host {

// Whether opening failed because another program uses the device, or because it is no serial line.
bool IsBusy(const std::error_code& error);
bool IsNoSerialLine(const std::error_code& error);

// Serial devices of this computer, as a person would name them.
std::vector<std::string> ListDevices();

}  // namespace host
