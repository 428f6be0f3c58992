#include <dlfcn.h>

#include <stdexcept>

#include "host/reading/driver_library.h"
#include "host/system/files.h"

namespace host {
namespace {

// Another driver must take its own functions before those of the linked one, which have the same
// names. Sanitizers refuse that.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(RTLD_DEEPBIND)
constexpr int kMode = RTLD_NOW | RTLD_LOCAL;
#else
constexpr int kMode = RTLD_NOW | RTLD_LOCAL | RTLD_DEEPBIND;
#endif

}  // namespace

// Destroying waits for the thread by itself.
void DriverDeleter::operator()(TavDrvV1* driver) const { driver->Destroy(kFreeObject); }

DriverLibrary::DriverLibrary(const std::string& path) {
  if (path.empty()) {
    init_ = LInit;
    return;
  }
  // Without a slash it would be looked for in the folders of the system.
  module_ = dlopen(std::filesystem::absolute(PathOf(path)).c_str(), kMode);
  if (module_ == nullptr)
    throw std::runtime_error(std::string("cannot load the driver ") + dlerror());
  init_ = reinterpret_cast<InitFunction>(dlsym(module_, kInitName));
  if (init_ == nullptr) throw std::runtime_error("the driver " + path + " has no LInit");
}

// A driver that stays loaded: a thread of it that did not obey may still be on its way out.
DriverLibrary::~DriverLibrary() = default;

}  // namespace host
