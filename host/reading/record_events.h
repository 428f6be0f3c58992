// What the driver's messages tell about the sections and records of a reading.
#pragma once

#include <optional>
#include <string>

#include "TKSplDrv/records.h"
#include "TKSplDrv/types.h"
#include "host/reading/messages.h"

namespace host {

struct RecordEvent {
  enum class Kind {
    kNone,
    kClock,        // date: that of the instrument; it may be none
    kPart,         // text: the part of the instrument that comes next, "ТВ1"
    kPartFailed,   // text: a part that could not be opened
    kPartIdle,     // nothing more of this part is worth reading
    kSection,      // titleKind, text: a section begins; text may be empty for that of the part
    kSectionDone,  // of K7: it was read to its end,
    kSectionLost,  // or broke off
    kAttempt,      // number: of an attempt that failed; code: the exchange's, 0 where there is none
    kNotHeld,      // date: the instrument has no such record
    kAsked,        // date: of K7: the record is asked for,
    kAskedInVain,  // date: and its reply was none
    kReplyLost,    // of K7: all attempts at a question failed
    kBlockLost,    // a block (values, parameters) could not be read, and with it the part
    kCycle,        // continuous reading goes through the parts anew
  };
  Kind kind = Kind::kNone;
  tav::TitleKind titleKind{};
  std::string text{};
  std::optional<TAVDT> date{};
  int number = 0;
  int code = 0;
};

RecordEvent EventOf(const Message& message);

// "2016.9.4 13:5:9", "2016.09.04 13:05:09"; nothing when the numbers are not six. It may be no date
// of the calendar.
std::optional<TAVDT> ParseDriverDate(std::string_view text);

}  // namespace host
