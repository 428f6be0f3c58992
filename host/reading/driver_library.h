// The driver as a host finds it: linked on POSIX, a DLL that is loaded at run time on Windows.
#pragma once

#include <memory>
#include <string>

#include "TKSplDrv/driver.h"

namespace host {

// Waits for the reading thread, which still clears up after its last message, and destroys the
// object.
struct DriverDeleter {
  void operator()(TavDrvV1* driver) const;
};
using DriverPointer = std::unique_ptr<TavDrvV1, DriverDeleter>;

// Ends the reading thread wherever it is, and destroys the object.
void EndDriver(DriverPointer driver);

class DriverLibrary {
 public:
  // path: of the DLL on Windows, empty for the one beside the program; not looked at on POSIX.
  // Throws std::runtime_error with one sentence.
  explicit DriverLibrary(const std::string& path);
  ~DriverLibrary();  // NOLINT: not trivial on Windows
  DriverLibrary(const DriverLibrary&) = delete;
  DriverLibrary& operator=(const DriverLibrary&) = delete;

  // stream and port must outlive the driver. Throws std::runtime_error.
  DriverPointer Create(HostStream& stream, HostPort& port) const;

 private:
  void* module_ = nullptr;
};

}  // namespace host
