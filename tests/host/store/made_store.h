// A store that a test fills by SQL.
#pragma once

#include <memory>
#include <string>

#include "host/store/database.h"
#include "host/store/schema.h"
#include "host/system/files.h"
#include "tests/host/scratch_folder.h"

namespace host_test {

class MadeStore {
 public:
  MadeStore() { host::PrepareSchema(database_); }

  void Do(const std::string& statement) { database_.Session() << statement; }
  host::Database& Get() { return database_; }

 private:
  ScratchFolder folder_;
  host::Database database_{host::PathText(folder_ / "archive.db")};
};

}  // namespace host_test
