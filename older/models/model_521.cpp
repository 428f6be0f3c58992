// Heat meter 521: one heat system, a binary database, archive records whose volumes and masses
// stand where the mode code says.
#include <cstring>

#include "older/models/catalogue.h"
#include "older/models/columns.h"
#include "older/reads/archive.h"

namespace older {
namespace {

// --- Layouts ---

constexpr Column kHourLayout521[] = {
    kDateColumn,
    {"SP", Type::kByte, "Код Реж"_w},
    {"t1", Type::kFloat, "'C"},
    {"t2", Type::kFloat, "'C"},
    {"V1", Type::kFloat, "м3"_w},
    {"V2", Type::kFloat, "м3"_w},
    {"V3", Type::kFloat, "м3"_w},
    {"M1", Type::kFloat, "тонн"_w},
    {"M2", Type::kFloat, "тонн"_w},
    {"M3", Type::kFloat, "тонн"_w},
    {"Q", Type::kFloat, kHeatUnit},
    {"NS", Type::kByte, "Код НС"_w, Role::kValue, "НС"_w, "kns0"},
};
static_assert(std::size(kHourLayout521) == 12 && RecordSize(kHourLayout521) == 45);

// Days and months alike.
constexpr Column kDayLayout521[] = {
    kDateColumn,
    {"SP", Type::kByte, "Код Реж"_w},
    {"t1", Type::kFloat, "'C"},
    {"t2", Type::kFloat, "'C"},
    {"V1", Type::kFloat, "м3"_w},
    {"V2", Type::kFloat, "м3"_w},
    {"V3", Type::kFloat, "м3"_w},
    {"M1", Type::kFloat, "тонн"_w},
    {"M2", Type::kFloat, "тонн"_w},
    {"M3", Type::kFloat, "тонн"_w},
    {"Q", Type::kFloat, kHeatUnit},
    {"Tw", Type::kFloat, "Час"_w},
};
static_assert(std::size(kDayLayout521) == 12 && RecordSize(kDayLayout521) == 48);

constexpr Column kBdLayout521[] = {
    {"SP", Type::kFloat, "Код Реж"_w},   {"TC", Type::kFloat, "Тип ТС"_w},
    {"C1", Type::kFloat, "имп"_w},       {"C2", Type::kFloat, "имп"_w},
    {"tx", Type::kFloat, "'C"},          {"t3", Type::kFloat, "'C"},
    {"P1", Type::kFloat, kPressureUnit}, {"P2", Type::kFloat, kPressureUnit},
    {"P3", Type::kFloat, kPressureUnit}, {"KTh", Type::kFloat, "коэф"_w},
    {"r1", Type::kFloat, "коэф"_w},      {"r2", Type::kFloat, "коэф"_w},
    {"w1", Type::kFloat, "коэф"_w},      {"w2", Type::kFloat, "коэф"_w},
    {"TO", Type::kDateTime, "hh.mm"},    {"DO", Type::kDateTime, "D.M.Y"},
    {"DL", Type::kDateTime, "D.M"},      {"DS", Type::kDateTime, "D:M"},
    {"NT", Type::kFloat, "номер"_w},     {"ID", Type::kFloat, "номер"_w},
};
static_assert(std::size(kBdLayout521) == 20 && RecordSize(kBdLayout521) == 92);

// The masses carry the unit of volumes here: intended.
constexpr Column kOperLayout521[] = {
    {"NS", Type::kByte, "Код НС"_w, Role::kValue, "НС"_w, "kns0"},
    {"V1", Type::kFloat, "м3"_w},
    {"V2", Type::kFloat, "м3"_w},
    {"V3", Type::kFloat, "м3"_w},
    {"M1", Type::kFloat, "м3"_w},
    {"M2", Type::kFloat, "м3"_w},
    {"M3", Type::kFloat, "м3"_w},
    {"Q", Type::kFloat, kHeatUnit},
    {"Tw", Type::kFloat, "Час"_w},
    {"t1", Type::kFloat, "'C"},
    {"t2", Type::kFloat, "'C"},
    {"G1", Type::kFloat, "т/ч"_w},
    {"G2", Type::kFloat, "т/ч"_w},
};
static_assert(std::size(kOperLayout521) == 13 && RecordSize(kOperLayout521) == 49);

// Firmware whose version begins with w measures in SI units.
ChosenUnits Units521(const TKSplImpl& reader, int /*system*/) {
  if (reader.driver.versionText[0] == 'w') return {"МПа"_w, "ГДж"_w};
  return {"кг/см2"_w, "ГКал"_w};
}

// --- Database: two flash pages of floats and dates ---

constexpr std::size_t kDatabasePages = 2;
using DatabasePages = std::array<std::uint8_t, kDatabasePages * kFlashPageSize>;

ExchangeError RequestDatabase(TKSplImpl& reader, DatabasePages& pages) {
  // No Control call before this one request: intended. Nor is a page ever left out.
  const ExchangeError sent =
      reader.link.Send(FlashRequest(0, kDatabasePages), LineControl::kLeftOut);
  if (sent != ExchangeError::kNone) return sent;
  for (std::size_t page = 0; page < kDatabasePages; ++page) {
    const ExchangeError error =
        reader.link.ReadReply(std::span(pages).subspan(page * kFlashPageSize, kFlashPageSize));
    if (error != ExchangeError::kNone) return InSecondHalf(error);
  }
  return ExchangeError::kNone;
}

void StoreDate(std::span<std::uint8_t> record, const char* column, const TAVDT& date) {
  std::memcpy(&record[OffsetOf(kBdLayout521, column)], &date, sizeof date);
}

// A value that older firmware does not have.
void StoreAbsent(std::span<std::uint8_t> record, std::size_t to) {
  constexpr float kAbsent = -1.0F;
  std::memcpy(&record[to], &kAbsent, sizeof kAbsent);
}

// Year 1 marks a date without a year. The time of day stands with its minute before its hour.
void ConvertDatabase(const DatabasePages& pages, std::uint8_t versionIndex,
                     std::span<std::uint8_t> record) {
  constexpr std::size_t kLeadingFloats = 14;
  const auto a = std::span(pages).first<kFlashPageSize>();
  const auto b = std::span(pages).last<kFlashPageSize>();
  for (std::size_t i = 0; i < kLeadingFloats; ++i) CopyFloat(a, i * 4, record, i * 4);
  StoreDate(record, "TO", {1, 1, 1, a[57], a[56], 0});
  StoreDate(record, "DO", {static_cast<unsigned short>(a[60] + 2000), a[61], a[62], 0, 0, 0});
  StoreDate(record, "DL", {1, b[0], b[1], 0, 0, 0});
  StoreDate(record, "DS", {1, b[4], b[5], 0, 0, 0});
  CopyFloat(b, 8, record, OffsetOf(kBdLayout521, "NT"));
  const std::size_t id = OffsetOf(kBdLayout521, "ID");
  if (versionIndex != 0) {
    CopyFloat(b, 12, record, id);
  } else {
    StoreAbsent(record, id);
  }
}

ReadResult ReadDatabase521(TKSplImpl& reader, const Block& block, int /*system*/,
                           std::span<std::uint8_t> record) {
  DatabasePages pages{};
  const AttemptPlan plan{.name = block.attempts, .confirmation = ForOthers(reader.policy)};
  const ReadResult result = Attempt(reader.driver, reader.policy, plan, pages,
                                    [&] { return RequestDatabase(reader, pages); });
  if (result.done) ConvertDatabase(pages, reader.versionIndex, record);
  return result;
}

// --- Operative values: two pieces of memory ---

constexpr std::uint16_t kOperativeAddress = 195;
constexpr std::size_t kOperativeFloats = 10;
constexpr std::uint16_t kFlowsAddress = 328;
constexpr std::size_t kFlowFloats = 2;
constexpr std::uint8_t kFirstVersionWithFlows = 2;

// Everything but byte 0, the situation code, which this model does not deliver.
ExchangeError RequestOperative(TKSplImpl& reader, std::span<std::uint8_t> record) {
  std::array<std::uint8_t, kOperativeFloats * 4> values{};
  ExchangeError error = reader.link.ReadMemory(kOperativeAddress, values);
  if (error != ExchangeError::kNone) return error;
  std::size_t to = 1;
  for (std::size_t i = 0; i < kOperativeFloats; ++i, to += 4) CopyFloat(values, i * 4, record, to);
  if (reader.versionIndex < kFirstVersionWithFlows) {
    for (std::size_t i = 0; i < kFlowFloats; ++i, to += 4) StoreAbsent(record, to);
    return ExchangeError::kNone;
  }
  std::array<std::uint8_t, kFlowFloats * 4> flows{};
  error = reader.link.ReadMemory(kFlowsAddress, flows);
  if (error != ExchangeError::kNone) return InSecondHalf(error);
  for (std::size_t i = 0; i < kFlowFloats; ++i, to += 4) CopyFloat(flows, i * 4, record, to);
  return ExchangeError::kNone;
}

ReadResult ReadOperative521(TKSplImpl& reader, const Block& block, int /*system*/,
                            std::span<std::uint8_t> record) {
  const AttemptPlan plan{.name = block.attempts, .confirmation = ForOthers(reader.policy)};
  return Attempt(reader.driver, reader.policy, plan, record,
                 [&] { return RequestOperative(reader, record); });
}

// --- Archive records ---

// What stands in a column under a mode code.
enum Source : std::uint8_t {
  kZero = 0,
  kAt12 = 12,  // the float at this offset of the reply
  kAt16 = 16,
  kAt20 = 20,
  kAt24 = 24,
  kDifference = 255,  // M1 - M2
};

// V1, V2, V3, M1, M2, M3 by mode code 0 to 9. Modes 7 to 9 leave floats of the reply out: intended.
constexpr std::size_t kModeColumns = 6;
constexpr Source kModes[][kModeColumns] = {
    {kAt12, kAt16, kZero, kAt20, kAt24, kDifference},
    {kAt12, kZero, kAt16, kAt20, kAt24, kDifference},
    {kZero, kAt12, kAt16, kAt20, kAt24, kDifference},
    {kAt12, kAt16, kZero, kAt20, kAt24, kZero},
    {kAt12, kAt16, kZero, kAt20, kAt24, kZero},
    {kAt12, kZero, kAt16, kAt20, kZero, kAt24},
    {kZero, kAt12, kAt16, kZero, kAt20, kAt24},
    {kAt12, kZero, kZero, kAt20, kZero, kZero},
    {kAt12, kAt16, kZero, kAt20, kZero, kZero},
    {kAt12, kAt16, kZero, kZero, kZero, kZero},
};

void ConvertByMode(std::uint8_t mode, std::span<const std::uint8_t> reply,
                   std::span<std::uint8_t> record) {
  if (mode >= std::size(kModes)) return;  // every column stays zero
  std::size_t to = OffsetOf(kHourLayout521, "V1");
  for (const Source source : kModes[mode]) {
    if (source == kDifference) {
      StoreDifference(record, to, OffsetOf(kHourLayout521, "M1"), OffsetOf(kHourLayout521, "M2"));
    } else if (source != kZero) {
      CopyFloat(reply, source, record, to);
    }
    to += 4;
  }
}

void ConvertHour(Columns columns, std::span<const std::uint8_t> reply,
                 std::span<std::uint8_t> record) {
  const std::uint8_t mode = reply[2];
  record[OffsetOf(columns, "SP")] = mode;
  record[OffsetOf(columns, "NS")] = reply[3];
  CopyFloat(reply, 4, record, OffsetOf(columns, "t1"));
  CopyFloat(reply, 8, record, OffsetOf(columns, "t2"));
  CopyFloat(reply, 28, record, OffsetOf(columns, "Q"));
  ConvertByMode(mode, reply, record);
}

void ConvertDay(Columns columns, std::span<const std::uint8_t> reply,
                std::span<std::uint8_t> record) {
  constexpr std::size_t kFloats = 10;
  const std::size_t sp = OffsetOf(columns, "SP");
  record[sp] = reply[2];
  for (std::size_t i = 0; i < kFloats; ++i) CopyFloat(reply, 4 + i * 4, record, sp + 1 + i * 4);
}

// --- The model ---

constexpr Block kOperative521[] = {
    {kOperLayout521, ReadOperative521, "PoitkaReadTek", "Op"},
};
constexpr ArchiveRecord kDayRecord521 = {kDayLayout521, 64, ConvertDay};

}  // namespace

constexpr Model kModel521 = {
    .type = TypeCode::k521,
    .greeting = "521",
    .sectionText = nullptr,
    .progress = {.database = 2,
                 .operative = 2,
                 .doubled = false,
                 .beforeClock = true,
                 .clock = 0,
                 .databaseRead = 2},
    .database = {.block = {kBdLayout521, ReadDatabase521, "PoitkaReadBD", "BD"},
                 .start = "Start Read",
                 .startName = "BD ОВ"_w},
    .systemDatabase = nullptr,
    .start = "Start Read",
    .operative = {.layout = kOperLayout521,
                  .blocks = kOperative521,
                  .startName = "Oper ОВ"_w,
                  .continuousTitle = "ОВ"_w},
    .archives = {{{kHourLayout521, 32, ConvertHour}, "Hour ОВ"_w},
                 {kDayRecord521, "Dey ОВ"_w},
                 {kDayRecord521, "Month ОВ"_w}},
    .tellsArchives = false,
    .logs = nullptr,
    .keepSettings = nullptr,
    .units = Units521,
};
static_assert(FitsTheReader(kModel521));

}  // namespace older
