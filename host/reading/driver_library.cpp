#include "host/reading/driver_library.h"

#include <stdexcept>

#if defined(_WIN32)
#include "host/system/files.h"
#endif

namespace host {
namespace {

constexpr unsigned kFreeObject = 1;

DriverPointer Checked(TavDrvV1* driver) {
  if (driver == nullptr) throw std::runtime_error("the driver has no memory");
  return DriverPointer(driver);
}

}  // namespace

void EndDriver(DriverPointer driver) { driver.release()->Destroy(kFreeObject); }

#if defined(_WIN32)

namespace {

using InitFunction = TavDrvV1*(TAV_CDECL*)(void*, void*);
constexpr DWORD kThreadEndLimit = 3000;  // ms

// Ending the thread in the middle of its clearing up could leave the heap locked.
void WaitForThread(const TavDrvV1& driver) {
  if (driver.thread != nullptr) WaitForSingleObject(driver.thread, kThreadEndLimit);
}

std::filesystem::path BesideTheProgram() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return std::filesystem::path(path).parent_path() / "TKSplDrv.dll";
}

}  // namespace

void DriverDeleter::operator()(TavDrvV1* driver) const {
  WaitForThread(*driver);
  driver->Destroy(kFreeObject);
}

DriverLibrary::DriverLibrary(const std::string& path) {
  const std::filesystem::path file = path.empty() ? BesideTheProgram() : PathOf(path);
  module_ = LoadLibraryW(file.c_str());
  if (module_ == nullptr) throw std::runtime_error("cannot load the driver " + PathText(file));
}

DriverLibrary::~DriverLibrary() { FreeLibrary(static_cast<HMODULE>(module_)); }

DriverPointer DriverLibrary::Create(HostStream& stream, HostPort& port) const {
  const auto address = GetProcAddress(static_cast<HMODULE>(module_), "LInit");
  if (address == nullptr) throw std::runtime_error("the driver has no LInit");
  const auto init = reinterpret_cast<InitFunction>(reinterpret_cast<void*>(address));
  return Checked(init(&stream, &port));
}

#else

// Destroying waits for the thread by itself.
void DriverDeleter::operator()(TavDrvV1* driver) const { driver->Destroy(kFreeObject); }

DriverLibrary::DriverLibrary(const std::string& /*path*/) {}

DriverLibrary::~DriverLibrary() = default;

DriverPointer DriverLibrary::Create(HostStream& stream, HostPort& port) const {
  return Checked(LInit(&stream, &port));
}

#endif

}  // namespace host
