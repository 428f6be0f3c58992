// Heat meter 521 of the K7 generation.
#include "host/fields/models/k7_parameters_521.h"
#include "host/fields/models/k7_runs.h"

namespace host {
namespace {

using namespace k7;

constexpr Entry kMassFlows[] = {
    {"Gм1", Type::kFloat, "т/час", "gm1"},
    {"Gм2", Type::kFloat, "т/час", "gm2"},
    {"Gм3", Type::kFloat, "т/час", "gm3"},
};
constexpr Entry kTemperature4[] = {{"t4", Type::kFloat, "'C", "t4"}};
constexpr Entry kFurtherPressures[] = {
    {"P3", Type::kFloat, kPressures, "p3"},
    {"Phv", Type::kFloat, kPressures, "p_cold", "Pхв"},
    {"P4", Type::kFloat, kPressures, "p4"},
};
constexpr Entry kTimes[] = {
    {"Ti", Type::kFloat, "Час", "ti", "Tи"},
    {"Tns", Type::kFloat, "Час", "tns", "Tн"},
    {"Tw", Type::kFloat, "Час", "tw", "Tш"},
};
constexpr Entry kCounters[] = {
    {"TC1", Type::kFloat, "Час", "tc1", "СТ1"},    {"TC2", Type::kFloat, "Час", "tc2", "СТ2"},
    {"TC3", Type::kFloat, "Час", "tc3", "СТ3"},    {"TC4", Type::kFloat, "Час", "tc4", "СТ4"},
    {"TC5", Type::kFloat, "Час", "tc5", "СТ5"},    {"TC6", Type::kFloat, "Час", "tc6", "СТ6"},
    {"TC7", Type::kFloat, "Час", "tc7", "СТ7"},    {"TC8", Type::kFloat, "Час", "tc8", "СТ8"},
    {"TC9", Type::kFloat, "Час", "tc9", "СТ9"},    {"TC10", Type::kFloat, "Час", "tc10", "СТ10"},
    {"TC11", Type::kFloat, "Час", "tc11", "СТ11"}, {"TC12", Type::kFloat, "Час", "tc12", "СТ12"},
    {"TC13", Type::kFloat, "Час", "tc13", "СТ13"}, {"TC14", Type::kFloat, "Час", "tc14", "СТ14"},
    {"TC15", Type::kFloat, "Час", "tc15", "СТ15"}, {"TC16", Type::kFloat, "Час", "tc16", "СТ16"},
};
constexpr auto kDatabase = Texts(kParameters521);

constexpr ColumnRun kDatabaseRuns[] = {{kDatabase}};
constexpr ColumnRun kCurrentRuns[] = {
    {kState},        {kFlows},        {kMassFlows},        {kTemperatures},
    {kTemperature4}, {kTwoPressures}, {kFurtherPressures}, {kCodes},
};
constexpr ColumnRun kTotalsRuns[] = {
    {kAmounts, Role::kAccumulated, Span::kTotal},
    {kTimes, Role::kAccumulated, Span::kTotal},
    {kCounters, Role::kAccumulated, Span::kTotal},
};
constexpr ColumnRun kArchiveRuns[] = {
    {kRecordTime, Role::kKey},
    {kState},
    {kTemperatures},
    {kTemperature4},
    {kTwoPressures},
    {kFurtherPressures},
    {kAmounts, Role::kValue, Span::kInterval, Type::kFloat},
    {kTimes, Role::kValue, Span::kInterval},
    {kCounters, Role::kAccumulated, Span::kInterval},
    {kCodes},
};
// Current values and totals as they stood at the end of a day. Its TC16 is always 0: intended.
constexpr ColumnRun kControlRuns[] = {
    {kRecordTime, Role::kKey},
    {kState},
    {kFlows},
    {kMassFlows},
    {kTemperatures},
    {kTemperature4},
    {kTwoPressures},
    {kFurtherPressures},
    {kAmounts, Role::kAccumulated, Span::kTotal},
    {kTimes, Role::kValue, Span::kTotal},
    {kCounters, Role::kAccumulated, Span::kTotal},
    {kCodes},
};

constexpr Layout kLayouts[] = {
    {Model::kK7521, Content::kDatabase, kDatabaseRuns},
    {Model::kK7521, Content::kCurrent, kCurrentRuns},
    {Model::kK7521, Content::kTotals, kTotalsRuns},
    {Model::kK7521, Content::kHours, kArchiveRuns},
    {Model::kK7521, Content::kDays, kArchiveRuns},
    {Model::kK7521, Content::kMonths, kArchiveRuns},
    {Model::kK7521, Content::kControl, kControlRuns},
    {Model::kK7521, Content::kChanges, kChangeLog},
    {Model::kK7521, Content::kEvents, kEventLog},
};

}  // namespace

std::span<const Layout> LayoutsK7521() { return kLayouts; }

}  // namespace host
