#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <termios.h>

#include <algorithm>
#include <filesystem>

#include "host/line/device.h"

namespace host {
namespace {

// The far end of a pseudo terminal keeps it alive, and with it a claim that a killed program left.
bool IsPseudoTerminal(int device) {
  struct stat status = {};
  if (fstat(device, &status) != 0) return false;
  constexpr unsigned kFirstMajor = 136, kLastMajor = 143;
  return major(status.st_rdev) >= kFirstMajor && major(status.st_rdev) <= kLastMajor;
}

}  // namespace

// The file lock is for programs that look at it, this one first of all; the terminal's own claim is
// for all others.
bool Claim(int device) {
  if (flock(device, LOCK_EX | LOCK_NB) != 0) return false;
  if (!IsPseudoTerminal(device)) ioctl(device, TIOCEXCL);
  return true;
}

void Release(int device) {
  if (!IsPseudoTerminal(device)) ioctl(device, TIOCNXCL);
}

bool IsBusy(const asio::error_code& error) { return error.value() == EBUSY; }

bool IsNoSerialLine(const asio::error_code& error) {
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
