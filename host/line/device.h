// What each system offers beyond opening a serial device.
#pragma once

#include <asio.hpp>
#include <string>
#include <vector>

namespace host {

// Keeps other programs from using an open device; false when one does. Ends when the device is
// closed, but for what Release has to take back.
bool Claim(asio::serial_port::native_handle_type device);
void Release(asio::serial_port::native_handle_type device);

// Whether opening failed because another program uses the device, or because it is no serial line.
bool IsBusy(const asio::error_code& error);
bool IsNoSerialLine(const asio::error_code& error);

// Serial devices of this computer, as a person would name them.
std::vector<std::string> ListDevices();

}  // namespace host
