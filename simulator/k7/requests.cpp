#include "simulator/k7/requests.h"

#include <algorithm>
#include <span>

#include "simulator/k7/items.h"

namespace simulator::k7 {
namespace {

constexpr std::size_t kReferenceSize = 5;
constexpr std::size_t kMostReferences = 50;  // what the length byte of a request leaves room for
constexpr std::size_t kArchiveRequestSize = 27;
constexpr int kPeriodicSelector = 1;
constexpr int kLogSelector = 0xE8;

bool Starts(std::span<const std::uint8_t> data, std::initializer_list<std::uint8_t> head) {
  return std::equal(head.begin(), head.end(), data.begin());
}

std::optional<Archive> KindOf(std::uint8_t code) {
  for (const Archive kind : {Archive::kHourly, Archive::kDaily, Archive::kMonthly,
                             Archive::kChanges, Archive::kEvents, Archive::kControl}) {
    if (static_cast<std::uint8_t>(kind) == code) return kind;
  }
  return std::nullopt;
}

// The hour of a stamp. A month may be meant by its day 0.
std::optional<Moment> HourOf(std::span<const std::uint8_t> stamp, bool monthly) {
  const ClockTime time{2000 + stamp[0], stamp[1], monthly && stamp[2] == 0 ? 1 : stamp[2],
                       stamp[3],        0,        0};
  if (!IsDate(time)) return std::nullopt;
  return ToMoment(time);
}

}  // namespace

std::optional<std::vector<Reference>> ParseReferences(const Bytes& data) {
  const std::size_t count = data.size() / kReferenceSize;
  if (count == 0 || count > kMostReferences || data.size() % kReferenceSize != 0) {
    return std::nullopt;
  }
  std::vector<Reference> references;
  for (std::size_t at = 0; at < data.size(); at += kReferenceSize) {
    const auto item = std::span(data).subspan(at, kReferenceSize);
    if (!Starts(item, {0x4A, 3})) return std::nullopt;
    references.push_back({item[2], item[3] + 256 * item[4]});
  }
  return references;
}

std::optional<ArchiveRequest> ParseArchiveRequest(const Bytes& data) {
  const std::span bytes(data);
  if (data.size() != kArchiveRequestSize || !Starts(bytes, {0x04, 5, 0xFF, 0xFF}) ||
      !Starts(bytes.subspan(7), {kStampTag, 8}) ||
      !Starts(bytes.subspan(17),
              {kStampTag, 8, data[19], data[20], data[21], data[22], 0, 0, 0, 0})) {
    return std::nullopt;
  }
  const auto kind = KindOf(data[5]);
  if (!kind) return std::nullopt;
  const bool log = *kind == Archive::kChanges || *kind == Archive::kEvents;
  if (data[6] != (log ? kLogSelector : kPeriodicSelector)) return std::nullopt;
  const auto from = HourOf(bytes.subspan(9, 8), *kind == Archive::kMonthly);
  const auto to = HourOf(bytes.subspan(19, 8), false);
  if (!from || !to || data[13] > 59 || data[14] > 59) return std::nullopt;
  return ArchiveRequest{data[4], *kind, *from,
                        *to + std::chrono::hours{1} - std::chrono::seconds{1}};
}

}  // namespace simulator::k7
