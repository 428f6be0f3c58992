#include "older/reads/archive.h"

#include <algorithm>
#include <cstring>

#include "TKSplDrv/conversions.h"
#include "common/format.h"

namespace older {
namespace {

ExchangeError RequestRecord(TKSplImpl& reader, const ArchiveRecord& archive, Function function,
                            const SYSTEMTIME& date, std::span<std::uint8_t> record) {
  ExchangeError error = reader.link.Send(ArchiveRequest(function, date));
  if (error != ExchangeError::kNone) return error;
  std::array<std::uint8_t, kLargestArchiveReply> buffer{};
  const auto reply = std::span(buffer).first(archive.replySize);
  error = reader.link.ReadReply(reply);
  if (error != ExchangeError::kNone) return error;

  TAVDT key;
  DateTimeSysToTav(&key, &date);
  std::fill(record.begin(), record.end(), std::uint8_t{0});
  std::memcpy(record.data(), &key, sizeof key);
  archive.convert(archive.columns, reply, record);
  return ExchangeError::kNone;
}

void TellDate(TKSplImpl& reader, const SYSTEMTIME& date, bool padded, const char* subject) {
  const auto text = padded
                        ? common::Format("%04d.%02d.%02d %02d:%02d:%02d", date.wYear, date.wMonth,
                                         date.wDay, date.wHour, date.wMinute, date.wSecond)
                        : common::Format("%d.%d.%d %02d:%02d:%02d", date.wYear, date.wMonth,
                                         date.wDay, date.wHour, date.wMinute, date.wSecond);
  reader.Say(text, subject);
}

}  // namespace

ReadResult ReadArchiveRecord(TKSplImpl& reader, const ArchiveRecord& archive, Function function,
                             const SYSTEMTIME& date, bool tells, std::span<std::uint8_t> record) {
  const AttemptPlan plan{.name = "PoitkaArh",
                         .confirmation = ForArchives(reader.policy),
                         .validity = true,
                         .final = tells ? ExchangeError::kReply3 : ExchangeError::kNone};
  const ReadResult result = Attempt(reader.driver, reader.policy, plan, record, [&] {
    return RequestRecord(reader, archive, function, date, record);
  });
  if (!tells) return result;
  if (result.done) {
    // The date is padded after a double reading only: intended.
    TellDate(reader, date, plan.confirmation == Confirmation::kEqualReply, "Data read found");
  } else if (result.error == ExchangeError::kReply3) {
    TellDate(reader, date, true, "Data not found");
  }
  return result;
}

void ConvertByColumns(Columns columns, std::span<const std::uint8_t> reply,
                      std::span<std::uint8_t> record) {
  ConvertColumnsBut({}, columns, reply, record);
}

void ConvertColumnsBut(std::string_view leftOut, Columns columns,
                       std::span<const std::uint8_t> reply, std::span<std::uint8_t> record) {
  constexpr std::size_t kSituationBytes = 3;
  std::size_t from = 4;
  std::size_t to = 0;
  for (const Column& column : columns) {
    const std::string_view name = column.name;
    if (name == "SP") record[to] = reply[0];
    if (name == "NS") std::copy_n(&reply[1], kSituationBytes, &record[to]);
    if (column.type == Type::kFloat && name != leftOut) {
      CopyFloat(reply, from, record, to);
      from += 4;
    }
    to += column.width;
  }
}

void CopyFloat(std::span<const std::uint8_t> reply, std::size_t from,
               std::span<std::uint8_t> record, std::size_t to) {
  const auto value = record.subspan(to).first<4>();
  std::copy_n(reply.begin() + static_cast<std::ptrdiff_t>(from), 4, value.begin());
  ConvertFloat(value);
}

void StoreDifference(std::span<std::uint8_t> record, std::size_t to, std::size_t minuend,
                     std::size_t subtrahend) {
  float left = 0;
  float right = 0;
  std::memcpy(&left, &record[minuend], sizeof left);
  std::memcpy(&right, &record[subtrahend], sizeof right);
  const float difference = left - right;
  std::memcpy(&record[to], &difference, sizeof difference);
}

}  // namespace older
