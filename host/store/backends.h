// The databases behind the store, a file for each.
#pragma once

#include <soci/soci.h>

#include <string>

#include "host/store/dialect.h"

namespace host {

// SQLite. path in UTF-8. Throws soci::soci_error.
const Dialect& OpenFile(soci::session& session, const std::string& path);

// What went wrong last with a session that OpenFile opened; empty: nothing, or it is another's.
std::string FileReason(soci::session& session);

// PostgreSQL. Throws soci::soci_error; UsageError where the program is built without it.
const Dialect& OpenServer(soci::session& session, const std::string& address);

}  // namespace host
