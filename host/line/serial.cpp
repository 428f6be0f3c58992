#include "host/line/serial.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "host/line/device.h"
#include "host/system/console.h"

namespace host {

std::runtime_error BusyError(const std::string& device) {
  return std::runtime_error(device + " is in use by another program");
}

std::runtime_error OpenError(const std::string& device, const std::error_code& error) {
  if (IsBusy(error)) return BusyError(device);
  if (IsNoSerialLine(error)) return std::runtime_error(device + " is no serial line");
  const auto devices = ListDevices();
  const std::string others =
      devices.empty() ? "" : fmt::format(" (serial lines here: {})", fmt::join(devices, ", "));
  return std::runtime_error(fmt::format("cannot open {}: {}{}", device, ErrorText(error), others));
}

}  // namespace host
