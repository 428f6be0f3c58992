// Messages to the host as the K7 layers send them.
#pragma once

#include "TKSplDrv/driver.h"
#include "common/format.h"

namespace k7 {

inline void Say(TavDrvV1& driver, const char* detail, const char* subject) {
  driver.MessageTav(nullptr, detail, subject, 0);
}

// "2016.9.4 13:5:9"
inline common::ShortText DateText(const TAVDT& time) {
  return common::Format("%d.%d.%d %d:%d:%d", time.year, time.month, time.day, time.hour,
                        time.minute, time.second);
}

// A reply to another command than the one that was sent.
inline void SayWrongCommand(TavDrvV1& driver, unsigned sent, int received, const char* subject) {
  Say(driver, common::Format("not 0x%X result=0x%X", sent, static_cast<unsigned>(received)),
      subject);
}

}  // namespace k7
