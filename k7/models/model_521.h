// Model УРМ521: one heat system.
#pragma once

#include "k7/models/columns.h"
#include "k7/models/database.h"
#include "k7/models/model.h"

namespace k7 {
namespace urm521 {

using namespace common::literals;
using namespace columns;

inline constexpr std::uint16_t kBasicParameters[] = {0x003A, 0x0001, 0x0002, 0x2040, 0x2026};
inline constexpr std::uint8_t kSystemNumbers[] = {0};

inline constexpr Column kMassFlows[] = {
    {"Gм1"_w, Type::kFloat, "т/час"_w},
    {"Gм2"_w, Type::kFloat, "т/час"_w},
    {"Gм3"_w, Type::kFloat, "т/час"_w},
};

inline constexpr Column kTemperature4 = {"t4", Type::kFloat, "'C"};

inline constexpr Column kFurtherPressures[] = {
    {"P3", Type::kFloat, Unit::Chosen(kPressureUnit)},
    {"Phv", Type::kFloat, Unit::Chosen(kPressureUnit), Role::kValue, "Pхв"_w},
    {"P4", Type::kFloat, Unit::Chosen(kPressureUnit)},
};

inline constexpr auto kConditions =
    Table(kTemperatures, kTemperature4, kPressures, kFurtherPressures);

inline constexpr Column kTimes[] = {
    {"Ti", Type::kFloat, "Час"_w, Role::kAccumulated, "Tи"_w},
    {"Tns", Type::kFloat, "Час"_w, Role::kAccumulated, "Tн"_w},
    {"Tw", Type::kFloat, "Час"_w, Role::kAccumulated, "Tш"_w},
};
inline constexpr auto kTimesOfPeriod = WithRole(Role::kValue, kTimes);

// "TC1" to "TC16", how long each situation lasted.
inline constexpr auto kCounterNames = NumberedTexts<16>("TC", 1, 1);
inline constexpr auto kCounterCaptions = NumberedTexts<16>("СТ"_w, 1, 1);
constexpr Column Counter(std::size_t i) {
  return {kCounterNames[i].data(), Type::kFloat, "Час"_w, Role::kAccumulated,
          kCounterCaptions[i].data()};
}
inline constexpr auto kCounters = Generated<16>(Counter);

inline constexpr auto kCurrent = Table(kState, kFlows, kMassFlows, kConditions, kCodes);
static_assert(RecordSize(kCurrent) == 77);

inline constexpr auto kTotals = Table(kQuantities, kTimes, kCounters);
static_assert(RecordSize(kTotals) == 140);

inline constexpr auto kPeriodic =
    Table(kDate, kState, kConditions, WithRole(Role::kValue, kFloatQuantities), kTimesOfPeriod,
          kCounters, kCodes);
static_assert(RecordSize(kPeriodic) == 168);

// The last counter describes four zero bytes, and the codes' columns hold the second and the first
// integer of the instrument's record.
inline constexpr auto kControl = Table(kDate, kState, kFlows, kMassFlows, kConditions, kQuantities,
                                       kTimesOfPeriod, kCounters, kCodes);
static_assert(RecordSize(kControl) == 224);

inline constexpr ParameterBlock kBlocks[] = {
    {0, 10},  {10, 10}, {20, 10}, {30, 10},  {40, 10},  {50, 10}, {60, 10},
    {70, 10}, {80, 10}, {90, 10}, {100, 10}, {150, 10}, {160, 7},
};
inline constexpr const char* kCaptions[] = {
    "СП"_w,    "ЕИ/P"_w, "ЕИ/Q"_w, "ТО"_w,    "ДО"_w,    "РКЧ"_w,   "СР"_w,    "ЧР"_w,    "ПЛ"_w,
    "tхк"_w,   "Pхк"_w,  "ТС"_w,   "ТС1"_w,   "tк1"_w,   "ТС2"_w,   "tк2"_w,   "ТС3"_w,   "tк3"_w,
    "ПД1"_w,   "ВП1"_w,  "Pк1"_w,  "ПД2"_w,   "ВП2"_w,   "Pк2"_w,   "ПД3"_w,   "ВП3"_w,   "Pк3"_w,
    "С1"_w,    "Gв1"_w,  "Gн1"_w,  "Gкв1"_w,  "Gкн1"_w,  "Gотс1"_w, "АGв1"_w,  "АGн1"_w,  "С2"_w,
    "Gв2"_w,   "Gн2"_w,  "Gкв2"_w, "Gкн2"_w,  "Gотс2"_w, "АGв2"_w,  "АGн2"_w,  "С3"_w,    "Gв3"_w,
    "Gн3"_w,   "Gкв3"_w, "Gкн3"_w, "Gотс3"_w, "АGв3"_w,  "АGн3"_w,  "НМ"_w,    "Мк"_w,    "АМк"_w,
    "АrV"_w,   "Qк"_w,   "АQк"_w,  "NT",      "ИД"_w,    "КИ1"_w,   "КИ2"_w,   "КИ3"_w,   "КД1"_w,
    "АКД1"_w,  "КД2"_w,  "АНС"_w,  "АСТ1"_w,  "АСТ2"_w,  "АСТ3"_w,  "АСТ4"_w,  "АСТ5"_w,  "АСТ6"_w,
    "АСТ7"_w,  "АСТ8"_w, "АСТ9"_w, "АСТ10"_w, "АСТ11"_w, "АСТ12"_w, "АСТ13"_w, "АСТ14"_w, "АСТ15"_w,
    "АСТ16"_w, "КТГ"_w,  "tп1"_w,  "tп2"_w,   "tп3"_w,   "tп4"_w,   "tп5"_w,   "tо1"_w,   "tо2"_w,
    "tо3"_w,   "tо4"_w,  "tо5"_w,  "КУ1"_w,   "УВ1"_w,   "УН1"_w,   "КУ2"_w,   "УВ2"_w,   "УН2"_w,
    "КУ3"_w,   "УВ3"_w,  "УН3"_w,  "КУ4"_w,   "УВ4"_w,   "УН4"_w,   "КУ5"_w,   "УВ5"_w,   "УН5"_w,
    "ПС"_w,    "ПМ"_w,   "PLG",    "PPW",     "AT1",     "ОТВ1"_w,  "AT2",     "ОТВ2"_w,  "AT3",
    "ОТВ3"_w,  "AT4",    "ОТВ4"_w, "AT5",     "ОТВ5"_w,  "IP",      "PORT",    "SLG",     "SPW",
    "Tka",
};
inline constexpr auto kDatabase = DatabaseColumns(kBlocks, kCaptions);

}  // namespace urm521

inline constexpr Model kModel521 = {
    .introduction = {.code = 0x2992,
                     .devType = 0x0102,
                     .name = common::kCp1251<"УРМ521">.data(),
                     .basicParameters = urm521::kBasicParameters,
                     .ownHeatUnit = true},
    .systems = urm521::kSystemNumbers,
    .commonDatabase = false,
    .current = {0x0402, urm521::kCurrent},
    .totals = {0x0800, urm521::kTotals},
    .endsFailedRead = false,
    .datedRecords = true,
    .periodic = {urm521::kPeriodic, Closing::kInOrder},
    .control = {urm521::kControl, Closing::kReversed},
    .databases = {{{urm521::kDatabase, urm521::kBlocks}, {}, {}}},
};

}  // namespace k7
