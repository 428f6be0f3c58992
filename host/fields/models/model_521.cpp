// Heat meter 521.
#include "host/fields/models/older_runs.h"

namespace host {
namespace {

using namespace older;

constexpr Truth kTonnes = {.source = Source::kFixed,
                           .unit = Unit::kTonne,
                           .reason = "a mass, in tonnes as in the archives"};
// The version of the firmware says which of the two it is.
constexpr char kPressures521[] = "кг/см2|МПа";
constexpr Entry kHeat521[] = {{"Q", Type::kFloat, "ГКал|ГДж", "q"}};

constexpr Entry kDatabase521[] = {
    {"SP", Type::kFloat, "Код Реж", "sp"},       {"TC", Type::kFloat, "Тип ТС", "ts"},
    {"C1", Type::kFloat, "имп", "c1"},           {"C2", Type::kFloat, "имп", "c2"},
    {"tx", Type::kFloat, "'C", "tk_cold"},       {"t3", Type::kFloat, "'C", "tk3"},
    {"P1", Type::kFloat, kPressures521, "pk1"},  {"P2", Type::kFloat, kPressures521, "pk2"},
    {"P3", Type::kFloat, kPressures521, "pk3"},  {"KTh", Type::kFloat, "коэф", "kth"},
    {"r1", Type::kFloat, "коэф", "r1"},          {"r2", Type::kFloat, "коэф", "r2"},
    {"w1", Type::kFloat, "коэф", "w1"},          {"w2", Type::kFloat, "коэф", "w2"},
    {"TO", Type::kDateTime, "hh.mm", "to_time"}, {"DO", Type::kDateTime, "D.M.Y", "do_date"},
    {"DL", Type::kDateTime, "D.M", "dl_date"},   {"DS", Type::kDateTime, "D:M", "ds_date"},
    {"NT", Type::kFloat, "номер", "nt"},         {"ID", Type::kFloat, "номер", "serial"},
};
constexpr Entry kMassesUnderCubicMetres[] = {
    {"M1", Type::kFloat, "м3", "m1", nullptr, kTonnes},
    {"M2", Type::kFloat, "м3", "m2", nullptr, kTonnes},
    {"M3", Type::kFloat, "м3", "m3", nullptr, kTonnes},
};
constexpr Entry kMassFlows521[] = {
    {"G1", Type::kFloat, "т/ч", "gm1"},
    {"G2", Type::kFloat, "т/ч", "gm2"},
};

constexpr ColumnRun kDatabaseRuns521[] = {{kDatabase521}};
// Counted since the meter began, like the totals of the other models.
constexpr ColumnRun kCurrentRuns521[] = {
    {kSituationByte},
    {kVolumes, Role::kValue, Span::kTotal},
    {kMassesUnderCubicMetres, Role::kValue, Span::kTotal},
    {kHeat521, Role::kValue, Span::kTotal},
    {kWorkingTime, Role::kValue, Span::kTotal},
    {kTwoTemperatures},
    {kMassFlows521},
};
constexpr ColumnRun kHourRuns521[] = {
    {kRecordTime, Role::kKey},
    {kArchiveMode},
    {kTwoTemperatures},
    {kVolumes, Role::kValue, Span::kInterval},
    {kMasses, Role::kValue, Span::kInterval},
    {kHeat521, Role::kValue, Span::kInterval},
    {kSituationByte},
};
constexpr ColumnRun kDayRuns521[] = {
    {kRecordTime, Role::kKey},
    {kArchiveMode},
    {kTwoTemperatures},
    {kVolumes, Role::kValue, Span::kInterval},
    {kMasses, Role::kValue, Span::kInterval},
    {kHeat521, Role::kValue, Span::kInterval},
    {kWorkingTime, Role::kValue, Span::kInterval},
};

constexpr Layout kLayouts[] = {
    {Model::k521, Content::kDatabase, kDatabaseRuns521},
    {Model::k521, Content::kCurrent, kCurrentRuns521},
    {Model::k521, Content::kHours, kHourRuns521},
    {Model::k521, Content::kDays, kDayRuns521},
    {Model::k521, Content::kMonths, kDayRuns521},
};

}  // namespace

std::span<const Layout> Layouts521() { return kLayouts; }

}  // namespace host
