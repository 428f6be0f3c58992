#include "k7/requests.h"

#include <algorithm>

#include "k7/link/messages.h"

namespace k7 {
namespace {

constexpr std::uint8_t kReferenceTag = 0x4A;
constexpr std::uint8_t kStampTag = 0x49;
constexpr std::uint8_t kStringTag = 0x04;
constexpr std::size_t kMostInBlock = 20;

// Where the stamps lie in an archive request.
constexpr std::size_t kFromAt = 9;
constexpr std::size_t kToAt = 19;

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

void Requests::AddReference(std::uint8_t channel, std::uint16_t parameter) {
  if (referenceBytes_ == references_.size()) return;
  for (const unsigned byte : {unsigned{kReferenceTag}, 3U, unsigned{channel}, parameter & 0xFFU,
                              unsigned{parameter} >> 8}) {
    references_[referenceBytes_++] = Low(byte);
  }
}

int Requests::QueryReferences() {
  reply_.Clear();
  const std::size_t size = referenceBytes_;
  referenceBytes_ = 0;
  return transport_.K7Query(kReadParameters, std::span(references_).first(size), reply_);
}

int Requests::QueryParams(std::uint8_t channel, std::span<const std::uint16_t> parameters) {
  for (const std::uint16_t parameter : parameters) AddReference(channel, parameter);
  return QueryReferences();
}

int Requests::QueryRange(std::uint8_t channel, std::uint16_t first, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    AddReference(channel, static_cast<std::uint16_t>(first + i));
  }
  return QueryReferences();
}

bool Requests::ReadParams(std::uint8_t channel, std::uint16_t first, std::size_t count,
                          const char* subject) {
  const int result = QueryRange(channel, first, count);
  if (result < 1) return false;
  if (result == kReadParameters) return true;
  SayWrongCommand(driver_, kReadParameters, result, subject);
  return false;
}

bool Requests::ReadParamBlock(std::uint8_t channel, std::uint16_t first, std::size_t count) {
  count = std::min(count, kMostInBlock);
  const int result = QueryRange(channel, first, count);
  if (result <= 0) return result != 0;
  if (result != kReadParameters) {
    SayWrongCommand(driver_, kReadParameters, result, "error basic");
    for (std::size_t i = 0; i < count; ++i) out_.Data(Entry{});
    return false;
  }
  WriteEntries(count);
  return true;
}

void Requests::WriteEntries(std::size_t count) {
  TlvWalk items(reply_.bytes);
  for (std::size_t i = 0; i < count; ++i) {
    Entry entry{};
    items.ItemBytes(entry);
    out_.Data(entry);
  }
}

int Requests::ReadArchive(std::uint8_t channel, std::uint8_t kind, std::uint8_t selector,
                          const TAVDT& from, const TAVDT& to) {
  reply_.Clear();
  const ArchiveRequest request = BuildArchiveRequest(channel, kind, selector, {from, 0}, {to, 0});
  return transport_.K7Query(kReadArchive, request, reply_);
}

}  // namespace k7
