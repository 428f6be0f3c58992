#include <cstdlib>

#include "host/system/folders.h"

namespace host {

// The variable in the system's code page would lack most letters.
std::filesystem::path DataFolder() {
  const wchar_t* folder = _wgetenv(L"LOCALAPPDATA");
  return folder == nullptr ? L"" : folder;
}

}  // namespace host
