// The requests that a K7 instrument answers once its session is open.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "TKSplDrv/driver.h"
#include "k7/link/reply.h"
#include "k7/link/tlv.h"
#include "k7/link/transport.h"

namespace k7 {

inline constexpr std::uint8_t kIdentify = 0x3F;
inline constexpr std::uint8_t kReadParameters = 0x72;
inline constexpr std::uint8_t kReadArchive = 0x61;

// A reference to a parameter: tag, length, channel, number (low byte first).
inline constexpr std::uint8_t kReferenceTag = 0x4A;
inline constexpr std::size_t kReferenceSize = 5;

// Where the stamps lie in an archive request, four bytes of each; the rest of the end follows the
// start.
inline constexpr std::size_t kFromAt = 9;
inline constexpr std::size_t kToAt = 19;

// The 27 data bytes of an archive request. The end's minute, second and extra number stand in the
// start's place and the end carries none: intended.
using ArchiveRequest = std::array<std::uint8_t, 27>;
ArchiveRequest BuildArchiveRequest(std::uint8_t channel, std::uint8_t kind, std::uint8_t selector,
                                   const Stamp& from, const Stamp& to);

class Requests {
 public:
  // Both outlive the requests.
  Requests(TavDrvV1& driver, Transport& transport) : driver_(driver), transport_(transport) {}

  // The accepted reply of the last request.
  Reply& LastReply() { return reply_; }

  // Asks for the parameters on a channel, at most 50. Returns as K7Query does.
  ReceivedCommand QueryParams(std::uint8_t channel, std::span<const std::uint16_t> parameters);
  // The same for first, first + 1, ...
  ReceivedCommand QueryParams(std::uint8_t channel, std::uint16_t first, std::size_t count);
  // True: the reply's items are those of the parameters first, first + 1, ..., in order. A reply to
  // another command is reported under subject.
  bool ReadParams(std::uint8_t channel, std::uint16_t first, std::size_t count,
                  const char* subject);
  // Archive records between two moments. Returns as K7Query does.
  ReceivedCommand ReadArchive(std::uint8_t channel, std::uint8_t kind, std::uint8_t selector,
                              const TAVDT& from, const TAVDT& to);

 private:
  ReceivedCommand QueryReferences(std::span<const std::uint8_t> references);

  TavDrvV1& driver_;
  Transport& transport_;
  Reply reply_;
};

}  // namespace k7
