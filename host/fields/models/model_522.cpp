// Heat meter 522.
#include "host/fields/models/older_runs.h"

namespace host {
namespace {

using namespace older;

constexpr Entry kDatabase522[] = {
    {"EI", Type::kByte, "код", "ei"},
    {"PI", Type::kInt16, "сек", "pi"},
    {"TO", Type::kDateTime, "h.m.s", "to_time"},
    {"DO", Type::kDateTime, "D.M.Y", "do_date"},
    {"KTh", Type::kFloat, "коэф", "kth"},
    {"DR", Type::kByte, "сутки", "dr", nullptr, kAsWritten},
    {"TR", Type::kByte, "час", "tr", nullptr, kAsWritten},
    {"DL", Type::kDateTime, "D.M", "dl_date"},
    {"DS", Type::kDateTime, "D.M", "ds_date"},
    {"NT", Type::kByte, "номер", "nt"},
    {"ID", Type::kChars, "номер", "serial"},
};
constexpr Entry kColdWater522[] = {
    {"tx", Type::kFloat, "'C", "tk_cold"},
    {"Px", Type::kFloat, kPressures, "pk_cold"},
    {"TC", Type::kFloat, "код", "ts"},
};

constexpr ColumnRun kDatabaseRuns522[] = {{kDatabase522}};
constexpr ColumnRun kSystemRuns522[] = {
    {kModeAndInput},    {kColdWater522}, {kSystemTemperatures},
    {kSystemPressures}, {kFlowChannels}, {kPrinting},
};
constexpr ColumnRun kCurrentRuns522[] = {
    {kMode},
    {kSituation},
    {kFlows},
    {kTwoPressures},
    {kTwoTemperatures},
    {kDifference},
    {kVolumes, Role::kAccumulated, Span::kTotal},
    {kMasses, Role::kAccumulated, Span::kTotal},
    {kHeat, Role::kAccumulated, Span::kTotal},
    {kWorkingTime, Role::kAccumulated, Span::kTotal},
};
constexpr ColumnRun kArchiveRuns522[] = {
    {kRecordTime, Role::kKey},
    {kSituation},
    {kArchiveMode},
    {kTwoPressures},
    {kTwoTemperatures},
    {kVolumes, Role::kValue, Span::kInterval},
    {kMasses, Role::kValue, Span::kInterval},
    {kHeat, Role::kValue, Span::kInterval},
    {kWorkingTime, Role::kValue, Span::kInterval},
};

constexpr Layout kLayouts[] = {
    {Model::k522, Content::kDatabase, kDatabaseRuns522},
    {Model::k522, Content::kSystemDatabase, kSystemRuns522},
    {Model::k522, Content::kCurrent, kCurrentRuns522},
    {Model::k522, Content::kHours, kArchiveRuns522},
    {Model::k522, Content::kDays, kArchiveRuns522},
    {Model::k522, Content::kMonths, kArchiveRuns522},
};

}  // namespace

std::span<const Layout> Layouts522() { return kLayouts; }

}  // namespace host
