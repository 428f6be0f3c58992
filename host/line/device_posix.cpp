#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "host/line/device.h"

namespace host {

bool IsBusy(const std::error_code& error) { return error.value() == EBUSY; }

bool IsNoSerialLine(const std::error_code& error) {
  return error.value() == ENOTTY || error.value() == EISDIR || error.value() == EINVAL;
}

std::vector<std::string> ListDevices() {
  std::vector<std::string> devices;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator("/dev", error)) {
    const std::string name = entry.path().filename().string();
    if (name.starts_with("ttyUSB") || name.starts_with("ttyACM")) {
      devices.push_back(entry.path().string());
    }
  }
  std::sort(devices.begin(), devices.end());
  return devices;
}

}  // namespace host
