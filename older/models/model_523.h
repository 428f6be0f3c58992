// Heat meter 523: a part common to both heat systems, and the two systems, each with a session and
// logs of its own.
#pragma once

#include "older/models/columns.h"
#include "older/models/logs.h"
#include "older/models/model.h"
#include "older/reads/memory.h"
#include "older/reads/text_database.h"

namespace older {

// --- Layouts ---

// Pxk carries the unit of a temperature: intended.
inline constexpr Column kGeneralLayout523[] = {
    {"EI", Type::kByte, "код"_w, Role::kValue, "ЕИ"_w},
    TimeOfDay("TO", "ТО"_w),
    FullDate("DO", "ДО"_w),
    {"DR", Type::kByte, "сутки"_w, Role::kValue, "СР"_w},
    {"TR", Type::kByte, "час"_w, Role::kValue, "ЧР"_w},
    {"PL", Type::kByte, "Вкл"_w, Role::kValue, "ПЛ"_w},
    {"NT", Type::kByte, "номер"_w},
    Characters("ID", 9, "номер"_w, "ИД"_w),
    {"KI", Type::kByte, "конф"_w, Role::kValue, "КИ"_w},
    TimeOfDay("TMN", "ВМН"_w),
    TimeOfDay("TMK", "ВМК"_w),
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

inline constexpr Column kSystemBeforeChannels523[] = {
    {"SP", Type::kByte, "код"_w},         {"KW", Type::kInt32, "номер"_w},
    {"tk1", Type::kFloat, "'C"},          {"tk2", Type::kFloat, "'C"},
    {"tk3", Type::kFloat, "'C"},          {"DW", Type::kByte, "код"_w},
    {"WP1", Type::kFloat, kPressureUnit}, {"WP2", Type::kFloat, kPressureUnit},
    {"Pk1", Type::kFloat, kPressureUnit}, {"Pk2", Type::kFloat, kPressureUnit},
    {"Pk3", Type::kFloat, kPressureUnit}, {"KG", Type::kByte, "код"_w},
};
inline constexpr Column kSystemAfterChannels523[] = {
    {"AM", Type::kByte, "код"_w},
    {"Mk", Type::kFloat, "т/час"_w},
    {"HM", Type::kFloat, "коэф"_w},
    {"AQ", Type::kByte, "код"_w},
    {"Qk", Type::kFloat, kHeatUnit, Role::kValue, "Qк"_w},
    {"PS", Type::kByte, "код"_w},
    {"PM", Type::kByte, "код"_w},
};
inline constexpr auto kSystemBdLayout523 =
    Table(kSystemBeforeChannels523, kFlowChannels, kSystemAfterChannels523);
static_assert(std::size(kSystemBdLayout523) == 31 && RecordSize(kSystemBdLayout523) == 103);
static_assert(ConsistsOfItems(kSystemBdLayout523));

inline constexpr Column kFurtherTemperatures523[] = {
    {"dt_1_2", Type::kFloat, "'C", Role::kValue, "dt"},
    {"t3", Type::kFloat, "'C"},
    {"thv", Type::kFloat, "'C", Role::kValue, "tх"_w},
    {"tvoz", Type::kFloat, "'C", Role::kValue, "tв"_w},
};
inline constexpr auto kCurrentColumns523 =
    Table(Column{"SP", Type::kByte, "код"_w, Role::kValue, "СП"_w}, kSituationColumn, kFlows,
          kPressures, kTemperatures, kFurtherTemperatures523);
static_assert(RecordSize(kCurrentColumns523) == 49);

inline constexpr Column kTotalsAfterHeat523[] = {
    {"Tw", Type::kFloat, "Час"_w, Role::kValue, "Tр"_w},
    {"Qgvs", Type::kFloat, kHeatUnit, Role::kValue, "Qгвс"_w},
};
inline constexpr auto kTotalsColumns523 =
    WithRole(Role::kAccumulated, Table(kVolumesAndMasses, kHeatColumn, kTotalsAfterHeat523));
static_assert(RecordSize(kTotalsColumns523) == 36);

inline constexpr auto kCurrentLayout523 = Table(kCurrentColumns523, kTotalsColumns523);

inline constexpr Column kArchiveTemperatures523[] = {
    {"t3", Type::kFloat, "'C"},
    {"thv", Type::kFloat, "'C"},
    {"tvoz", Type::kFloat, "'C"},
};
inline constexpr auto kArchiveLayout523 = Table(
    kDateColumn, kSituationColumn, kModeColumn, kPressures, kTemperatures, kArchiveTemperatures523,
    kVolumesAndMasses, kHeatColumn, kTimeColumn, Column{"Qgvs", Type::kFloat, kHeatUnit});
static_assert(std::size(kArchiveLayout523) == 19 && RecordSize(kArchiveLayout523) == 76);

// The reply has no room for M3, which is M1 - M2.
void ConvertArchive523(Columns columns, std::span<const std::uint8_t> reply,
                       std::span<std::uint8_t> record);

// --- Where it stands in the instrument ---

inline constexpr HeatSystems kSystems523 = {
    .count = 2,
    .database =
        {.block = {kSystemBdLayout523, ReadTextItems, "PoitkaReadBDTB", "BD", {0x0400, 0x0800}},
         .start = nullptr,
         .startName = "BD"},
    .mode = FieldOf(kSystemBdLayout523, "SP"),
    .entryNumber = FieldOf(kSystemBdLayout523, "KW"),
};

inline constexpr Block kOperative523[] = {
    {kCurrentColumns523, ReadMemoryBlock, "PoitkaReadTek", "Tek", {0x0200, 0x0300}},
    {kTotalsColumns523, ReadMemoryBlock, "PoitkaReadTot", "Tot", {0x0280, 0x0380}},
};

inline constexpr ArchiveRecord kArchive523 = {kArchiveLayout523, 64, ConvertArchive523, true};

inline constexpr LogSection kLogs523[] = {
    {kChangeLog, {0x1000, 0x3000}},
    {kSituationLog, {0x2000, 0x4000}},
};

inline constexpr Model kModel523 = {
    .identity = {'T', 0x2B, "УРМ523"_w, "urm523", 243},
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
    .number = FieldOf(kGeneralLayout523, "ID"),
    .systems = kSystems523,
    .start = nullptr,
    .operative = {.layout = kCurrentLayout523,
                  .blocks = kOperative523,
                  .startName = "Oper",
                  .continuousTitle = ""},
    .archives = {{kArchive523, "Hoyr"}, {kArchive523, "Dey"}, {kArchive523, "Mon"}},
    .logs = kLogs523,
    .keepSettings = KeepUnitsCode,
    .units = UnitsByCode,
};

}  // namespace older
