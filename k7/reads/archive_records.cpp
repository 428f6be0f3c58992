#include "k7/reads/archive_records.h"

namespace k7 {
namespace {

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

Found NextRecord(TlvWalk& items, std::size_t replyLength, Stamp& stamp) {
  if (items.Tag() == kRecordTag) return Found::kNoMoreRecords;
  if (items.Tag() != kStampTag) {
    items.NextItem();
    return Found::kUnknownItem;
  }
  std::size_t stampLength = 0;
  stamp = items.ItemStamp(stampLength);
  if (stampLength == 0) return Found::kNoMoreRecords;
  if (items.Tag() != kRecordTag) return Found::kStampAlone;
  const Tlv content = items.EnterItem();
  if (content.at + content.length > replyLength) return Found::kPastReplyEnd;
  return content.length > 0 ? Found::kRecord : Found::kNoMoreRecords;
}

Found SkipToRecord(TlvWalk& items, std::size_t replyLength, Stamp& stamp) {
  while (items.Cursor() < replyLength) {
    const Found found = NextRecord(items, replyLength, stamp);
    if (found != Found::kUnknownItem) return found;
  }
  return Found::kNoMoreRecords;
}

void DecodeColumns(Columns columns, TlvWalk& items, Record& record) {
  for (const Column& column : columns) DecodeColumn(column.type, items, record);
}

void DecodeArchive(Columns columns, Closing closing, const TAVDT& date, TlvWalk& items,
                   Record& record) {
  const bool reversed = closing == Closing::kReversed;
  record.DateTime(date);
  DecodeColumns(columns.subspan(1, columns.size() - (reversed ? 4 : 3)), items, record);
  if (closing == Closing::kSpareFloat) items.ItemFloat();
  const std::uint32_t first = items.ItemUInt();
  const std::uint32_t second = items.ItemUInt();
  if (reversed) record.Int32(0);
  record.Int32(reversed ? second : first);
  record.Int32(reversed ? first : second);
}

}  // namespace k7
