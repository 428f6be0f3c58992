#include "older/reads/log.h"

#include <algorithm>
#include <cstring>

#include "TKSplDrv/conversions.h"
#include "common/cp1251.h"
#include "older/reads/flash.h"
#include "older/reads/text_items.h"

namespace older {
namespace {

using namespace common::literals;

constexpr std::size_t kDateText = 17;  // "04.09.16/13:05:09", at the start of an entry

constexpr Column kChangeLayout[] = {
    {"DT", Type::kDateTime, "Дата:время"_w, Role::kKey},
    {"ISM", Type::kChars, "код"_w, Role::kValue, "ИЗМ"_w, nullptr, 15},
};
static_assert(RecordSize(kChangeLayout) == 22);

constexpr Column kSituationLayout[] = {
    {"DT", Type::kDateTime, "Дата:время"_w, Role::kKey},
    {"NS", Type::kByte, "Код НС"_w, Role::kValue, "НС"_w},
    {"Flag", Type::kByte, "код"_w, Role::kValue, "Флаг"_w},
};
static_assert(RecordSize(kSituationLayout) == 9);

void ConvertChange(std::span<const std::uint8_t> entry, std::span<std::uint8_t> rest) {
  DecodeText(entry.subspan(kDateText, rest.size()), rest);
}

void ConvertSituation(std::span<const std::uint8_t> entry, std::span<std::uint8_t> rest) {
  std::copy_n(&entry[kDateText], rest.size(), rest.begin());
}

void ConvertEntry(const Log& log, std::span<const std::uint8_t> entry,
                  std::span<std::uint8_t> record) {
  char text[kDateText + 1] = {};
  std::memcpy(text, entry.data(), kDateText);
  const TAVDT date = DtUrmToTav(text);
  std::memcpy(record.data(), &date, sizeof date);
  log.convert(entry, record.subspan(sizeof date));
}

}  // namespace

constexpr Log kChangeLog = {kChangeLayout, "PoitkaReadIsm", kLargestLogEntry, ConvertChange};
constexpr Log kSituationLog = {kSituationLayout, "PoitkaReadSit", 24, ConvertSituation};

LogRecords DecodeLog(const Log& log, std::span<const std::uint8_t> entries) {
  const std::size_t size = RecordSize(log.columns);
  LogRecords records;
  for (; !entries.empty(); entries = entries.subspan(log.entrySize)) {
    if (entries[0] == 0x00 || entries[0] == 0xFF) break;
    ConvertEntry(log, entries.first(log.entrySize),
                 std::span(records.bytes).subspan(records.count++ * size, size));
  }
  return records;
}

LogRecords ReadLog(TKSplImpl& reader, const Log& log, std::uint16_t address) {
  std::array<std::uint8_t, kLogEntries * kLargestLogEntry> buffer{};
  const auto entries = std::span(buffer).first(kLogEntries * log.entrySize);
  const AttemptPlan plan{.name = log.attempts, .confirmation = ForOthers(reader.policy)};
  const ReadResult result = Attempt(reader.driver, reader.policy, plan, entries,
                                    [&] { return ReadFlashBytes(reader, address, entries); });
  return result.done ? DecodeLog(log, entries) : LogRecords{};
}

}  // namespace older
