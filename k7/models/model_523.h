// Model УРМ523: two heat systems and what they share.
#pragma once

#include "k7/models/columns.h"
#include "k7/models/database.h"
#include "k7/models/model.h"

namespace k7 {
namespace urm523 {

using namespace common::literals;
using namespace columns;

inline constexpr std::uint16_t kBasicParameters[] = {0x0007, 0x0000, 0x2040, 0x2026};
inline constexpr std::uint8_t kSystemNumbers[] = {1, 2};

inline constexpr Column kAirTemperature = {"tvoz", Type::kFloat, "'C", Role::kValue, "tвоз"_w};

inline constexpr auto kConditions = Table(kPressures, kTemperatures, kAirTemperature);

inline constexpr Column kTimes[] = {
    {"Ti", Type::kFloat, "Час"_w, Role::kAccumulated, "Tи"_w},
    {"Tmin", Type::kFloat, "Час"_w, Role::kAccumulated, "Tmin"},
    {"Tmax", Type::kFloat, "Час"_w, Role::kAccumulated, "Tmax"},
    {"Ttd", Type::kFloat, "Час"_w, Role::kAccumulated, "Tdt"},
    {"Tep", Type::kFloat, "Час"_w, Role::kAccumulated, "Tэп"_w},
    {"Tf", Type::kFloat, "Час"_w, Role::kAccumulated, "Tф"_w},
    {"Tns", Type::kFloat, "Час"_w, Role::kAccumulated, "Tн"_w},
    {"Tw", Type::kFloat, "Час"_w, Role::kAccumulated, "Tш"_w},
};

inline constexpr auto kCurrent = Table(kState, kFlows, kConditions, kCodes);
static_assert(RecordSize(kCurrent) == 53);

inline constexpr auto kTotals = Table(kQuantities, kTimes);
static_assert(RecordSize(kTotals) == 96);

inline constexpr auto kPeriodic =
    Table(kDate, kState, kConditions, WithRole(Role::kValue, kFloatQuantities),
          WithRole(Role::kValue, kTimes), kCodes);
inline constexpr auto kControl =
    Table(kDate, kState, kConditions, kFloatQuantities, kTimes, kCodes);
static_assert(RecordSize(kPeriodic) == 112 && RecordSize(kControl) == 112);

// There is no parameter 21.
inline constexpr ParameterBlock kCommonBlocks[] = {{0, 10}, {10, 11}, {22, 5}};
// One caption stands there twice and one looks like a slip: intended.
inline constexpr const char* kCommonCaptions[] = {
    "ЕИ"_w,  "ТО"_w,  "ДО"_w,  "СР"_w,  "ЧР"_w,  "ПЛ"_w,   "NT",    "ИД"_w,  "КИ"_w,
    "ВМН"_w, "ВМК"_w, "tхк"_w, "Pхк"_w, "ТС"_w,  "КД"_w,   "СН"_w,  "ТС3"_w, "КУ"_w,
    "НУ"_w,  "УВ"_w,  "УН"_w,  "КУ2"_w, "КУ2"_w, "НУ22"_w, "УВ2"_w, "УН2"_w,
};
inline constexpr auto kCommonDatabase = DatabaseColumns(kCommonBlocks, kCommonCaptions);

inline constexpr ParameterBlock kSystemBlocks[] = {{0, 10}, {10, 10}, {20, 10}, {30, 5}};
inline constexpr const char* kSystemCaptions[] = {
    "СП"_w,  "КВ"_w,  "tк1"_w, "tк2"_w, "tк3"_w, "ДВ"_w,  "ВП1"_w,  "ВП2"_w, "Pк1"_w,
    "Pк2"_w, "Pк3"_w, "КG"_w,  "С1"_w,  "Gв1"_w, "Gн1"_w, "Gк1"_w,  "С2"_w,  "Gв2"_w,
    "Gн2"_w, "Gк2"_w, "С3"_w,  "Gв3"_w, "Gн3"_w, "Gк3"_w, "АМ"_w,   "Мк"_w,  "НМ"_w,
    "АQ"_w,  "Qк"_w,  "ПС"_w,  "ПМ"_w,  "ATmin", "ATmax", "ATэп"_w, "ATф"_w,
};
inline constexpr auto kSystemDatabase = DatabaseColumns(kSystemBlocks, kSystemCaptions);

}  // namespace urm523

inline constexpr Model kModel523 = {
    .introduction = {.code = 0x2B54,
                     .devType = 0x0302,
                     .name = common::kCp1251<"УРМ523">.data(),
                     .basicParameters = urm523::kBasicParameters,
                     .ownHeatUnit = false},
    .systems = urm523::kSystemNumbers,
    .commonDatabase = true,
    .current = {.first = 0x0400, .columns = urm523::kCurrent, .mayBeIdle = true},
    .totals = {0x0800, urm523::kTotals},
    .endsFailedRead = true,
    .datedRecords = false,
    .periodic = {urm523::kPeriodic, Closing::kSpareFloat},
    .control = {urm523::kControl, Closing::kSpareFloat},
    .databases = {{{urm523::kCommonDatabase, urm523::kCommonBlocks},
                   {urm523::kSystemDatabase, urm523::kSystemBlocks},
                   {urm523::kSystemDatabase, urm523::kSystemBlocks}}},
};

}  // namespace k7
