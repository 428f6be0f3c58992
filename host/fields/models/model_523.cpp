// Heat meter 523.
#include "host/fields/models/older_runs.h"

namespace host {
namespace {

using namespace older;

constexpr Truth kColdWaterPressure = {.source = Source::kPressureSetting,
                                      .reason = "a pressure, not a temperature"};
constexpr Entry kDatabase523[] = {
    {"EI", Type::kByte, "код", "ei", "ЕИ"},
    {"TO", Type::kDateTime, "h.m.s", "to_time", "ТО"},
    {"DO", Type::kDateTime, "D.M.Y", "do_date", "ДО"},
    {"DR", Type::kByte, "сутки", "dr", "СР", kAsWritten},
    {"TR", Type::kByte, "час", "tr", "ЧР", kAsWritten},
    {"PL", Type::kByte, "Вкл", "pl", "ПЛ"},
    {"NT", Type::kByte, "номер", "nt"},
    {"ID", Type::kChars, "номер", "serial", "ИД"},
    {"KI", Type::kByte, "конф", "ki", "КИ"},
    {"TMN", Type::kDateTime, "h.m.s", "tmn_time", "ВМН"},
    {"TMK", Type::kDateTime, "h.m.s", "tmk_time", "ВМК"},
    {"txk", Type::kFloat, "'C", "tk_cold", "tхк"},
    {"Pxk", Type::kFloat, "'C", "pk_cold", "Pхк", kColdWaterPressure},
    {"TS", Type::kByte, "час", "ts", "ТС", kThermometers},
    {"KD", Type::kByte, "час", "kd", "КД", kAsWritten},
    {"CH", Type::kByte, "час", "ch", "СН", kAsWritten},
    {"TC3", Type::kByte, "час", "ts3", "ТС3", kThermometers},
    {"KY", Type::kByte, "час", "ky", "КУ", kAsWritten},
    {"HY", Type::kByte, "час", "hy", "НУ", kAsWritten},
    {"YB", Type::kFloat, "'C", "yb", "УВ"},
    {"YH", Type::kFloat, "'C", "yh", "УН"},
};
constexpr Entry kFurtherTemperatures523[] = {
    {"t3", Type::kFloat, "'C", "t3"},
    {"thv", Type::kFloat, "'C", "t_cold", "tх"},
    {"tvoz", Type::kFloat, "'C", "t_air", "tв"},
};
constexpr Entry kArchiveTemperatures523[] = {
    {"t3", Type::kFloat, "'C", "t3"},
    {"thv", Type::kFloat, "'C", "t_cold"},
    {"tvoz", Type::kFloat, "'C", "t_air"},
};
constexpr Entry kHotWater[] = {{"Qgvs", Type::kFloat, kHeats, "q_hot_water"}};
constexpr Entry kCaptionedHotWater[] = {{"Qgvs", Type::kFloat, kHeats, "q_hot_water", "Qгвс"}};

constexpr ColumnRun kDatabaseRuns523[] = {{kDatabase523}};
constexpr ColumnRun kSystemRuns523[] = {
    {kModeAndInput}, {kSystemTemperatures}, {kSystemPressures},
    {kFlowChannels}, {kConstants},          {kPrinting},
};
constexpr ColumnRun kCurrentRuns523[] = {
    {kCaptionedMode},
    {kSituation},
    {kFlows},
    {kTwoPressures},
    {kTwoTemperatures},
    {kCaptionedDifference},
    {kFurtherTemperatures523},
    {kVolumes, Role::kAccumulated, Span::kTotal},
    {kMasses, Role::kAccumulated, Span::kTotal},
    {kHeat, Role::kAccumulated, Span::kTotal},
    {kCaptionedWorkingTime, Role::kAccumulated, Span::kTotal},
    {kCaptionedHotWater, Role::kAccumulated, Span::kTotal},
};
constexpr ColumnRun kArchiveRuns523[] = {
    {kRecordTime, Role::kKey},
    {kSituation},
    {kArchiveMode},
    {kTwoPressures},
    {kTwoTemperatures},
    {kArchiveTemperatures523},
    {kVolumes, Role::kValue, Span::kInterval},
    {kMasses, Role::kValue, Span::kInterval},
    {kHeat, Role::kValue, Span::kInterval},
    {kWorkingTime, Role::kValue, Span::kInterval},
    {kHotWater, Role::kValue, Span::kInterval},
};

constexpr Layout kLayouts[] = {
    {Model::k523, Content::kDatabase, kDatabaseRuns523},
    {Model::k523, Content::kSystemDatabase, kSystemRuns523},
    {Model::k523, Content::kCurrent, kCurrentRuns523},
    {Model::k523, Content::kHours, kArchiveRuns523},
    {Model::k523, Content::kDays, kArchiveRuns523},
    {Model::k523, Content::kMonths, kArchiveRuns523},
    {Model::k523, Content::kChanges, kChangeLog},
    {Model::k523, Content::kSituations, kSituationLog},
};

}  // namespace

std::span<const Layout> Layouts523() { return kLayouts; }

}  // namespace host
