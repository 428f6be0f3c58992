#include "k7/reading/sections.h"

#include "TKSplDrv/conversions.h"
#include "common/cp1251.h"
#include "common/format.h"
#include "k7/link/messages.h"
#include "k7/reads/parameter_block.h"

namespace k7 {
namespace {

using namespace common::literals;

constexpr std::uint32_t kIdleState = 0x63;

// The second selector byte of archive requests.
constexpr std::uint8_t kPeriodicSelector = 1;
constexpr std::uint8_t kLogSelector = 0xE8;

TAVDT ToTav(const SYSTEMTIME& time) {
  TAVDT result;
  DateTimeSysToTav(&result, &time);
  return result;
}

common::ShortText SectionName(std::uint8_t system, const char* suffix) {
  return common::Format("%s%s", kSystemNames[system], suffix);
}

}  // namespace

ChosenUnits Sections::Units() const {
  constexpr const char* kUnits[] = {"кгс/см2"_w, "МПа"_w, "бар"_w};
  ChosenUnits units{};
  units[kPressureUnit] = kUnits[identity_.pressUnit1];
  units[kHeatUnit] = kUnits[identity_.pressUnit2];
  return units;
}

bool Sections::ReadCurrent(std::uint8_t system) {
  return ReadTable(system, model_.current, kSystemNames[system], "error oper");
}

bool Sections::ReadTotals(std::uint8_t system) {
  return ReadTable(system, model_.totals, SectionName(system, " Тотальный"_w), "error total");
}

bool Sections::ReadTable(std::uint8_t system, const ParameterTable& table, const char* section,
                         const char* errorSubject) {
  Say(driver_, section, "Oper");
  if (!requests_.ReadParams(system, table.first, table.columns.size(), errorSubject)) {
    if (model_.endsFailedRead) out_.EndMarker();
    return false;
  }
  TlvWalk items(requests_.LastReply().bytes);
  Record record(space_);
  DecodeColumns(table.columns, items, record);
  if (table.mayBeIdle && record.Bytes()[0] == kIdleState) {
    Say(driver_, "СП=99"_w, "Чтение не целесообразно"_w);
    return false;
  }
  out_.Title(TitleKind::kCurrent, section, identity_.devClock);
  out_.Layout(table.columns, Units(), ColumnCount::kLeftOut);
  out_.RowMarker();
  out_.Data(record.Bytes());
  return !out_.Refused();
}

void Sections::StartArchive(std::uint8_t system, const ArchiveKind& kind) {
  const common::ShortText name = SectionName(system, kind.suffix);
  out_.Title(kind.title, name, identity_.devClock);
  Say(driver_, common::Format("Start Read %s", name.characters), kind.startSubject);
}

const ArchiveTable& Sections::TableOf(Kind kind) const {
  return kind == Kind::kControl ? model_.control : model_.periodic;
}

bool Sections::FailQuery(const TAVDT& date) {
  Say(driver_, DateText(date), "query error");
  out_.EndMarker();
  return false;
}

bool Sections::ReadPeriodic(std::uint8_t system, Kind code) {
  const ArchiveKind& kind = Describe(code);
  StartArchive(system, kind);
  out_.Layout(TableOf(code).columns, Units(), ColumnCount::kLeftOut);
  std::int64_t left = RecordsBetween(kind.period, ToTav(driver_.dateFrom), ToTav(driver_.dateTo));
  SYSTEMTIME cursor = driver_.dateFrom;
  CutToPeriod(kind.period, cursor);
  for (; left > 0 && !out_.Refused(); --left) {
    if (!ReadPeriod(system, kind, ToTav(cursor))) return false;
    NextPeriod(kind.period, cursor);
  }
  out_.EndMarker();
  return !out_.Refused();
}

// A reply to another command is reported and passed over.
bool Sections::ReadPeriod(std::uint8_t system, const ArchiveKind& kind, const TAVDT& from) {
  Say(driver_, DateText(from), "read...");
  const ReceivedCommand received = requests_.ReadArchive(
      system, static_cast<std::uint8_t>(kind.kind), kPeriodicSelector, from, ToTav(driver_.dateTo));
  if (!received) return FailQuery(from);
  if (received != kReadArchive) {
    Say(driver_, DateText(from), "fn error");
    return true;
  }
  return WriteRecords(
      [&](const Stamp& stamp, TlvWalk& items) { WriteArchiveRecord(kind, stamp, items); });
}

bool Sections::ReadEvents(std::uint8_t system, Kind code) {
  const ArchiveKind& kind = Describe(code);
  const TAVDT from = ToTav(driver_.dateFrom);
  const TAVDT to = ToTav(driver_.dateTo);
  StartArchive(system, kind);
  out_.Layout(kind.log, Units(), ColumnCount::kAnnounced);
  if (out_.Refused()) return false;
  Say(driver_, DateText(from), "reda begin ...");
  Say(driver_, DateText(to), "reda end ...");
  const ReceivedCommand received =
      requests_.ReadArchive(system, static_cast<std::uint8_t>(code), kLogSelector, from, to);
  if (!received) return FailQuery(from);
  // Reported, but the reply is still looked at: intended.
  if (received != kReadArchive) Say(driver_, DateText(from), "fn error");
  const auto write = [this](const Stamp& stamp, TlvWalk& items) { WriteEvent(stamp, items); };
  if (!WriteRecords(write)) return false;
  out_.EndMarker();
  return !out_.Refused();
}

// All records of the reply; after one that does not parse the table ends.
template <typename Write>
bool Sections::WriteRecords(Write write) {
  const Reply& reply = requests_.LastReply();
  TlvWalk items(reply.bytes);
  Stamp stamp;
  Found found = Found::kNoMoreRecords;
  while (!out_.Refused() && (found = SkipToRecord(items, reply.length, stamp)) == Found::kRecord) {
    Say(driver_, DateText(stamp.time), "detect ...");
    out_.RowMarker();
    write(stamp, items);
  }
  if (found == Found::kRecord || found == Found::kNoMoreRecords) return true;
  out_.EndMarker();
  return false;
}

void Sections::WriteArchiveRecord(const ArchiveKind& kind, const Stamp& stamp, TlvWalk& items) {
  TAVDT date = stamp.time;
  if (model_.datedRecords) {
    items.ItemTime(date);
    items.ItemDate(date);
    Say(driver_, kind.name, DateText(date));
  }
  const ArchiveTable& table = TableOf(kind.kind);
  Record record(space_);
  DecodeArchive(table.columns, table.closing, date, items, record);
  out_.Data(record.Bytes());
}

void Sections::WriteEvent(const Stamp& stamp, TlvWalk& items) {
  Record date(space_);
  date.DateTime(stamp.time);
  Entry entry{};
  items.ItemBytes(entry);
  out_.Data(date.Bytes());
  out_.Data(entry);
}

bool Sections::ReadDatabase(std::uint8_t system) {
  const Database& database = model_.databases[system];
  out_.Title(TitleKind::kDatabase, kSystemNames[system], identity_.devClock);
  out_.Layout(database.columns, Units(), ColumnCount::kLeftOut);
  out_.RowMarker();
  bool all = true;
  for (const ParameterBlock& block : database.blocks) {
    if (out_.Refused()) return false;
    all = ReadParamBlock(driver_, requests_, out_, system, block) && all;
  }
  return all;
}

}  // namespace k7
