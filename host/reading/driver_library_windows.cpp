#include <stdexcept>

#include "host/reading/driver_library.h"
#include "host/system/files.h"

namespace host {
namespace {

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
  const auto address = GetProcAddress(static_cast<HMODULE>(module_), kInitName);
  if (address == nullptr) {
    FreeLibrary(static_cast<HMODULE>(module_));
    throw std::runtime_error("the driver " + PathText(file) + " has no LInit");
  }
  init_ = reinterpret_cast<InitFunction>(reinterpret_cast<void*>(address));
}

DriverLibrary::~DriverLibrary() { FreeLibrary(static_cast<HMODULE>(module_)); }

}  // namespace host
