#include "host/reading/run_listener.h"

namespace host {

const char* NameOf(Ending ending) {
  switch (ending) {
    case Ending::kRead:
      return "read";
    case Ending::kGaps:
      return "gaps";
    case Ending::kInterrupted:
      return "interrupted";
    case Ending::kFailed:
      break;
  }
  return "failed";
}

}  // namespace host
