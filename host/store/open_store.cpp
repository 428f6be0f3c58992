#include "host/store/open_store.h"

#include "host/store/place.h"
#include "host/store/schema.h"

namespace host {

std::unique_ptr<Database> OpenStore(const std::string& address) {
  const std::string place = PlaceOfStore(address);
  RequireStore(place);
  auto database = std::make_unique<Database>(place);
  PrepareSchema(*database);
  return database;
}

}  // namespace host
