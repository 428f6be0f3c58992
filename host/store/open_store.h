// Opening a store that is there.
#pragma once

#include <memory>
#include <string>

#include "host/store/database.h"

namespace host {

// address: as MakeStoreSink takes it. A store of an older version is brought up to date. Throws
// std::runtime_error with one sentence when there is none, or it cannot be opened.
std::unique_ptr<Database> OpenStore(const std::string& address);

}  // namespace host
