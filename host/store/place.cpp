#include "host/store/place.h"

#include "host/store/dialect.h"
#include "host/system/files.h"
#include "host/system/folders.h"

namespace host {

namespace fs = std::filesystem;

std::string PlaceOfStore(const std::string& address) {
  if (!address.empty()) return address;
  const fs::path data = DataFolder();
  if (data.empty()) throw std::runtime_error("--db needs a file name: there is no home folder");
  const fs::path folder = data / "irvela";
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
