// In place of the store where the program is built without one.
#include "host/store/store.h"

namespace host {

std::unique_ptr<RunListener> MakeStoreSink(const std::string& /*address*/, StoreReport /*report*/) {
  throw UsageError("--db: this program was built without a store");
}

}  // namespace host
