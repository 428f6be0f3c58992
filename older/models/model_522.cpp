// Heat meter 522: a part common to both heat systems, and the two systems, each with a session of
// its own. No logs.
#include "older/models/catalogue.h"
#include "older/models/columns.h"
#include "older/reads/archive.h"
#include "older/reads/memory.h"
#include "older/reads/text_database.h"
#include "older/reads/text_items.h"

namespace older {
namespace {

// --- Layouts ---

constexpr Column kGeneralLayout522[] = {
    {"EI", Type::kByte, "код"_w},     {"PI", Type::kInt16, "сек"_w},
    {"TO", Type::kDateTime, "h.m.s"}, {"DO", Type::kDateTime, "D.M.Y"},
    {"KTh", Type::kFloat, "коэф"_w},  {"DR", Type::kByte, "сутки"_w},
    {"TR", Type::kByte, "час"_w},     {"DL", Type::kDateTime, "D.M"},
    {"DS", Type::kDateTime, "D.M"},   {"NT", Type::kByte, "номер"_w},
    Characters("ID", 9, "номер"_w),
};
static_assert(std::size(kGeneralLayout522) == 11 && RecordSize(kGeneralLayout522) == 47);
static_assert(ConsistsOfItems(kGeneralLayout522));

constexpr Column kSystemBeforeChannels522[] = {
    {"SP", Type::kByte, "код"_w},         {"KW", Type::kInt32, "номер"_w},
    {"tx", Type::kFloat, "'C"},           {"Px", Type::kFloat, kPressureUnit},
    {"TC", Type::kFloat, "код"_w},        {"tk1", Type::kFloat, "'C"},
    {"tk2", Type::kFloat, "'C"},          {"tk3", Type::kFloat, "'C"},
    {"DW", Type::kByte, "код"_w},         {"WP1", Type::kFloat, kPressureUnit},
    {"WP2", Type::kFloat, kPressureUnit}, {"Pk1", Type::kFloat, kPressureUnit},
    {"Pk2", Type::kFloat, kPressureUnit}, {"Pk3", Type::kFloat, kPressureUnit},
    {"KG", Type::kByte, "код"_w},
};
constexpr Column kSystemAfterChannels522[] = {
    {"PS", Type::kByte, "код"_w},
    {"PM", Type::kByte, "код"_w},
};
constexpr auto kSystemBdLayout522 =
    Join<29>({kSystemBeforeChannels522, kFlowChannels, kSystemAfterChannels522});
static_assert(RecordSize(kSystemBdLayout522) == 101 && ConsistsOfItems(kSystemBdLayout522));

constexpr Column kCurrentColumns522[] = {
    {"SP", Type::kByte, "код"_w},        kSituationColumn,
    {"G1", Type::kFloat, "м3/час"_w},    {"G2", Type::kFloat, "м3/час"_w},
    {"G3", Type::kFloat, "м3/час"_w},    {"P1", Type::kFloat, kPressureUnit},
    {"P2", Type::kFloat, kPressureUnit}, {"t1", Type::kFloat, "'C"},
    {"t2", Type::kFloat, "'C"},          {"dt_1_2", Type::kFloat, "'C"},
};
static_assert(RecordSize(kCurrentColumns522) == 37);

constexpr Column kTotalsColumns522[] = {
    {"V1", Type::kFloat, "м3"_w, Role::kAccumulated},
    {"V2", Type::kFloat, "м3"_w, Role::kAccumulated},
    {"V3", Type::kFloat, "м3"_w, Role::kAccumulated},
    {"M1", Type::kFloat, "тонн"_w, Role::kAccumulated},
    {"M2", Type::kFloat, "тонн"_w, Role::kAccumulated},
    {"M3", Type::kFloat, "тонн"_w, Role::kAccumulated},
    {"Q", Type::kFloat, kHeatUnit, Role::kAccumulated},
    {"Tw", Type::kFloat, "Час"_w, Role::kAccumulated},
};
static_assert(RecordSize(kTotalsColumns522) == 32);

constexpr auto kCurrentLayout522 = Join<18>({kCurrentColumns522, kTotalsColumns522});

constexpr Column kArchiveLayout522[] = {
    kDateColumn,
    kSituationColumn,
    {"SP", Type::kByte, "Код Реж"_w},
    {"P1", Type::kFloat, kPressureUnit},
    {"P2", Type::kFloat, kPressureUnit},
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
static_assert(std::size(kArchiveLayout522) == 15 && RecordSize(kArchiveLayout522) == 60);

// --- Where it stands in the instrument ---

constexpr DatabaseSection kSystemDatabase522 = {
    .block = {kSystemBdLayout522, ReadTextRows, "Flash522", "BD", {8, 16}},  // flash pages
    .start = nullptr,
    .startName = "BD",
};

constexpr Block kOperative522[] = {
    {kCurrentColumns522, ReadMemoryBlock, "PoitkaReadTek", "Tek", {0x0200, 0x0300}},
    {kTotalsColumns522, ReadMemoryBlock, "PoitkaReadTot", "Tot", {0x0280, 0x0380}},
};

constexpr ArchiveRecord kArchive522 = {kArchiveLayout522, 64, ConvertByColumns};

}  // namespace

constexpr Model kModel522 = {
    .type = TypeCode::k522,
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
    .systemDatabase = &kSystemDatabase522,
    .start = nullptr,
    .operative = {.layout = kCurrentLayout522,
                  .blocks = kOperative522,
                  .startName = "Oper",
                  .continuousTitle = ""},
    .archives = {{kArchive522, "Hoyr"}, {kArchive522, "Dey"}, {kArchive522, "Mon"}},
    .tellsArchives = true,
    .logs = nullptr,
    .keepSettings = KeepUnitsCode,
    .units = UnitsByCode,
};
static_assert(FitsTheReader(kModel522));

}  // namespace older
