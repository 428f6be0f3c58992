#include <cstdlib>

#include "host/system/folders.h"

namespace host {
namespace {

std::filesystem::path Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace

std::filesystem::path DataFolder() {
  std::filesystem::path own = Variable("XDG_DATA_HOME");
  if (!own.empty()) return own;
  const std::filesystem::path home = Variable("HOME");
  return home.empty() ? home : home / ".local" / "share";
}

}  // namespace host
