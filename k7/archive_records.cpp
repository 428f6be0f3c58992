#include "k7/archive_records.h"

namespace k7 {
namespace {

constexpr std::uint8_t kStampTag = 0x49;
constexpr std::uint8_t kRecordTag = 0x30;

void DecodeColumn(Type type, TlvWalk& items, Record& record) {
  switch (type) {
    case Type::kByte:
      return record.Byte(items.ItemUInt());
    case Type::kFloat:
      return record.Int32(items.ItemFloat());
    case Type::kDouble:
      return record.Double(items.ItemIntFloat());
    case Type::kInt32:
      return record.Int32(items.ItemUInt());
    case Type::kInt16:
    case Type::kDateTime:
    case Type::kChars:
      break;  // not among the values of these instruments
  }
}

}  // namespace

int NextRecord(TlvWalk& items, std::size_t replyLength, Stamp& stamp) {
  if (items.Tag() == kRecordTag) return kNoMoreRecords;
  if (items.Tag() != kStampTag) {
    items.NextItem();
    return kUnknownItem;
  }
  std::size_t stampLength = 0;
  stamp = items.ItemStamp(stampLength);
  if (stampLength == 0) return kNoMoreRecords;
  if (items.Tag() != kRecordTag) return kStampAlone;
  const Tlv content = items.EnterItem();
  if (content.at + content.length > replyLength) return kPastReplyEnd;
  return static_cast<int>(content.length);
}

int SkipToRecord(TlvWalk& items, std::size_t replyLength, Stamp& stamp) {
  while (items.Cursor() < replyLength) {
    const int result = NextRecord(items, replyLength, stamp);
    if (result != kUnknownItem) return result;
  }
  return kNoMoreRecords;
}

void DecodeColumns(Columns columns, TlvWalk& items, Record& record) {
  for (const Column& column : columns) DecodeColumn(column.type, items, record);
}

Record DecodeArchive(Columns columns, Closing closing, const TAVDT& date, TlvWalk& items) {
  const bool reversed = closing == Closing::kReversed;
  Record record;
  record.DateTime(date);
  DecodeColumns(columns.subspan(1, columns.size() - (reversed ? 4 : 3)), items, record);
  if (closing == Closing::kSpareFloat) items.ItemFloat();
  const std::uint32_t first = items.ItemUInt();
  const std::uint32_t second = items.ItemUInt();
  if (reversed) record.Int32(0);
  record.Int32(reversed ? second : first);
  record.Int32(reversed ? first : second);
  return record;
}

}  // namespace k7
