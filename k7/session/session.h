// Opening the link to a K7 instrument and learning what it is.
#pragma once

#include <cstdint>

#include "TKSplDrv/driver.h"
#include "k7/link/transport.h"
#include "k7/session/introduction.h"
#include "k7/session/requests.h"

namespace k7 {

// The instrument's clock on channel 0: its time; the date is the next one.
inline constexpr std::uint16_t kTimeParameter = 0x0400;

// The reply to an identification: the model's code (low byte first), a byte that is not used, the
// version.
inline constexpr std::size_t kVersionAt = 3;

// What the instrument said of itself.
struct Identity {
  const Introduction* introduction = nullptr;  // null: not identified
  char devVersion[40] = {};
  char devNumber[40] = {};      // the bytes of the reply, zero-terminated
  std::uint8_t pressUnit1 = 0;  // 0 to 2
  std::uint8_t pressUnit2 = 0;  // 0 to 2
  TAVDT devClock{};
};

class Session {
 public:
  // All outlive the session. known: the models that it can identify.
  Session(TavDrvV1& driver, Transport& transport, Requests& requests, Introductions known)
      : driver_(driver), transport_(transport), requests_(requests), known_(known) {}

  const Identity& GetIdentity() const { return identity_; }

  // Wakes and identifies the instrument. False when it did not answer, or not as a known model; the
  // messages have told which.
  bool Connect(std::uint8_t address, FrameMode mode);
  // Serial number and units of the instrument that is connected. A query that the link failed
  // counts as success: intended.
  bool ReadBasic();
  // The instrument's clock, which the titles carry.
  bool ReadClock();

 private:
  bool Identify();
  const Introduction* Find(std::uint16_t code) const;
  void DecodeBasic();

  TavDrvV1& driver_;
  Transport& transport_;
  Requests& requests_;
  Introductions known_;
  Identity identity_;
};

}  // namespace k7
