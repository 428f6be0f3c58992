// Who is told of a run: a reading of an instrument, or the decoding of a stream that one kept.
//
// A sink (a file, a store, a display) is one class that overrides what it needs, and one line in
// host/output/sinks.cpp. Calls come one at a time, from two threads, in this order:
//
//   BeginRun
//   AddPiece, BeginSection, AddRow, EndSection, Tell, ShowProgress, Keep   as they come
//   EndRun                                                                 always, once
//
// A section may come again with rows that an earlier one lacks (what was asked for once more, or
// the next values of continuous reading). No row of an archive comes twice, whatever the instrument
// sends, and none that was not asked for.
//
// A sink that throws std::exception ends the run as failed: no pieces and rows follow, but the ends
// of the section and of the run are told to all sinks.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/fields/unit_settings.h"
#include "host/line/line_counts.h"
#include "host/reading/account.h"
#include "host/reading/messages.h"
#include "host/reading/settings.h"
#include "host/stream/decoder.h"
#include "host/stream/section_listener.h"

namespace host {

struct Run {
  std::optional<ReadSettings> settings;  // none: a stream that was kept is decoded
  std::string line;                      // address of the line, or name of the file
  SYSTEMTIME begun{};                    // this machine's local time
  // What the instrument has told of its units up to the call that is made, database sections that
  // were not asked for included; null: nothing is known. Valid until the end of the run.
  const UnitSettings* units = nullptr;
};

struct Progress {
  int percent = 0;       // below 0: not known
  std::string step;      // what is being read: "hours ТВ1: 04.09.2016:13"; empty before the first
  std::size_t rows = 0;  // so far
  std::optional<long long> secondsLeft{};  // nothing: not known yet
};

enum class Ending {
  kRead,  // all of it, but for what the instrument does not hold
  kGaps,  // the accounts tell what is missing
  kFailed,
  kInterrupted
};

// "read", "gaps", "failed", "interrupted".
const char* NameOf(Ending ending);

// The instrument's clock, and this machine's when it was read; both local, without a zone.
struct ClockReading {
  SYSTEMTIME instrument{};
  SYSTEMTIME machine{};
  long long difference = 0;  // seconds that the instrument's clock is ahead
  bool beyond = false;       // more than the user finds right
};

struct RunEnd {
  Ending ending = Ending::kRead;
  std::string reason;  // one sentence when it was not read
  StreamCounts counts{};
  // In the order in which the instrument is read; empty in continuous reading and for a kept
  // stream.
  std::vector<SectionAccount> accounts{};
  std::optional<ClockReading> clock{};     // none: it was not read, or is no date
  std::optional<LineCounts> lineCounts{};  // the search included; none: nobody counted
};

// Whether a run is to end before its time: done, because all that was wanted is there, is no
// failure.
enum class StopRequest { kNone, kDone, kInterrupted };
using AskStop = std::function<StopRequest()>;

class RunListener : public SectionListener {
 public:
  virtual void BeginRun(const Run& /*run*/) {}
  // One write call of the driver, before what it completes is told; an empty one where something of
  // the open row was lost (see decoder.h).
  virtual void AddPiece(ByteView /*piece*/) {}
  // A message of the driver, after the rows that came before it.
  virtual void Tell(const Message& /*message*/) {}
  // About ten times a second while an instrument is read.
  virtual void ShowProgress(const Progress& /*progress*/) {}
  // As often, and before the end: a sink that gathers what it was told writes it out. Those that
  // show rows stand behind those that keep them, so that what is shown is kept.
  virtual void Keep() {}
  virtual void EndRun(const RunEnd& /*end*/) {}
};

}  // namespace host
