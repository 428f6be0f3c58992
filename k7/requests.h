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
#include "k7/tables.h"

namespace k7 {

inline constexpr std::uint8_t kReadParameters = 0x72;
inline constexpr std::uint8_t kReadArchive = 0x61;

// One entry of the parameter database, in the instrument's characters, zero-filled.
inline constexpr std::size_t kEntrySize = 50;
using Entry = std::array<std::uint8_t, kEntrySize>;

// The 27 data bytes of an archive request. The end's minute, second and extra number stand in the
// start's place and the end carries none: intended.
using ArchiveRequest = std::array<std::uint8_t, 27>;
ArchiveRequest BuildArchiveRequest(std::uint8_t channel, std::uint8_t kind, std::uint8_t selector,
                                   const Stamp& from, const Stamp& to);

class Requests {
 public:
  // All three outlive the requests.
  Requests(TavDrvV1& driver, Transport& transport, RecordStream& out)
      : driver_(driver), transport_(transport), out_(out) {}

  // The accepted reply of the last request, ReplyBuf.
  Reply& LastReply() { return reply_; }

  // Asks for the parameters on a channel and answers as K7Query does.
  int QueryParams(std::uint8_t channel, std::span<const std::uint16_t> parameters);
  // Parameters first, first + 1, ... True: the reply's items are theirs, in order. A reply to
  // another command is reported under subject.
  bool ReadParams(std::uint8_t channel, std::uint16_t first, std::size_t count,
                  const char* subject);
  // The same for at most 20 parameters (more are not asked for), each written to the host as a
  // record of 50 bytes, zeros after a reply to another command. A query that the link failed
  // counts as success and writes nothing: intended.
  bool ReadParamBlock(std::uint8_t channel, std::uint16_t first, std::size_t count);
  // Archive records between two moments. Answers as K7Query does.
  int ReadArchive(std::uint8_t channel, std::uint8_t kind, std::uint8_t selector, const TAVDT& from,
                  const TAVDT& to);

 private:
  void AddReference(std::uint8_t channel, std::uint16_t parameter);
  int QueryRange(std::uint8_t channel, std::uint16_t first, std::size_t count);
  int QueryReferences();
  void WriteEntries(std::size_t count);

  // A reference: tag, length, channel, parameter number. No request has more than 27 of them.
  static constexpr std::size_t kReferenceSize = 5;
  static constexpr std::size_t kMostReferences = 32;

  TavDrvV1& driver_;
  Transport& transport_;
  RecordStream& out_;
  Reply reply_;
  std::array<std::uint8_t, kMostReferences * kReferenceSize> references_{};
  std::size_t referenceBytes_ = 0;
};

}  // namespace k7
