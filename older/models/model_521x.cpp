// Heat meter 521 of the 521.1x generation: one heat system, a database of text items, current
// values and totals apart, logs.
#include "older/models/catalogue.h"
#include "older/models/columns.h"
#include "older/reads/archive.h"
#include "older/reads/memory.h"
#include "older/reads/text_database.h"
#include "older/reads/text_items.h"

namespace older {
namespace {

// --- Layouts ---

constexpr Column kBeforeChannels521x[] = {
    {"EI", Type::kByte, "код"_w, Role::kValue, "ЕИ"_w},
    {"SP", Type::kByte, "код"_w},
    {"TO", Type::kDateTime, "h.m.s", Role::kValue, "ТО"_w},
    {"DO", Type::kDateTime, "D.M.Y", Role::kValue, "ДО"_w},
    {"DR", Type::kByte, "сутки"_w, Role::kValue, "СР"_w},
    {"TR", Type::kByte, "час"_w, Role::kValue, "ЧР"_w},
    {"TS", Type::kByte, "час"_w, Role::kValue, "ТС"_w},
    {"KG", Type::kByte, "код"_w},
};
// TMN and TMK share caption and group: intended.
constexpr Column kAfterChannels521x[] = {
    {"tk1", Type::kFloat, "'C"},
    {"Pk1", Type::kFloat, kPressureUnit},
    {"tk2", Type::kFloat, "'C"},
    {"Pk2", Type::kFloat, kPressureUnit},
    {"tk3", Type::kFloat, "'C"},
    {"Pk3", Type::kFloat, kPressureUnit},
    {"txk", Type::kFloat, "'C", Role::kValue, "tхк"_w},
    {"Pxk", Type::kFloat, kPressureUnit, Role::kValue, "Pхк"_w},
    {"AM", Type::kByte, "код"_w},
    {"Mk", Type::kFloat, "т/час"_w},
    {"HM", Type::kFloat, "коэф"_w},
    {"AQ", Type::kByte, "код"_w},
    {"Qk", Type::kFloat, kHeatUnit, Role::kValue, "Qк"_w},
    {"PL", Type::kByte, "Вкл"_w, Role::kValue, "ПЛ"_w},
    {"KD", Type::kByte, "час"_w, Role::kValue, "КД"_w},
    {"NT", Type::kByte, "номер"_w},
    Characters("ID", 9, "номер"_w, "ИД"_w),
    {"KI", Type::kByte, "конф"_w, Role::kValue, "КИ"_w},
    {"TMN", Type::kDateTime, "h.m.s", Role::kValue, "ВМН"_w, "ВМК"_w},
    {"TMK", Type::kDateTime, "h.m.s", Role::kValue, "ВМН"_w, "ВМК"_w},
    {"PS", Type::kByte, "код"_w},
    {"PM", Type::kByte, "код"_w},
};
constexpr auto kBdLayout521x = Join<42>({kBeforeChannels521x, kFlowChannels, kAfterChannels521x});
static_assert(RecordSize(kBdLayout521x) == 143 && ConsistsOfItems(kBdLayout521x));

constexpr Column kCurrentColumns521x[] = {
    {"SP", Type::kByte, "код"_w, Role::kValue, "СП"_w},
    kSituationColumn,
    {"G1", Type::kFloat, "м3/час"_w},
    {"G2", Type::kFloat, "м3/час"_w},
    {"G3", Type::kFloat, "м3/час"_w},
    {"t1", Type::kFloat, "'C"},
    {"t2", Type::kFloat, "'C"},
    {"dt_1_2", Type::kFloat, "'C", Role::kValue, "dt"},
};
static_assert(RecordSize(kCurrentColumns521x) == 29);

// Tw is no accumulated value here: intended.
constexpr Column kTotalsColumns521x[] = {
    {"V1", Type::kFloat, "м3"_w, Role::kAccumulated},
    {"V2", Type::kFloat, "м3"_w, Role::kAccumulated},
    {"V3", Type::kFloat, "м3"_w, Role::kAccumulated},
    {"M1", Type::kFloat, "тонн"_w, Role::kAccumulated},
    {"M2", Type::kFloat, "тонн"_w, Role::kAccumulated},
    {"M3", Type::kFloat, "тонн"_w, Role::kAccumulated},
    {"Q", Type::kFloat, kHeatUnit, Role::kAccumulated},
    {"Tw", Type::kFloat, "Час"_w, Role::kValue, "Tр"_w},
};
static_assert(RecordSize(kTotalsColumns521x) == 32);

constexpr auto kCurrentLayout521x = Join<16>({kCurrentColumns521x, kTotalsColumns521x});

// Q carries this unit whatever the instrument is set to: intended.
constexpr Column kArchiveLayout521x[] = {
    kDateColumn,
    kSituationColumn,
    {"SP", Type::kByte, "Код Реж"_w},
    {"t1", Type::kFloat, "'C"},
    {"t2", Type::kFloat, "'C"},
    {"V1", Type::kFloat, "м3"_w},
    {"V2", Type::kFloat, "м3"_w},
    {"V3", Type::kFloat, "м3"_w},
    {"M1", Type::kFloat, "тонн"_w},
    {"M2", Type::kFloat, "тонн"_w},
    {"M3", Type::kFloat, "тонн"_w},
    {"Q", Type::kFloat, "ГКал"_w},
    {"Tw", Type::kFloat, "Час"_w},
};
static_assert(std::size(kArchiveLayout521x) == 13 && RecordSize(kArchiveLayout521x) == 52);

// --- Where it stands in the instrument ---

constexpr Block kOperative521x[] = {
    {kCurrentColumns521x, ReadMemoryBlock, "PoitkaReadTek", "Tek", {0x0200}},
    {kTotalsColumns521x, ReadMemoryBlock, "PoitkaReadTot", "Tot", {0x0280}},
};

constexpr ArchiveRecord kArchive521x = {kArchiveLayout521x, 64, ConvertByColumns};

constexpr LogAddresses kLogs521x = {.changes = {0x1000}, .situations = {0x2000}};

}  // namespace

constexpr Model kModel521x = {
    .type = TypeCode::k521x,
    .greeting = "521-1x",
    .sectionText = "Общий"_w,
    .progress = {.database = 10,
                 .operative = 2,
                 .doubled = true,
                 .beforeClock = false,
                 .clock = 2,
                 .databaseRead = 8},
    .database = {.block = {kBdLayout521x, ReadTextItems, "PoitkaReadBDOB", "BD", {0x0000}, true},
                 .start = nullptr,
                 .startName = "BD"},
    .systemDatabase = nullptr,
    .start = nullptr,
    .operative = {.layout = kCurrentLayout521x,
                  .blocks = kOperative521x,
                  .startName = "Oper",
                  .continuousTitle = "ОВ"_w},
    .archives = {{kArchive521x, "Hoyr"}, {kArchive521x, "Dey"}, {kArchive521x, "Mon"}},
    .tellsArchives = true,
    .logs = &kLogs521x,
    .keepSettings = KeepUnitsCode,
    .units = UnitsByCode,
};
static_assert(FitsTheReader(kModel521x));

}  // namespace older
