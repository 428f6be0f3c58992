// Heat meter 521 of the 521.1x generation.
#include "host/fields/models/older_runs.h"

namespace host {
namespace {

using namespace older;

constexpr Truth kHeatAsSet = {.source = Source::kHeatSetting,
                              .reason = "the driver says ГКал whatever the setting"};
constexpr Entry kBeforeChannels521x[] = {
    {"EI", Type::kByte, "код", "ei", "ЕИ"},
    {"SP", Type::kByte, "код", "sp"},
    {"TO", Type::kDateTime, "h.m.s", "to_time", "ТО"},
    {"DO", Type::kDateTime, "D.M.Y", "do_date", "ДО"},
    {"DR", Type::kByte, "сутки", "dr", "СР", kAsWritten},
    {"TR", Type::kByte, "час", "tr", "ЧР", kAsWritten},
    {"TS", Type::kByte, "час", "ts", "ТС", kThermometers},
    {"KG", Type::kByte, "код", "kg"},
};
constexpr Entry kPipes521x[] = {
    {"tk1", Type::kFloat, "'C", "tk1"},
    {"Pk1", Type::kFloat, kPressures, "pk1"},
    {"tk2", Type::kFloat, "'C", "tk2"},
    {"Pk2", Type::kFloat, kPressures, "pk2"},
    {"tk3", Type::kFloat, "'C", "tk3"},
    {"Pk3", Type::kFloat, kPressures, "pk3"},
    {"txk", Type::kFloat, "'C", "tk_cold", "tхк"},
    {"Pxk", Type::kFloat, kPressures, "pk_cold", "Pхк"},
};
constexpr Entry kAfterConstants521x[] = {
    {"PL", Type::kByte, "Вкл", "pl", "ПЛ"},
    {"KD", Type::kByte, "час", "kd", "КД", kAsWritten},
    {"NT", Type::kByte, "номер", "nt"},
    {"ID", Type::kChars, "номер", "serial", "ИД"},
    {"KI", Type::kByte, "конф", "ki", "КИ"},
    {"TMN", Type::kDateTime, "h.m.s", "tmn_time", "ВМН"},
    {"TMK", Type::kDateTime, "h.m.s", "tmk_time", "ВМН"},
};
constexpr Entry kArchiveHeat521x[] = {{"Q", Type::kFloat, "ГКал", "q", nullptr, kHeatAsSet}};

constexpr ColumnRun kDatabaseRuns521x[] = {
    {kBeforeChannels521x}, {kFlowChannels},       {kPipes521x},
    {kConstants},          {kAfterConstants521x}, {kPrinting},
};
constexpr ColumnRun kCurrentRuns521x[] = {
    {kCaptionedMode},
    {kSituation},
    {kFlows},
    {kTwoTemperatures},
    {kCaptionedDifference},
    {kVolumes, Role::kAccumulated, Span::kTotal},
    {kMasses, Role::kAccumulated, Span::kTotal},
    {kHeat, Role::kAccumulated, Span::kTotal},
    {kCaptionedWorkingTime, Role::kValue, Span::kTotal},  // another role than its like: intended
};
constexpr ColumnRun kArchiveRuns521x[] = {
    {kRecordTime, Role::kKey},
    {kSituation},
    {kArchiveMode},
    {kTwoTemperatures},
    {kVolumes, Role::kValue, Span::kInterval},
    {kMasses, Role::kValue, Span::kInterval},
    {kArchiveHeat521x, Role::kValue, Span::kInterval},
    {kWorkingTime, Role::kValue, Span::kInterval},
};

constexpr Layout kLayouts[] = {
    {Model::k521x, Content::kDatabase, kDatabaseRuns521x},
    {Model::k521x, Content::kCurrent, kCurrentRuns521x},
    {Model::k521x, Content::kHours, kArchiveRuns521x},
    {Model::k521x, Content::kDays, kArchiveRuns521x},
    {Model::k521x, Content::kMonths, kArchiveRuns521x},
    {Model::k521x, Content::kChanges, kChangeLog},
    {Model::k521x, Content::kSituations, kSituationLog},
};

}  // namespace

std::span<const Layout> Layouts521x() { return kLayouts; }

}  // namespace host
