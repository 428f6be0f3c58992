#include <windows.h>

#include <array>

#include "host/line/device.h"

namespace host {

bool IsBusy(const std::error_code& error) {
  return error.value() == ERROR_ACCESS_DENIED || error.value() == ERROR_SHARING_VIOLATION;
}

bool IsNoSerialLine(const std::error_code& error) {
  return error.value() == ERROR_INVALID_PARAMETER || error.value() == ERROR_INVALID_FUNCTION ||
         error.value() == ERROR_INVALID_HANDLE;
}

std::vector<std::string> ListDevices() {
  constexpr int kHighest = 256;
  std::vector<std::string> devices;
  std::array<char, 1024> target{};
  for (int i = 1; i <= kHighest; ++i) {
    const std::string name = "COM" + std::to_string(i);
    if (QueryDosDeviceA(name.c_str(), target.data(), target.size()) != 0) devices.push_back(name);
  }
  return devices;
}

}  // namespace host
