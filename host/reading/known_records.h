// What earlier readings of an instrument have left to be read. Whoever keeps readings implements
// it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/reading/periods.h"
#include "host/reading/run_listener.h"

namespace host {

struct KnownArchive {
  tav::TitleKind kind{};
  std::string section;              // as in Title
  PeriodRange wanted;               // may be none
  std::vector<PeriodRange> kept;    // of it: neither asked for nor taken again
  std::vector<PeriodRange> absent;  // of it: not asked for, but taken when they come
};

// Which runs are made first.
enum class GapOrder { kAsRead, kLongest, kNewest };

struct KnownInstrument {
  std::string model;   // as in Title
  std::string serial;  // empty, and the model too: nobody is known
  std::vector<KnownArchive> archives{};
  // Of archives that are not among these, records are wanted from here on; none: not at all.
  std::optional<SYSTEMTIME> from{};
  GapOrder order = GapOrder::kAsRead;
};

class KnownRecords {
 public:
  virtual ~KnownRecords() = default;
  // Of the instrument that was read last on the line and by the number of a run. Throws
  // std::runtime_error, as the next.
  virtual KnownInstrument ReadLast(const Run& run) = 0;
  // Of the one that answers there, when it is another. From any thread, one at a time.
  virtual KnownInstrument Of(const Title& title) = 0;
};

}  // namespace host
