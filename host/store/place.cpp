#include "host/store/place.h"

#include <cstdlib>

#include "host/store/dialect.h"
#include "host/system/files.h"

namespace host {
namespace {

namespace fs = std::filesystem;

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

fs::path DataFolder() {
  const std::string own = Variable("XDG_DATA_HOME");
  if (!own.empty()) return PathOf(own);
  const std::string home = Variable("HOME");
  if (home.empty()) throw std::runtime_error("--db needs a file name: there is no home folder");
  return PathOf(home) / ".local" / "share";
}

}  // namespace

std::string PlaceOfStore(const std::string& address) {
  if (!address.empty()) return address;
  const fs::path folder = DataFolder() / "irvela";
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) throw FileError("make", folder, error);
  return PathText(folder / "archive.db");
}

void RequireStore(const std::string& place) {
  std::error_code ignored;
  if (IsServer(place) || fs::exists(PathOf(place), ignored)) return;
  throw std::runtime_error("there is no store " + place);
}

}  // namespace host
