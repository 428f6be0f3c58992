// Messages to the host as the K7 layers send them.
#pragma once

#include "TKSplDrv/driver.h"
#include "common/format.h"
#include "k7/link/reply.h"

namespace k7 {

inline void Say(TavDrvV1& driver, const char* detail, const char* subject) {
  driver.MessageTav(nullptr, detail, subject, 0);
}

// "2016.9.4 13:5:9"
inline common::ShortText DateText(const TAVDT& time) {
  return common::Format("%d.%d.%d %d:%d:%d", time.year, time.month, time.day, time.hour,
                        time.minute, time.second);
}

// Whether a reply came to the command that was sent. One to another command is reported.
inline bool Replied(TavDrvV1& driver, std::uint8_t sent, ReceivedCommand received,
                    const char* subject) {
  if (received && *received != sent) {
    Say(driver, common::Format("not 0x%X result=0x%X", unsigned{sent}, unsigned{*received}),
        subject);
  }
  return received == sent;
}

}  // namespace k7
