// Opening the link to a K7 instrument and learning what it is.
#pragma once

#include <cstdint>

#include "TKSplDrv/driver.h"
#include "k7/link/transport.h"
#include "k7/models.h"
#include "k7/requests.h"

namespace k7 {

// What the instrument said of itself.
struct Identity {
  std::uint32_t devType = 0;  // 0: not identified
  char devName[40] = {};
  char devNumber[40] = {};  // the bytes of the reply, zero-terminated
  char devVersion[40] = {};
  std::uint8_t pressUnit1 = 0;  // 0 to 2
  std::uint8_t pressUnit2 = 0;  // 0 to 2
  std::uint32_t basicA = 0;
  std::uint16_t basicB = 0;
  TAVDT devClock{};
};

class Session {
 public:
  static constexpr int kNotIdentified = -11;

  // All three outlive the session.
  Session(TavDrvV1& driver, Transport& transport, Requests& requests)
      : driver_(driver), transport_(transport), requests_(requests) {}

  const Identity& GetIdentity() const { return identity_; }

  // Wakes and identifies the instrument. Answers its type, a negative LinkCode or kNotIdentified.
  int Connect(std::uint8_t address, FrameMode mode);
  // Serial number, units and settings. A query that the link failed counts as success: intended.
  bool ReadBasic();
  // The instrument's clock, which the titles carry.
  bool ReadClock();

 private:
  int Identify();
  void DecodeBasic(const Model& model);

  TavDrvV1& driver_;
  Transport& transport_;
  Requests& requests_;
  Identity identity_;
};

}  // namespace k7
