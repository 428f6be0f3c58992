// Runs of columns that models of the older protocol share, and what their units are wrong about.
#pragma once

#include "host/fields/layout.h"

namespace host::older {

using tav::Role;
using tav::Type;

inline constexpr char kPressures[] = "кг/см2|МПа|бар";
inline constexpr char kHeats[] = "ГКал|ГДж|МВт";

// --- What the driver's units are wrong about ---

inline constexpr Truth kThermometers = {
    .source = Source::kFixed, .unit = Unit::kNone, .reason = "a type, as the 521 and 522 say"};
inline constexpr Truth kAsWritten = {.source = Source::kAsWritten,
                                     .reason = "what is counted is not known"};

// --- Runs that several models share ---

inline constexpr Entry kSituation[] = {{"NS", Type::kInt32, "Код НС", "ns", "НС"}};
inline constexpr Entry kSituationByte[] = {{"NS", Type::kByte, "Код НС", "ns", "НС"}};
inline constexpr Entry kArchiveMode[] = {{"SP", Type::kByte, "Код Реж", "sp"}};
inline constexpr Entry kMode[] = {{"SP", Type::kByte, "код", "sp"}};
inline constexpr Entry kCaptionedMode[] = {{"SP", Type::kByte, "код", "sp", "СП"}};

inline constexpr Entry kTwoTemperatures[] = {
    {"t1", Type::kFloat, "'C", "t1"},
    {"t2", Type::kFloat, "'C", "t2"},
};
inline constexpr Entry kTwoPressures[] = {
    {"P1", Type::kFloat, kPressures, "p1"},
    {"P2", Type::kFloat, kPressures, "p2"},
};
inline constexpr Entry kFlows[] = {
    {"G1", Type::kFloat, "м3/час", "g1"},
    {"G2", Type::kFloat, "м3/час", "g2"},
    {"G3", Type::kFloat, "м3/час", "g3"},
};
inline constexpr Entry kDifference[] = {{"dt_1_2", Type::kFloat, "'C", "dt"}};
inline constexpr Entry kCaptionedDifference[] = {{"dt_1_2", Type::kFloat, "'C", "dt", "dt"}};

inline constexpr Entry kVolumes[] = {
    {"V1", Type::kFloat, "м3", "v1"},
    {"V2", Type::kFloat, "м3", "v2"},
    {"V3", Type::kFloat, "м3", "v3"},
};
inline constexpr Entry kMasses[] = {
    {"M1", Type::kFloat, "тонн", "m1"},
    {"M2", Type::kFloat, "тонн", "m2"},
    {"M3", Type::kFloat, "тонн", "m3"},
};
inline constexpr Entry kHeat[] = {{"Q", Type::kFloat, kHeats, "q"}};
inline constexpr Entry kWorkingTime[] = {{"Tw", Type::kFloat, "Час", "tw"}};
inline constexpr Entry kCaptionedWorkingTime[] = {{"Tw", Type::kFloat, "Час", "tw", "Tр"}};

inline constexpr Entry kFlowChannels[] = {
    {"C1", Type::kFloat, "имп", "c1"},     {"Gw1", Type::kFloat, "т/час", "gw1"},
    {"Gn1", Type::kFloat, "т/час", "gn1"}, {"Gk1", Type::kFloat, "т/час", "gk1"},
    {"C2", Type::kFloat, "имп", "c2"},     {"Gw2", Type::kFloat, "т/час", "gw2"},
    {"Gn2", Type::kFloat, "т/час", "gn2"}, {"Gk2", Type::kFloat, "т/час", "gk2"},
    {"C3", Type::kFloat, "имп", "c3"},     {"Gw3", Type::kFloat, "т/час", "gw3"},
    {"Gn3", Type::kFloat, "т/час", "gn3"}, {"Gk3", Type::kFloat, "т/час", "gk3"},
};
inline constexpr Entry kConstants[] = {
    {"AM", Type::kByte, "код", "am"},         {"Mk", Type::kFloat, "т/час", "mk"},
    {"HM", Type::kFloat, "коэф", "hm"},       {"AQ", Type::kByte, "код", "aq"},
    {"Qk", Type::kFloat, kHeats, "qk", "Qк"},
};
inline constexpr Entry kPrinting[] = {
    {"PS", Type::kByte, "код", "ps"},
    {"PM", Type::kByte, "код", "pm"},
};
inline constexpr Entry kSystemPressures[] = {
    {"DW", Type::kByte, "код", "dw"},         {"WP1", Type::kFloat, kPressures, "wp1"},
    {"WP2", Type::kFloat, kPressures, "wp2"}, {"Pk1", Type::kFloat, kPressures, "pk1"},
    {"Pk2", Type::kFloat, kPressures, "pk2"}, {"Pk3", Type::kFloat, kPressures, "pk3"},
    {"KG", Type::kByte, "код", "kg"},
};
inline constexpr Entry kSystemTemperatures[] = {
    {"tk1", Type::kFloat, "'C", "tk1"},
    {"tk2", Type::kFloat, "'C", "tk2"},
    {"tk3", Type::kFloat, "'C", "tk3"},
};
inline constexpr Entry kModeAndInput[] = {
    {"SP", Type::kByte, "код", "sp"},
    {"KW", Type::kInt32, "номер", "input_code"},
};

// --- Logs ---

inline constexpr Entry kChange[] = {{"ISM", Type::kChars, "код", "change", "ИЗМ"}};
inline constexpr Entry kFlag[] = {{"Flag", Type::kByte, "код", "flag", "Флаг"}};

inline constexpr ColumnRun kChangeLog[] = {{kRecordTime, Role::kKey}, {kChange}};
inline constexpr ColumnRun kSituationLog[] = {{kRecordTime, Role::kKey}, {kSituationByte}, {kFlag}};

}  // namespace host::older
