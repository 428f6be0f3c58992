// The columns of the measured values, the archives and the logs. The records that they describe
// are decoded by the same tables.
#pragma once

#include "k7/column_tables.h"

namespace k7 {

// Units that the instrument's settings choose. The heat columns take theirs from the same three
// pressure units: intended.
inline constexpr std::uint8_t kPressureUnit = 0;
inline constexpr std::uint8_t kHeatUnit = 1;

namespace columns {

using namespace common::literals;

inline constexpr ColumnTable<1> kDate = {{
    {"DT", Type::kDateTime, "Дата:время"_w, Role::kKey},
}};

inline constexpr ColumnTable<1> kState = {{
    {"SP", Type::kByte, "код"_w, Role::kValue, "СП"_w},
}};

inline constexpr ColumnTable<3> kFlows = {{
    {"G1", Type::kFloat, "м3/час"_w},
    {"G2", Type::kFloat, "м3/час"_w},
    {"G3", Type::kFloat, "м3/час"_w},
}};

inline constexpr ColumnTable<3> kMassFlows = {{
    {"Gм1"_w, Type::kFloat, "т/час"_w},
    {"Gм2"_w, Type::kFloat, "т/час"_w},
    {"Gм3"_w, Type::kFloat, "т/час"_w},
}};

inline constexpr ColumnTable<5> kTemperatures = {{
    {"t1", Type::kFloat, "'C"},
    {"t2", Type::kFloat, "'C"},
    {"dt_1_2", Type::kFloat, "'C", Role::kValue, "dt"},
    {"t3", Type::kFloat, "'C"},
    {"thv", Type::kFloat, "'C", Role::kValue, "tхв"_w},
}};

inline constexpr ColumnTable<1> kTemperature4 = {{{"t4", Type::kFloat, "'C"}}};

inline constexpr ColumnTable<1> kAirTemperature = {{
    {"tvoz", Type::kFloat, "'C", Role::kValue, "tвоз"_w},
}};

inline constexpr ColumnTable<2> kPressures = {{
    {"P1", Type::kFloat, Unit::Chosen(kPressureUnit)},
    {"P2", Type::kFloat, Unit::Chosen(kPressureUnit)},
}};

inline constexpr ColumnTable<3> kFurtherPressures = {{
    {"P3", Type::kFloat, Unit::Chosen(kPressureUnit)},
    {"Phv", Type::kFloat, Unit::Chosen(kPressureUnit), Role::kValue, "Pхв"_w},
    {"P4", Type::kFloat, Unit::Chosen(kPressureUnit)},
}};

// Volumes, masses and heats as the totals hold them; the periodic archives hold floats.
inline constexpr ColumnTable<8> kQuantities = {{
    {"V1", Type::kDouble, "м3"_w, Role::kAccumulated},
    {"V2", Type::kDouble, "м3"_w, Role::kAccumulated},
    {"V3", Type::kDouble, "м3"_w, Role::kAccumulated},
    {"M1", Type::kDouble, "т"_w, Role::kAccumulated},
    {"M2", Type::kDouble, "т"_w, Role::kAccumulated},
    {"M3", Type::kDouble, "т"_w, Role::kAccumulated},
    {"Q", Type::kDouble, Unit::Chosen(kHeatUnit), Role::kAccumulated, "Q"},
    {"Qgvs", Type::kDouble, Unit::Chosen(kHeatUnit), Role::kAccumulated, "Qгвс"_w},
}};

inline constexpr ColumnTable<3> kTimes521 = {{
    {"Ti", Type::kFloat, "Час"_w, Role::kAccumulated, "Tи"_w},
    {"Tns", Type::kFloat, "Час"_w, Role::kAccumulated, "Tн"_w},
    {"Tw", Type::kFloat, "Час"_w, Role::kAccumulated, "Tш"_w},
}};

inline constexpr ColumnTable<8> kTimes523 = {{
    {"Ti", Type::kFloat, "Час"_w, Role::kAccumulated, "Tи"_w},
    {"Tmin", Type::kFloat, "Час"_w, Role::kAccumulated, "Tmin"},
    {"Tmax", Type::kFloat, "Час"_w, Role::kAccumulated, "Tmax"},
    {"Ttd", Type::kFloat, "Час"_w, Role::kAccumulated, "Tdt"},
    {"Tep", Type::kFloat, "Час"_w, Role::kAccumulated, "Tэп"_w},
    {"Tf", Type::kFloat, "Час"_w, Role::kAccumulated, "Tф"_w},
    {"Tns", Type::kFloat, "Час"_w, Role::kAccumulated, "Tн"_w},
    {"Tw", Type::kFloat, "Час"_w, Role::kAccumulated, "Tш"_w},
}};

inline constexpr auto kCounterNames = NumberedTexts<16>("TC", 1, 1);
inline constexpr auto kCounterCaptions = NumberedTexts<16>("СТ"_w, 1, 1);

// "TC1" to "TC16", the counters of the situations.
template <std::size_t... I>
constexpr ColumnTable<sizeof...(I)> SituationCounters(std::index_sequence<I...>) {
  return {{{kCounterNames[I].data(), Type::kFloat, "Час"_w, Role::kAccumulated,
            kCounterCaptions[I].data()}...}};
}
inline constexpr auto kCounters = SituationCounters(std::make_index_sequence<16>());

// Both carry the caption of the first: intended.
inline constexpr ColumnTable<2> kCodes = {{
    {"NS", Type::kInt32, "Код НС"_w, Role::kValue, "НС"_w, "kns0"},
    {"DS", Type::kInt32, "Код ДС"_w, Role::kValue, "НС"_w, "kns0"},
}};

inline constexpr auto kTemperatures521 = Join(kTemperatures, kTemperature4);
inline constexpr auto kTemperatures523 = Join(kTemperatures, kAirTemperature);
inline constexpr auto kPressures521 = Join(kPressures, kFurtherPressures);

// The entries of a log: when, and what in the instrument's characters.
constexpr ColumnTable<2> Log(const char* caption) {
  return {{
      kDate[0],
      {"ISM", Type::kChars, "код"_w, Role::kValue, caption, nullptr, 50},
  }};
}

}  // namespace columns

inline constexpr auto kCurrent521 =
    Join(columns::kState, columns::kFlows, columns::kMassFlows, columns::kTemperatures521,
         columns::kPressures521, columns::kCodes);
inline constexpr auto kCurrent523 = Join(columns::kState, columns::kFlows, columns::kPressures,
                                         columns::kTemperatures523, columns::kCodes);

inline constexpr auto kTotals521 =
    Join(columns::kQuantities, columns::kTimes521, columns::kCounters);
inline constexpr auto kTotals523 = Join(columns::kQuantities, columns::kTimes523);

inline constexpr auto kArchive521 =
    Join(columns::kDate, columns::kState, columns::kTemperatures521, columns::kPressures521,
         WithRole(Role::kValue, AsFloats(columns::kQuantities)),
         WithRole(Role::kValue, columns::kTimes521), columns::kCounters, columns::kCodes);
// The last counter describes four zero bytes, and the codes' columns hold the second and the first
// integer of the instrument's record.
inline constexpr auto kControl521 =
    Join(columns::kDate, columns::kState, columns::kFlows, columns::kMassFlows,
         columns::kTemperatures521, columns::kPressures521, columns::kQuantities,
         WithRole(Role::kValue, columns::kTimes521), columns::kCounters, columns::kCodes);

inline constexpr auto kArchive523 =
    Join(columns::kDate, columns::kState, columns::kPressures, columns::kTemperatures523,
         WithRole(Role::kValue, AsFloats(columns::kQuantities)),
         WithRole(Role::kValue, columns::kTimes523), columns::kCodes);
inline constexpr auto kControl523 =
    Join(columns::kDate, columns::kState, columns::kPressures, columns::kTemperatures523,
         AsFloats(columns::kQuantities), columns::kTimes523, columns::kCodes);

inline constexpr auto kChangeLog = columns::Log(common::kCp1251<"Изменение">.data());
inline constexpr auto kEventLog = columns::Log(common::kCp1251<"Событие">.data());

static_assert(kCurrent521.size() == 20 && RecordSize(kCurrent521) == 77);
static_assert(kCurrent523.size() == 14 && RecordSize(kCurrent523) == 53);
static_assert(kTotals521.size() == 27 && RecordSize(kTotals521) == 140);
static_assert(kTotals523.size() == 16 && RecordSize(kTotals523) == 96);
static_assert(kArchive521.size() == 42 && RecordSize(kArchive521) == 168);
static_assert(kControl521.size() == 48 && RecordSize(kControl521) == 224);
static_assert(kArchive523.size() == 28 && RecordSize(kArchive523) == 112);
static_assert(kControl523.size() == 28 && RecordSize(kControl523) == 112);
static_assert(RecordSize(kChangeLog) == 57);
static_assert(SameText(columns::kCounters[15].name, "TC16"));

}  // namespace k7
