#include "k7/session/requests.h"

#include "k7/link/messages.h"

namespace k7 {
namespace {

constexpr std::uint8_t kStringTag = 0x04;

// The length byte of a request leaves room for so many.
constexpr std::size_t kMostReferences = 50;

std::uint8_t Low(unsigned value) { return static_cast<std::uint8_t>(value & 0xFFU); }

// The first four bytes of a stamp: the low byte of the year plus 30 (hex) is the year minus 2000.
void PutHour(std::span<std::uint8_t> at, const TAVDT& time) {
  at[0] = Low(time.year + 0x30U);
  at[1] = time.month;
  at[2] = time.day;
  at[3] = time.hour;
}

// The last four.
void PutRest(std::span<std::uint8_t> at, const Stamp& stamp) {
  at[4] = stamp.time.minute;
  at[5] = stamp.time.second;
  at[6] = Low(stamp.extra);
  at[7] = Low(unsigned{stamp.extra} >> 8);
}

class References {
 public:
  void Add(std::uint8_t channel, unsigned parameter) {
    if (size_ == bytes_.size()) return;
    for (const unsigned byte :
         {unsigned{kReferenceTag}, 3U, unsigned{channel}, parameter, parameter >> 8}) {
      bytes_[size_++] = Low(byte);
    }
  }
  std::span<const std::uint8_t> Bytes() const { return std::span(bytes_).first(size_); }

 private:
  std::array<std::uint8_t, kMostReferences * kReferenceSize> bytes_{};
  std::size_t size_ = 0;
};

}  // namespace

ArchiveRequest BuildArchiveRequest(std::uint8_t channel, std::uint8_t kind, std::uint8_t selector,
                                   const Stamp& from, const Stamp& to) {
  ArchiveRequest request = {kStringTag, 5, 0xFF, 0xFF, channel, kind, selector};
  request[kFromAt - 2] = kStampTag;
  request[kFromAt - 1] = 8;
  request[kToAt - 2] = kStampTag;
  request[kToAt - 1] = 8;
  const std::span bytes(request);
  PutHour(bytes.subspan(kFromAt), from.time);
  PutHour(bytes.subspan(kToAt), to.time);
  PutRest(bytes.subspan(kFromAt), to);
  return request;
}

ReceivedCommand Requests::QueryReferences(std::span<const std::uint8_t> references) {
  reply_.Clear();
  return transport_.K7Query(kReadParameters, references, reply_);
}

ReceivedCommand Requests::QueryParams(std::uint8_t channel,
                                      std::span<const std::uint16_t> parameters) {
  References references;
  for (const std::uint16_t parameter : parameters) references.Add(channel, parameter);
  return QueryReferences(references.Bytes());
}

ReceivedCommand Requests::QueryParams(std::uint8_t channel, std::uint16_t first,
                                      std::size_t count) {
  References references;
  for (std::size_t i = 0; i < count; ++i) references.Add(channel, static_cast<unsigned>(first + i));
  return QueryReferences(references.Bytes());
}

bool Requests::ReadParams(std::uint8_t channel, std::uint16_t first, std::size_t count,
                          const char* subject) {
  return Replied(driver_, kReadParameters, QueryParams(channel, first, count), subject);
}

ReceivedCommand Requests::ReadArchive(std::uint8_t channel, std::uint8_t kind,
                                      std::uint8_t selector, const TAVDT& from, const TAVDT& to) {
  reply_.Clear();
  const ArchiveRequest request = BuildArchiveRequest(channel, kind, selector, {from, 0}, {to, 0});
  return transport_.K7Query(kReadArchive, request, reply_);
}

}  // namespace k7
