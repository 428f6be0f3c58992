// Heat meter 523: a part common to both heat systems, and the two systems, each with a session and
// logs of its own.
#include "older/models/catalogue.h"
#include "older/models/columns.h"
#include "older/reads/archive.h"
#include "older/reads/memory.h"
#include "older/reads/text_database.h"
#include "older/reads/text_items.h"

namespace older {
namespace {

// --- Layouts ---

// Pxk carries the unit of a temperature: intended.
constexpr Column kGeneralLayout523[] = {
    {"EI", Type::kByte, "код"_w, Role::kValue, "ЕИ"_w},
    {"TO", Type::kDateTime, "h.m.s", Role::kValue, "ТО"_w},
    {"DO", Type::kDateTime, "D.M.Y", Role::kValue, "ДО"_w},
    {"DR", Type::kByte, "сутки"_w, Role::kValue, "СР"_w},
    {"TR", Type::kByte, "час"_w, Role::kValue, "ЧР"_w},
    {"PL", Type::kByte, "Вкл"_w, Role::kValue, "ПЛ"_w},
    {"NT", Type::kByte, "номер"_w},
    Characters("ID", 9, "номер"_w, "ИД"_w),
    {"KI", Type::kByte, "конф"_w, Role::kValue, "КИ"_w},
    {"TMN", Type::kDateTime, "h.m.s", Role::kValue, "ВМН"_w},
    {"TMK", Type::kDateTime, "h.m.s", Role::kValue, "ВМК"_w},
    {"txk", Type::kFloat, "'C", Role::kValue, "tхк"_w},
    {"Pxk", Type::kFloat, "'C", Role::kValue, "Pхк"_w},
    {"TS", Type::kByte, "час"_w, Role::kValue, "ТС"_w},
    {"KD", Type::kByte, "час"_w, Role::kValue, "КД"_w},
    {"CH", Type::kByte, "час"_w, Role::kValue, "СН"_w},
    {"TC3", Type::kByte, "час"_w, Role::kValue, "ТС3"_w},
    {"KY", Type::kByte, "час"_w, Role::kValue, "КУ"_w},
    {"HY", Type::kByte, "час"_w, Role::kValue, "НУ"_w},
    {"YB", Type::kFloat, "'C", Role::kValue, "УВ"_w},
    {"YH", Type::kFloat, "'C", Role::kValue, "УН"_w},
};
static_assert(std::size(kGeneralLayout523) == 21 && RecordSize(kGeneralLayout523) == 65);
static_assert(ConsistsOfItems(kGeneralLayout523));

constexpr Column kSystemBeforeChannels523[] = {
    {"SP", Type::kByte, "код"_w},         {"KW", Type::kInt32, "номер"_w},
    {"tk1", Type::kFloat, "'C"},          {"tk2", Type::kFloat, "'C"},
    {"tk3", Type::kFloat, "'C"},          {"DW", Type::kByte, "код"_w},
    {"WP1", Type::kFloat, kPressureUnit}, {"WP2", Type::kFloat, kPressureUnit},
    {"Pk1", Type::kFloat, kPressureUnit}, {"Pk2", Type::kFloat, kPressureUnit},
    {"Pk3", Type::kFloat, kPressureUnit}, {"KG", Type::kByte, "код"_w},
};
constexpr Column kSystemAfterChannels523[] = {
    {"AM", Type::kByte, "код"_w},
    {"Mk", Type::kFloat, "т/час"_w},
    {"HM", Type::kFloat, "коэф"_w},
    {"AQ", Type::kByte, "код"_w},
    {"Qk", Type::kFloat, kHeatUnit, Role::kValue, "Qк"_w},
    {"PS", Type::kByte, "код"_w},
    {"PM", Type::kByte, "код"_w},
};
constexpr auto kSystemBdLayout523 =
    Join<31>({kSystemBeforeChannels523, kFlowChannels, kSystemAfterChannels523});
static_assert(RecordSize(kSystemBdLayout523) == 103 && ConsistsOfItems(kSystemBdLayout523));

constexpr Column kCurrentColumns523[] = {
    {"SP", Type::kByte, "код"_w, Role::kValue, "СП"_w},
    kSituationColumn,
    {"G1", Type::kFloat, "м3/час"_w},
    {"G2", Type::kFloat, "м3/час"_w},
    {"G3", Type::kFloat, "м3/час"_w},
    {"P1", Type::kFloat, kPressureUnit},
    {"P2", Type::kFloat, kPressureUnit},
    {"t1", Type::kFloat, "'C"},
    {"t2", Type::kFloat, "'C"},
    {"dt_1_2", Type::kFloat, "'C", Role::kValue, "dt"},
    {"t3", Type::kFloat, "'C"},
    {"thv", Type::kFloat, "'C", Role::kValue, "tх"_w},
    {"tvoz", Type::kFloat, "'C", Role::kValue, "tв"_w},
};
static_assert(RecordSize(kCurrentColumns523) == 49);

constexpr Column kTotalsColumns523[] = {
    {"V1", Type::kFloat, "м3"_w, Role::kAccumulated},
    {"V2", Type::kFloat, "м3"_w, Role::kAccumulated},
    {"V3", Type::kFloat, "м3"_w, Role::kAccumulated},
    {"M1", Type::kFloat, "тонн"_w, Role::kAccumulated},
    {"M2", Type::kFloat, "тонн"_w, Role::kAccumulated},
    {"M3", Type::kFloat, "тонн"_w, Role::kAccumulated},
    {"Q", Type::kFloat, kHeatUnit, Role::kAccumulated},
    {"Tw", Type::kFloat, "Час"_w, Role::kAccumulated, "Tр"_w},
    {"Qgvs", Type::kFloat, kHeatUnit, Role::kAccumulated, "Qгвс"_w},
};
static_assert(RecordSize(kTotalsColumns523) == 36);

constexpr auto kCurrentLayout523 = Join<22>({kCurrentColumns523, kTotalsColumns523});

constexpr Column kArchiveLayout523[] = {
    kDateColumn,
    kSituationColumn,
    {"SP", Type::kByte, "Код Реж"_w},
    {"P1", Type::kFloat, kPressureUnit},
    {"P2", Type::kFloat, kPressureUnit},
    {"t1", Type::kFloat, "'C"},
    {"t2", Type::kFloat, "'C"},
    {"t3", Type::kFloat, "'C"},
    {"thv", Type::kFloat, "'C"},
    {"tvoz", Type::kFloat, "'C"},
    {"V1", Type::kFloat, "м3"_w},
    {"V2", Type::kFloat, "м3"_w},
    {"V3", Type::kFloat, "м3"_w},
    {"M1", Type::kFloat, "тонн"_w},
    {"M2", Type::kFloat, "тонн"_w},
    {"M3", Type::kFloat, "тонн"_w},
    {"Q", Type::kFloat, kHeatUnit},
    {"Tw", Type::kFloat, "Час"_w},
    {"Qgvs", Type::kFloat, kHeatUnit},
};
static_assert(std::size(kArchiveLayout523) == 19 && RecordSize(kArchiveLayout523) == 76);

// The reply has no room for M3.
void ConvertArchive523(Columns columns, std::span<const std::uint8_t> reply,
                       std::span<std::uint8_t> record) {
  ConvertColumnsBut("M3", columns, reply, record);
  StoreDifference(record, OffsetOf(columns, "M3"), OffsetOf(columns, "M1"),
                  OffsetOf(columns, "M2"));
}

// --- Where it stands in the instrument ---

constexpr DatabaseSection kSystemDatabase523 = {
    .block = {kSystemBdLayout523, ReadTextItems, "PoitkaReadBDTB", "BD", {0x0400, 0x0800}},
    .start = nullptr,
    .startName = "BD",
};

constexpr Block kOperative523[] = {
    {kCurrentColumns523, ReadMemoryBlock, "PoitkaReadTek", "Tek", {0x0200, 0x0300}},
    {kTotalsColumns523, ReadMemoryBlock, "PoitkaReadTot", "Tot", {0x0280, 0x0380}},
};

constexpr ArchiveRecord kArchive523 = {kArchiveLayout523, 64, ConvertArchive523};

constexpr LogAddresses kLogs523 = {.changes = {0x1000, 0x3000}, .situations = {0x2000, 0x4000}};

}  // namespace

constexpr Model kModel523 = {
    .type = TypeCode::k523,
    .greeting = "523-0",
    .sectionText = "Общий"_w,
    .progress = {.database = 10,
                 .operative = 2,
                 .doubled = true,
                 .beforeClock = false,
                 .clock = 2,
                 .databaseRead = 2},
    .database =
        {.block = {kGeneralLayout523, ReadTextItems, "PoitkaReadBDOB", "BD", {0x0000}, true},
         .start = nullptr,
         .startName = "BD",
         .noticeAfter = true},
    .systemDatabase = &kSystemDatabase523,
    .start = nullptr,
    .operative = {.layout = kCurrentLayout523,
                  .blocks = kOperative523,
                  .startName = "Oper",
                  .continuousTitle = ""},
    .archives = {{kArchive523, "Hoyr"}, {kArchive523, "Dey"}, {kArchive523, "Mon"}},
    .tellsArchives = true,
    .logs = &kLogs523,
    .keepSettings = KeepUnitsCode,
    .units = UnitsByCode,
};
static_assert(FitsTheReader(kModel523));

}  // namespace older
