// Heat meter 521 of the 521.1x generation: one heat system, a database of text items, current
// values and totals apart, logs.
#pragma once

#include "older/models/columns.h"
#include "older/models/logs.h"
#include "older/models/model.h"
#include "older/reads/memory.h"
#include "older/reads/text_database.h"

namespace older {

// --- Layouts ---

inline constexpr Column kBeforeChannels521x[] = {
    {"EI", Type::kByte, "код"_w, Role::kValue, "ЕИ"_w},
    {"SP", Type::kByte, "код"_w},
    TimeOfDay("TO", "ТО"_w),
    FullDate("DO", "ДО"_w),
    {"DR", Type::kByte, "сутки"_w, Role::kValue, "СР"_w},
    {"TR", Type::kByte, "час"_w, Role::kValue, "ЧР"_w},
    {"TS", Type::kByte, "час"_w, Role::kValue, "ТС"_w},
    {"KG", Type::kByte, "код"_w},
};
// TMN and TMK share caption and group: intended.
inline constexpr Column kAfterChannels521x[] = {
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
    TimeOfDay("TMN", "ВМН"_w, "ВМК"_w),
    TimeOfDay("TMK", "ВМН"_w, "ВМК"_w),
    {"PS", Type::kByte, "код"_w},
    {"PM", Type::kByte, "код"_w},
};
inline constexpr auto kBdLayout521x = Table(kBeforeChannels521x, kFlowChannels, kAfterChannels521x);
static_assert(std::size(kBdLayout521x) == 42 && RecordSize(kBdLayout521x) == 143);
static_assert(ConsistsOfItems(kBdLayout521x));

inline constexpr auto kCurrentColumns521x =
    Table(Column{"SP", Type::kByte, "код"_w, Role::kValue, "СП"_w}, kSituationColumn, kFlows,
          kTemperatures, Column{"dt_1_2", Type::kFloat, "'C", Role::kValue, "dt"});
static_assert(RecordSize(kCurrentColumns521x) == 29);

// Tw is no accumulated value here: intended.
inline constexpr auto kTotalsColumns521x =
    Table(WithRole(Role::kAccumulated, Table(kVolumesAndMasses, kHeatColumn)),
          Column{"Tw", Type::kFloat, "Час"_w, Role::kValue, "Tр"_w});
static_assert(RecordSize(kTotalsColumns521x) == 32);

inline constexpr auto kCurrentLayout521x = Table(kCurrentColumns521x, kTotalsColumns521x);

// Q carries this unit whatever the instrument is set to: intended.
inline constexpr auto kArchiveLayout521x =
    Table(kDateColumn, kSituationColumn, kModeColumn, kTemperatures, kVolumesAndMasses,
          Column{"Q", Type::kFloat, "ГКал"_w}, kTimeColumn);
static_assert(std::size(kArchiveLayout521x) == 13 && RecordSize(kArchiveLayout521x) == 52);

// --- Where it stands in the instrument ---

inline constexpr Block kOperative521x[] = {
    {kCurrentColumns521x, ReadMemoryBlock, "PoitkaReadTek", "Tek", {0x0200}},
    {kTotalsColumns521x, ReadMemoryBlock, "PoitkaReadTot", "Tot", {0x0280}},
};

inline constexpr ArchiveRecord kArchive521x = {kArchiveLayout521x, 64, ConvertEveryColumn, true};

inline constexpr LogSection kLogs521x[] = {{kChangeLog, {0x1000}}, {kSituationLog, {0x2000}}};

inline constexpr Model kModel521x = {
    .identity = {0x92, 0x29, "УРМ521"_w, "urm521_10", 243},
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
    .number = FieldOf(kBdLayout521x, "ID"),
    .mode = FieldOf(kBdLayout521x, "SP"),
    .start = nullptr,
    .operative = {.layout = kCurrentLayout521x,
                  .blocks = kOperative521x,
                  .startName = "Oper",
                  .continuousTitle = "ОВ"_w},
    .archives = {{kArchive521x, "Hoyr"}, {kArchive521x, "Dey"}, {kArchive521x, "Mon"}},
    .logs = kLogs521x,
    .keepSettings = KeepUnitsCode,
    .units = UnitsByCode,
};

}  // namespace older
