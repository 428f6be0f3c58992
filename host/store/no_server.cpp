// In place of postgres.cpp where there is no library of it.
#include "host/reading/settings.h"
#include "host/store/backends.h"

namespace host {

const Dialect& OpenServer(soci::session& /*session*/, const std::string& /*address*/) {
  throw UsageError("--db: this program keeps readings in a file only, not on a PostgreSQL server");
}

}  // namespace host
