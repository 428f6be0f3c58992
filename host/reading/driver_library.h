// The driver as a host finds it: linked on POSIX, a DLL that is loaded at run time on Windows.
// Another build of it is loaded on both.
#pragma once

#include <memory>
#include <string>

#include "TKSplDrv/driver.h"

namespace host {

inline constexpr unsigned kFreeObject = 1;    // TavDrvV1::Destroy frees it too
inline constexpr char kInitName[] = "LInit";  // as libraries export it
using InitFunction = TavDrvV1*(TAV_CDECL*)(void*, void*);

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
  // path: of the library; empty for the linked one, on Windows for the one beside the program.
  // Throws std::runtime_error with one sentence.
  explicit DriverLibrary(const std::string& path);
  ~DriverLibrary();
  DriverLibrary(const DriverLibrary&) = delete;
  DriverLibrary& operator=(const DriverLibrary&) = delete;

  // stream and port must outlive the driver. Throws std::runtime_error.
  DriverPointer Create(HostStream& stream, HostPort& port) const;

 private:
  void* module_ = nullptr;
  InitFunction init_ = nullptr;
};

}  // namespace host
