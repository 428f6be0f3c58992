// Heat meter 522: a part common to both heat systems, and the two systems, each with a session of
// its own. No logs.
#pragma once

#include "older/models/columns.h"
#include "older/models/model.h"
#include "older/reads/memory.h"
#include "older/reads/text_database.h"

namespace older {

// --- Layouts ---

inline constexpr Column kGeneralLayout522[] = {
    {"EI", Type::kByte, "код"_w},
    {"PI", Type::kInt16, "сек"_w},
    TimeOfDay("TO"),
    FullDate("DO"),
    {"KTh", Type::kFloat, "коэф"_w},
    {"DR", Type::kByte, "сутки"_w},
    {"TR", Type::kByte, "час"_w},
    DayOfYear("DL"),
    DayOfYear("DS"),
    {"NT", Type::kByte, "номер"_w},
    Characters("ID", 9, "номер"_w),
};
static_assert(std::size(kGeneralLayout522) == 11 && RecordSize(kGeneralLayout522) == 47);
static_assert(ConsistsOfItems(kGeneralLayout522));

inline constexpr Column kSystemBeforeChannels522[] = {
    {"SP", Type::kByte, "код"_w},         {"KW", Type::kInt32, "номер"_w},
    {"tx", Type::kFloat, "'C"},           {"Px", Type::kFloat, kPressureUnit},
    {"TC", Type::kFloat, "код"_w},        {"tk1", Type::kFloat, "'C"},
    {"tk2", Type::kFloat, "'C"},          {"tk3", Type::kFloat, "'C"},
    {"DW", Type::kByte, "код"_w},         {"WP1", Type::kFloat, kPressureUnit},
    {"WP2", Type::kFloat, kPressureUnit}, {"Pk1", Type::kFloat, kPressureUnit},
    {"Pk2", Type::kFloat, kPressureUnit}, {"Pk3", Type::kFloat, kPressureUnit},
    {"KG", Type::kByte, "код"_w},
};
inline constexpr Column kSystemAfterChannels522[] = {
    {"PS", Type::kByte, "код"_w},
    {"PM", Type::kByte, "код"_w},
};
inline constexpr auto kSystemBdLayout522 =
    Table(kSystemBeforeChannels522, kFlowChannels, kSystemAfterChannels522);
static_assert(std::size(kSystemBdLayout522) == 29 && RecordSize(kSystemBdLayout522) == 101);
static_assert(ConsistsOfItems(kSystemBdLayout522));

inline constexpr auto kCurrentColumns522 =
    Table(Column{"SP", Type::kByte, "код"_w}, kSituationColumn, kFlows, kPressures, kTemperatures,
          Column{"dt_1_2", Type::kFloat, "'C"});
static_assert(RecordSize(kCurrentColumns522) == 37);

inline constexpr auto kTotalsColumns522 =
    WithRole(Role::kAccumulated, Table(kVolumesAndMasses, kHeatColumn, kTimeColumn));
static_assert(RecordSize(kTotalsColumns522) == 32);

inline constexpr auto kCurrentLayout522 = Table(kCurrentColumns522, kTotalsColumns522);

inline constexpr auto kArchiveLayout522 =
    Table(kDateColumn, kSituationColumn, kModeColumn, kPressures, kTemperatures, kVolumesAndMasses,
          kHeatColumn, kTimeColumn);
static_assert(std::size(kArchiveLayout522) == 15 && RecordSize(kArchiveLayout522) == 60);

// --- Where it stands in the instrument ---

inline constexpr HeatSystems kSystems522 = {
    .count = 2,
    .database = {.block = {kSystemBdLayout522, ReadTextRows, "Flash522", "BD", {8, 16}},  // pages
                 .start = nullptr,
                 .startName = "BD"},
    .mode = FieldOf(kSystemBdLayout522, "SP"),
    .entryNumber = FieldOf(kSystemBdLayout522, "KW"),
};

inline constexpr Block kOperative522[] = {
    {kCurrentColumns522, ReadMemoryBlock, "PoitkaReadTek", "Tek", {0x0200, 0x0300}},
    {kTotalsColumns522, ReadMemoryBlock, "PoitkaReadTot", "Tot", {0x0280, 0x0380}},
};

inline constexpr ArchiveRecord kArchive522 = {kArchiveLayout522, 64, ConvertEveryColumn, true};

inline constexpr Model kModel522 = {
    .identity = {'T', 0x2A, "УРМ522"_w, "urm522", 243},
    .greeting = "522-0",
    .sectionText = "ОВ"_w,
    .progress = {.database = 10,
                 .operative = 2,
                 .doubled = true,
                 .beforeClock = false,
                 .clock = 2,
                 .databaseRead = 2},
    .database = {.block = {kGeneralLayout522, ReadTextRows, "Flash522", "BD", {0}, true},
                 .start = "Start Read",
                 .startName = "BD ОВ"_w},
    .number = FieldOf(kGeneralLayout522, "ID"),
    .systems = kSystems522,
    .start = nullptr,
    .operative = {.layout = kCurrentLayout522,
                  .blocks = kOperative522,
                  .startName = "Oper",
                  .continuousTitle = ""},
    .archives = {{kArchive522, "Hoyr"}, {kArchive522, "Dey"}, {kArchive522, "Mon"}},
    .keepSettings = KeepUnitsCode,
    .units = UnitsByCode,
};

}  // namespace older
