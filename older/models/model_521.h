// Heat meter 521: one heat system, a binary database, archive records whose volumes and masses
// stand where the mode code says.
#pragma once

#include "older/models/columns.h"
#include "older/models/model.h"

namespace older {

// --- Layouts ---

inline constexpr Column kSituationColumn521 = {"NS",         Type::kByte, "Код НС"_w,
                                               Role::kValue, "НС"_w,      "kns0"};

inline constexpr auto kArchiveColumns521 =
    Table(kDateColumn, kModeColumn, kTemperatures, kVolumesAndMasses, kHeatColumn);

inline constexpr auto kHourLayout521 = Table(kArchiveColumns521, kSituationColumn521);
static_assert(std::size(kHourLayout521) == 12 && RecordSize(kHourLayout521) == 45);

// Days and months alike.
inline constexpr auto kDayLayout521 = Table(kArchiveColumns521, kTimeColumn);
static_assert(std::size(kDayLayout521) == 12 && RecordSize(kDayLayout521) == 48);

inline constexpr Column kBdLayout521[] = {
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
inline constexpr Column kMasses521[] = {
    {"M1", Type::kFloat, "м3"_w},
    {"M2", Type::kFloat, "м3"_w},
    {"M3", Type::kFloat, "м3"_w},
};
inline constexpr Column kFlows521[] = {
    {"G1", Type::kFloat, "т/ч"_w},
    {"G2", Type::kFloat, "т/ч"_w},
};
inline constexpr auto kOperLayout521 = Table(kSituationColumn521, kVolumes, kMasses521, kHeatColumn,
                                             kTimeColumn, kTemperatures, kFlows521);
static_assert(std::size(kOperLayout521) == 13 && RecordSize(kOperLayout521) == 49);

// --- What only this model does ---

// Firmware whose version begins with w measures in SI units.
ChosenUnits Units521(const TKSplImpl& reader, int system);

// Two flash pages of floats and dates, from page 0 on.
inline constexpr std::size_t kDatabasePages521 = 2;
using DatabasePages521 = std::array<std::uint8_t, kDatabasePages521 * kFlashPageSize>;
// versionIndex: byte 5 of the identification.
void ConvertDatabase521(const DatabasePages521& pages, std::uint8_t versionIndex,
                        std::span<std::uint8_t> record);
ReadResult ReadDatabase521(TKSplImpl& reader, const Block& block, int system,
                           std::span<std::uint8_t> record);
// Two pieces of memory: floats from the columns V1 and G1 on.
inline constexpr std::uint16_t kOperativeAddress521 = 195;
inline constexpr std::size_t kOperativeFloats521 = 10;
inline constexpr std::uint16_t kFlowsAddress521 = 328;
inline constexpr std::size_t kFlowFloats521 = 2;
ReadResult ReadOperative521(TKSplImpl& reader, const Block& block, int system,
                            std::span<std::uint8_t> record);
void ConvertHour521(Columns columns, std::span<const std::uint8_t> reply,
                    std::span<std::uint8_t> record);
void ConvertDay521(Columns columns, std::span<const std::uint8_t> reply,
                   std::span<std::uint8_t> record);

// --- The model ---

inline constexpr const char* kVersions521[] = {
    "X.X.0", "X.X.7", "vX.X.9", "vX.2.10", "vX.2.11", "vX.2.12", "vX.2.13", "vX.2.14",
    nullptr, nullptr, "wX.X.9", "wX.2.10", "wX.2.11", "wX.2.12", "wX.2.13", "wX.2.14",
};

inline constexpr Block kOperative521[] = {
    {kOperLayout521, ReadOperative521, "PoitkaReadTek", "Op"},
};
inline constexpr ArchiveRecord kHourRecord521 = {kHourLayout521, 32, ConvertHour521, false};
inline constexpr ArchiveRecord kDayRecord521 = {kDayLayout521, 64, ConvertDay521, false};

inline constexpr Model kModel521 = {
    .identity = {'T', 0x29, "УРМ521"_w, "urm521", 100, kVersions521},
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
    .number = FieldOf(kBdLayout521, "ID"),
    .mode = FieldOf(kBdLayout521, "SP"),
    .start = "Start Read",
    .operative = {.layout = kOperLayout521,
                  .blocks = kOperative521,
                  .startName = "Oper ОВ"_w,
                  .continuousTitle = "ОВ"_w},
    .archives = {{kHourRecord521, "Hour ОВ"_w},
                 {kDayRecord521, "Dey ОВ"_w},
                 {kDayRecord521, "Month ОВ"_w}},
    .keepSettings = nullptr,
    .units = Units521,
};

}  // namespace older
