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
  std::array<std::uint8_t, kMostReplyData> buffer{};
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

void TellResult(TKSplImpl& reader, const ReadResult& result, Confirmation confirmation,
                const SYSTEMTIME& date) {
  if (result.done) {
    // The date is padded after a double reading only: intended.
    TellDate(reader, date, confirmation == Confirmation::kEqualReply, "Data read found");
  } else if (result.error == ExchangeError::kReply3) {
    TellDate(reader, date, true, "Data not found");
  }
}

}  // namespace

ReadResult ReadArchiveRecord(TKSplImpl& reader, const ArchiveRecord& archive, Function function,
                             const SYSTEMTIME& date, std::span<std::uint8_t> record,
                             std::span<std::uint8_t> first) {
  const AttemptPlan plan{.name = "PoitkaArh",
                         .confirmation = ForArchives(reader.policy),
                         .validity = true,
                         .final = archive.tells ? ExchangeError::kReply3 : ExchangeError::kNone,
                         .record = record,
                         .first = first};
  const ReadResult result = Attempt(reader.driver, reader.policy, plan, [&] {
    return RequestRecord(reader, archive, function, date, record);
  });
  if (archive.tells) TellResult(reader, result, plan.confirmation, date);
  return result;
}

void ConvertColumns(Columns columns, std::span<const std::uint8_t> reply,
                    std::span<std::uint8_t> record, std::size_t leftOut) {
  constexpr std::size_t kSituationBytes = 3;
  std::size_t from = 4;
  std::size_t to = 0;
  for (const Column& column : columns) {
    if (column.type == Type::kByte) record[to] = reply[0];
    if (column.type == Type::kInt32) std::copy_n(&reply[1], kSituationBytes, &record[to]);
    if (column.type == Type::kFloat && to != leftOut) {
      CopyFloat(reply, from, record, to);
      from += 4;
    }
    to += column.width;
  }
}

void ConvertEveryColumn(Columns columns, std::span<const std::uint8_t> reply,
                        std::span<std::uint8_t> record) {
  ConvertColumns(columns, reply, record, kNoneLeftOut);
}

void CopyFloat(std::span<const std::uint8_t> reply, std::size_t from,
               std::span<std::uint8_t> record, std::size_t to) {
  const auto value = record.subspan(to).first<4>();
  std::copy_n(reply.begin() + static_cast<std::ptrdiff_t>(from), 4, value.begin());
  ConvertFloat(value);
}

void CopyFloats(std::size_t count, std::span<const std::uint8_t> reply, std::size_t from,
                std::span<std::uint8_t> record, std::size_t to) {
  for (std::size_t i = 0; i < count; ++i) CopyFloat(reply, from + i * 4, record, to + i * 4);
}

void StoreDifference(std::span<std::uint8_t> record, const Field& to, const Field& minuend,
                     const Field& subtrahend) {
  float left = 0;
  float right = 0;
  std::memcpy(&left, &record[minuend.offset], sizeof left);
  std::memcpy(&right, &record[subtrahend.offset], sizeof right);
  const float difference = left - right;
  std::memcpy(&record[to.offset], &difference, sizeof difference);
}

}  // namespace older
