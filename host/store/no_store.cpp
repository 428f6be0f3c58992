// In place of the store where the program is built without one.
#include "host/store/kept.h"
#include "host/store/store.h"

namespace host {
namespace {

[[noreturn]] void Refuse() { throw UsageError("--db: this program was built without a store"); }

}  // namespace

std::unique_ptr<RunListener> MakeStoreSink(const std::string& /*address*/, StoreReport /*report*/) {
  Refuse();
}

std::vector<KeptSection> ListKept(const std::string& /*address*/) { Refuse(); }

}  // namespace host
