// The words of the tables: what the names mean.
#include <algorithm>

#include "host/fields/layout.h"

namespace host {
namespace {

constexpr Name kNames[] = {
    {"time", Quantity::kTime},
    {"sp", Quantity::kModeCode},
    {"ns", Quantity::kSituationCode},
    {"ds", Quantity::kDiagnosticCode},
    {"flag", Quantity::kFlag, Pipe::kNone, "Флаг of the instrument"},
    {"change", Quantity::kText, Pipe::kNone, "what was changed"},
    {"event", Quantity::kText, Pipe::kNone, "what happened"},

    {"t1", Quantity::kTemperature, Pipe::kSupply},
    {"t2", Quantity::kTemperature, Pipe::kReturn},
    {"t3", Quantity::kTemperature, Pipe::kThird},
    {"t4", Quantity::kTemperature, Pipe::kFourth},
    {"dt", Quantity::kTemperatureDifference, Pipe::kNone, "supply less return"},
    {"t_cold", Quantity::kTemperature, Pipe::kColdWater},
    {"t_air", Quantity::kTemperature, Pipe::kAir},
    {"p1", Quantity::kPressure, Pipe::kSupply},
    {"p2", Quantity::kPressure, Pipe::kReturn},
    {"p3", Quantity::kPressure, Pipe::kThird},
    {"p4", Quantity::kPressure, Pipe::kFourth},
    {"p_cold", Quantity::kPressure, Pipe::kColdWater},
    {"g1", Quantity::kVolumeFlow, Pipe::kSupply},
    {"g2", Quantity::kVolumeFlow, Pipe::kReturn},
    {"g3", Quantity::kVolumeFlow, Pipe::kThird},
    {"gm1", Quantity::kMassFlow, Pipe::kSupply},
    {"gm2", Quantity::kMassFlow, Pipe::kReturn},
    {"gm3", Quantity::kMassFlow, Pipe::kThird},
    {"v1", Quantity::kVolume, Pipe::kSupply},
    {"v2", Quantity::kVolume, Pipe::kReturn},
    {"v3", Quantity::kVolume, Pipe::kThird},
    {"m1", Quantity::kMass, Pipe::kSupply},
    {"m2", Quantity::kMass, Pipe::kReturn},
    {"m3", Quantity::kMass, Pipe::kThird},
    {"q", Quantity::kHeat},
    {"q_hot_water", Quantity::kHeat, Pipe::kHotWater},

    {"tw", Quantity::kWorkingTime},
    {"ti", Quantity::kDuration, Pipe::kNone, "Tи of the instrument"},
    {"tns", Quantity::kSituationTime, Pipe::kNone, "any situation"},
    {"tmin", Quantity::kSituationTime, Pipe::kNone, "flow below its minimum"},
    {"tmax", Quantity::kSituationTime, Pipe::kNone, "flow above its maximum"},
    {"ttd", Quantity::kSituationTime, Pipe::kNone, "temperature difference too small"},
    {"tep", Quantity::kSituationTime, Pipe::kNone, "power supply (эп)"},
    {"tf", Quantity::kSituationTime, Pipe::kNone, "failure (ф)"},
    {"tc1", Quantity::kSituationTime, Pipe::kNone, "situation 1"},
    {"tc2", Quantity::kSituationTime, Pipe::kNone, "situation 2"},
    {"tc3", Quantity::kSituationTime, Pipe::kNone, "situation 3"},
    {"tc4", Quantity::kSituationTime, Pipe::kNone, "situation 4"},
    {"tc5", Quantity::kSituationTime, Pipe::kNone, "situation 5"},
    {"tc6", Quantity::kSituationTime, Pipe::kNone, "situation 6"},
    {"tc7", Quantity::kSituationTime, Pipe::kNone, "situation 7"},
    {"tc8", Quantity::kSituationTime, Pipe::kNone, "situation 8"},
    {"tc9", Quantity::kSituationTime, Pipe::kNone, "situation 9"},
    {"tc10", Quantity::kSituationTime, Pipe::kNone, "situation 10"},
    {"tc11", Quantity::kSituationTime, Pipe::kNone, "situation 11"},
    {"tc12", Quantity::kSituationTime, Pipe::kNone, "situation 12"},
    {"tc13", Quantity::kSituationTime, Pipe::kNone, "situation 13"},
    {"tc14", Quantity::kSituationTime, Pipe::kNone, "situation 14"},
    {"tc15", Quantity::kSituationTime, Pipe::kNone, "situation 15"},
    {"tc16", Quantity::kSituationTime, Pipe::kNone, "situation 16"},

    // A gas corrector's, whose volumes must never be taken for those of water.
    {"gas_p1", Quantity::kPressure, Pipe::kGas1},
    {"gas_p2", Quantity::kPressure, Pipe::kGas2},
    {"gas_p3", Quantity::kPressure, Pipe::kGas3},
    {"gas_p4", Quantity::kPressure, Pipe::kGas4},
    {"gas_dp1", Quantity::kPressureDifference, Pipe::kGas1},
    {"gas_dp2", Quantity::kPressureDifference, Pipe::kGas2},
    {"gas_dp3", Quantity::kPressureDifference, Pipe::kGas3},
    {"p_air", Quantity::kPressure, Pipe::kAir, "barometric"},
    {"gas_t1", Quantity::kTemperature, Pipe::kGas1},
    {"gas_t2", Quantity::kTemperature, Pipe::kGas2},
    {"gas_t3", Quantity::kTemperature, Pipe::kGas3},
    {"gas_qp1", Quantity::kWorkingVolumeFlow, Pipe::kGas1},
    {"gas_qp2", Quantity::kWorkingVolumeFlow, Pipe::kGas2},
    {"gas_q1", Quantity::kVolumeFlow, Pipe::kGas1, "at standard conditions"},
    {"gas_q2", Quantity::kVolumeFlow, Pipe::kGas2, "at standard conditions"},
    {"gas_vp1", Quantity::kWorkingVolume, Pipe::kGas1},
    {"gas_vp2", Quantity::kWorkingVolume, Pipe::kGas2},
    {"gas_v1", Quantity::kVolume, Pipe::kGas1, "at standard conditions"},
    {"gas_v2", Quantity::kVolume, Pipe::kGas2, "at standard conditions"},
    {"gas_v", Quantity::kVolume, Pipe::kNone, "at standard conditions, V of the instrument"},
    {"gas_vsn", Quantity::kVolume, Pipe::kNone, "Vsn of the instrument"},
    {"gas_vp", Quantity::kVolume, Pipe::kNone, "Vп of the instrument, not a working volume Vр"},
    {"tc", Quantity::kDuration, Pipe::kNone, "ТС of the instrument"},

    // Settings.
    {"tk1", Quantity::kTemperature, Pipe::kSupply, "constant"},
    {"tk2", Quantity::kTemperature, Pipe::kReturn, "constant"},
    {"tk3", Quantity::kTemperature, Pipe::kThird, "constant"},
    {"tk_cold", Quantity::kTemperature, Pipe::kColdWater, "constant"},
    {"pk1", Quantity::kPressure, Pipe::kSupply, "constant"},
    {"pk2", Quantity::kPressure, Pipe::kReturn, "constant"},
    {"pk3", Quantity::kPressure, Pipe::kThird, "constant"},
    {"pk_cold", Quantity::kPressure, Pipe::kColdWater, "constant"},
    {"wp1", Quantity::kPressure, Pipe::kSupply, "ВП1 of the instrument"},
    {"wp2", Quantity::kPressure, Pipe::kReturn, "ВП2 of the instrument"},
    {"wp3", Quantity::kPressure, Pipe::kThird, "ВП3 of the instrument"},
    {"c1", Quantity::kSetting, Pipe::kSupply, "pulse weight"},
    {"c2", Quantity::kSetting, Pipe::kReturn, "pulse weight"},
    {"c3", Quantity::kSetting, Pipe::kThird, "pulse weight"},
    {"gw1", Quantity::kMassFlow, Pipe::kSupply, "upper limit"},
    {"gw2", Quantity::kMassFlow, Pipe::kReturn, "upper limit"},
    {"gw3", Quantity::kMassFlow, Pipe::kThird, "upper limit"},
    {"gn1", Quantity::kMassFlow, Pipe::kSupply, "lower limit"},
    {"gn2", Quantity::kMassFlow, Pipe::kReturn, "lower limit"},
    {"gn3", Quantity::kMassFlow, Pipe::kThird, "lower limit"},
    {"gk1", Quantity::kMassFlow, Pipe::kSupply, "constant"},
    {"gk2", Quantity::kMassFlow, Pipe::kReturn, "constant"},
    {"gk3", Quantity::kMassFlow, Pipe::kThird, "constant"},
    {"mk", Quantity::kMassFlow, Pipe::kNone, "constant"},
    {"qk", Quantity::kHeat, Pipe::kNone, "constant"},
    {"yb", Quantity::kTemperature, Pipe::kNone, "upper set point"},
    {"yh", Quantity::kTemperature, Pipe::kNone, "lower set point"},
    {"ei", Quantity::kSetting, Pipe::kNone, "units of pressure and heat"},
    {"ei_p", Quantity::kSetting, Pipe::kNone, "unit of pressure"},
    {"ei_q", Quantity::kSetting, Pipe::kNone, "unit of heat"},
    {"input_code", Quantity::kSetting, Pipe::kNone, "Код ввода"},
    {"serial", Quantity::kSetting, Pipe::kNone, "number of the instrument"},
    {"ts", Quantity::kSetting, Pipe::kNone, "type of thermometers"},
    {"to_time", Quantity::kTimeOfDay},
    {"tmn_time", Quantity::kTimeOfDay},
    {"tmk_time", Quantity::kTimeOfDay},
    {"do_date", Quantity::kDate},
    {"dl_date", Quantity::kDate, Pipe::kNone, "a day of the year"},
    {"ds_date", Quantity::kDate, Pipe::kNone, "a day of the year"},
    {"summer_date", Quantity::kDate, Pipe::kNone, "a day of the year"},
    {"winter_date", Quantity::kDate, Pipe::kNone, "a day of the year"},
    {"pi", Quantity::kDuration},
    {"gas_p1k", Quantity::kPressure, Pipe::kGas1, "constant"},
    {"gas_p2k", Quantity::kPressure, Pipe::kGas2, "constant"},
    {"gas_dp1k", Quantity::kPressureDifference, Pipe::kGas1, "constant"},
    {"gas_dp2k", Quantity::kPressureDifference, Pipe::kGas2, "constant"},
    {"gas_t1k", Quantity::kTemperature, Pipe::kGas1, "constant"},
    {"gas_t2k", Quantity::kTemperature, Pipe::kGas2, "constant"},
    {"gas_qp1k", Quantity::kWorkingVolumeFlow, Pipe::kGas1, "constant"},
    {"gas_qp2k", Quantity::kWorkingVolumeFlow, Pipe::kGas2, "constant"},
};

constexpr ModelNames kModels[] = {
    {Model::k521, "521", "УРМ521"},      {Model::k522, "522", "УРМ522"},
    {Model::k523, "523", "УРМ523"},      {Model::k521x, "521.1x", "УРМ521"},
    {Model::k721, "721", "ДКГ721"},      {Model::kK7521, "k7-521", "УРМ521"},
    {Model::kK7523, "k7-523", "УРМ523"},
};

constexpr ContentNames kContents[] = {
    {Content::kDatabase, "database", tav::TitleKind::kDatabase},
    {Content::kSystemDatabase, "system database", tav::TitleKind::kDatabase},
    {Content::kCurrent, "current", tav::TitleKind::kCurrent},
    {Content::kTotals, "totals", tav::TitleKind::kCurrent},
    {Content::kHours, "hours", tav::TitleKind::kHourly},
    {Content::kDays, "days", tav::TitleKind::kDaily},
    {Content::kMonths, "months", tav::TitleKind::kMonthly},
    {Content::kControl, "control", tav::TitleKind::kDaily},
    {Content::kChanges, "changes", tav::TitleKind::kLog},
    {Content::kSituations, "situations", tav::TitleKind::kLog},
    {Content::kEvents, "events", tav::TitleKind::kLog},
};

}  // namespace

Name FindName(std::string_view base) {
  const auto* name = std::find_if(std::begin(kNames), std::end(kNames),
                                  [base](const Name& each) { return base == each.base; });
  return name == std::end(kNames) ? Name{"", Quantity::kSetting} : *name;
}

std::span<const ModelNames> AllModels() { return kModels; }

const ModelNames& NamesOf(Model model) { return kModels[static_cast<std::size_t>(model)]; }

const ContentNames& NamesOf(Content content) {
  return kContents[static_cast<std::size_t>(content)];
}

}  // namespace host
