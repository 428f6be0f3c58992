#include "host/reading/driver_library.h"

#include <stdexcept>

namespace host {

void EndDriver(DriverPointer driver) { driver.release()->Destroy(kFreeObject); }

DriverPointer DriverLibrary::Create(HostStream& stream, HostPort& port) const {
  TavDrvV1* const driver = init_(&stream, &port);
  if (driver == nullptr) throw std::runtime_error("the driver has no memory");
  return DriverPointer(driver);
}

}  // namespace host
