// The tables of the store; docs/store.md describes them.
#pragma once

#include "host/store/database.h"

namespace host {

// The version of the tables that this program makes. A store of an older version is brought to it
// step by step.
inline constexpr int kStoreVersion = 1;

// Makes what is not there. Throws std::runtime_error, also for a store of a newer version.
void PrepareSchema(Database& database);

}  // namespace host
