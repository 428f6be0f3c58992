// Gas corrector 721.
#include "host/fields/models/older_runs.h"

namespace host {
namespace {

using namespace older;

constexpr Truth kNoUnit = {.source = Source::kFixed, .unit = Unit::kNone};
// The unit stands in another column of the database.
consteval Truth TextOf(const char* setting, const char* reason = "") {
  return {.source = Source::kText, .setting = setting, .reason = reason};
}

// No column of the database carries a unit.
constexpr Entry kDatabase721[] = {
    {"SP", Type::kByte, nullptr, "sp", nullptr, kNoUnit},
    {"PI", Type::kInt32, nullptr, "pi"},
    {"NT", Type::kByte, nullptr, "nt", nullptr, kNoUnit},
    {"ID", Type::kChars, nullptr, "serial", nullptr, kNoUnit},
    {"Pk", Type::kFloat, nullptr, "pk"},
    {"rc", Type::kFloat, nullptr, "rc"},
    {"Xa", Type::kFloat, nullptr, "xa"},
    {"Xy", Type::kFloat, nullptr, "xy"},
    {"rb", Type::kFloat, nullptr, "rb"},
    {"DO", Type::kDateTime, nullptr, "do_date", nullptr, kNoUnit},
    {"TO", Type::kDateTime, nullptr, "to_time", nullptr, kNoUnit},
    {"KTime", Type::kFloat, nullptr, "ktime"},
    {"DSommer", Type::kDateTime, nullptr, "summer_date", nullptr, kNoUnit},
    {"DWinter", Type::kDateTime, nullptr, "winter_date", nullptr, kNoUnit},
    {"DR", Type::kInt32, nullptr, "dr"},
    {"HR", Type::kInt32, nullptr, "hr"},
    {"PS", Type::kInt32, nullptr, "ps"},
    {"PD", Type::kInt32, nullptr, "pd"},
    {"PM", Type::kInt32, nullptr, "pm"},
    {"Vd", Type::kFloat, nullptr, "vd"},
    {"ZD", Type::kFloat, nullptr, "zd"},
    {"P1k", Type::kFloat, nullptr, "gas_p1k", nullptr, TextOf("rp1k")},
    {"dP1k", Type::kFloat, nullptr, "gas_dp1k", nullptr, TextOf("rdp1k")},
    {"t1k", Type::kFloat, nullptr, "gas_t1k", nullptr, TextOf("rt1k")},
    {"Qp1k", Type::kFloat, nullptr, "gas_qp1k", nullptr, TextOf("rqp1k")},
    {"RP1k", Type::kChars, nullptr, "rp1k", nullptr, kNoUnit},
    {"RdP1k", Type::kChars, nullptr, "rdp1k", nullptr, kNoUnit},
    {"Rt1k", Type::kChars, nullptr, "rt1k", nullptr, kNoUnit},
    {"RQp1k", Type::kChars, nullptr, "rqp1k", nullptr, kNoUnit},
    {"P2k", Type::kFloat, nullptr, "gas_p2k", nullptr, TextOf("rp2k")},
    {"dP2k", Type::kFloat, nullptr, "gas_dp2k", nullptr, TextOf("rdp2k")},
    {"t2k", Type::kFloat, nullptr, "gas_t2k", nullptr, TextOf("rt2k")},
    {"Qp2k", Type::kFloat, nullptr, "gas_qp2k", nullptr, TextOf("rqp2k")},
    {"RP2k", Type::kChars, nullptr, "rp2k", nullptr, kNoUnit},
    {"RdP2k", Type::kChars, nullptr, "rdp2k", nullptr, kNoUnit},
    {"Rt2k", Type::kChars, nullptr, "rt2k", nullptr, kNoUnit},
    {"RQp2k", Type::kChars, nullptr, "rqp2k", nullptr, kNoUnit},
    {"RdP3", Type::kChars, nullptr, "rdp3", nullptr, kNoUnit},
    {"RPb", Type::kChars, nullptr, "rpb", nullptr, kNoUnit},
    {"RP3", Type::kChars, nullptr, "rp3", nullptr, kNoUnit},
    {"RP4", Type::kChars, nullptr, "rp4", nullptr, kNoUnit},
    {"Rt3", Type::kChars, nullptr, "rt3", nullptr, kNoUnit},
};

constexpr char kNotOfP1[] = "the driver tells the unit of P1";
constexpr char kNotOfP2[] = "the driver tells the unit of P2";
constexpr Entry kCurrent721[] = {
    {"P1", Type::kFloat, "<RP1k>", "gas_p1"},
    {"dP1", Type::kFloat, "<RP1k>", "gas_dp1", nullptr, TextOf("rdp1k", kNotOfP1)},
    {"t1", Type::kFloat, "'C", "gas_t1"},
    {"Qp1", Type::kFloat, "м3/час", "gas_qp1"},
    {"Q1", Type::kFloat, "м3/час", "gas_q1"},
    {"P2", Type::kFloat, "<RP2k>", "gas_p2"},
    {"dP2", Type::kFloat, "<RP2k>", "gas_dp2", nullptr, TextOf("rdp2k", kNotOfP2)},
    {"t2", Type::kFloat, "'C", "gas_t2"},
    {"Qp2", Type::kFloat, "м3/час", "gas_qp2"},
    {"Q2", Type::kFloat, "м3/час", "gas_q2"},
    {"dP3", Type::kFloat, "<RdP3>", "gas_dp3"},
    {"Pb", Type::kFloat, "<RPb>", "p_air", "Pб"},
    {"P3", Type::kFloat, "<RP3>", "gas_p3"},
    {"P4", Type::kFloat, "<RP4>", "gas_p4"},
    {"t3", Type::kFloat, "'C", "gas_t3"},
};
constexpr Entry kTotals721[] = {
    {"Vp1", Type::kFloat, "м3", "gas_vp1"}, {"Vp2", Type::kFloat, "м3", "gas_vp2"},
    {"V1", Type::kFloat, "м3", "gas_v1"},   {"V2", Type::kFloat, "м3", "gas_v2"},
    {"Vsn", Type::kFloat, "м3", "gas_vsn"}, {"V", Type::kFloat, "м3", "gas_v"},
};
constexpr Entry kArchiveTime721[] = {{"TC", Type::kFloat, "час.", "tc", "ТС"}};
constexpr Entry kLines721[] = {
    {"P1", Type::kFloat, "<RP1k>", "gas_p1"},
    {"t1", Type::kFloat, "'C", "gas_t1"},
    {"Vp1", Type::kFloat, "м3", "gas_vp1", "Vр1"},
    {"V1", Type::kFloat, "м3", "gas_v1"},
    {"P2", Type::kFloat, "<RP2k>", "gas_p2"},
    {"t2", Type::kFloat, "'C", "gas_t2"},
    {"Vp2", Type::kFloat, "м3", "gas_vp2", "Vр2"},
    {"V2", Type::kFloat, "м3", "gas_v2"},
    {"V", Type::kFloat, "м3", "gas_v"},
    {"Vp", Type::kFloat, "м3", "gas_vp", "Vп"},
};

constexpr ColumnRun kDatabaseRuns721[] = {{kDatabase721}};
constexpr ColumnRun kCurrentRuns721[] = {
    {kSituation},
    {kCurrent721},
    {kTotals721, Role::kAccumulated, Span::kTotal},
    {kCaptionedWorkingTime, Role::kAccumulated, Span::kTotal},
};
constexpr ColumnRun kArchiveRuns721[] = {
    {kRecordTime, Role::kKey},
    {kArchiveTime721, Role::kValue, Span::kInterval},
    {kSituation},
    {kLines721, Role::kValue, Span::kInterval},
};

constexpr Layout kLayouts[] = {
    {Model::k721, Content::kDatabase, kDatabaseRuns721},
    {Model::k721, Content::kCurrent, kCurrentRuns721},
    {Model::k721, Content::kHours, kArchiveRuns721},
    {Model::k721, Content::kDays, kArchiveRuns721},
    {Model::k721, Content::kMonths, kArchiveRuns721},
    {Model::k721, Content::kChanges, kChangeLog},
    {Model::k721, Content::kSituations, kSituationLog},
};

}  // namespace

std::span<const Layout> Layouts721() { return kLayouts; }

}  // namespace host
