// Heat meter 523 of the K7 generation.
#include "host/fields/models/k7_runs.h"

namespace host {
namespace {

using namespace k7;

// Two parameters have one short name; which is which is not known.
constexpr Parameter kCommonParameters523[] = {
    {"F000", "ei", "ЕИ"},        {"F001", "to_time", "ТО"},   {"F002", "do_date", "ДО"},
    {"F003", "dr", "СР"},        {"F004", "tr", "ЧР"},        {"F005", "pl", "ПЛ"},
    {"F006", "nt", "NT"},        {"F007", "serial", "ИД"},    {"F008", "ki", "КИ"},
    {"F009", "tmn_time", "ВМН"}, {"F010", "tmk_time", "ВМК"}, {"F011", "tk_cold", "tхк"},
    {"F012", "pk_cold", "Pхк"},  {"F013", "ts", "ТС"},        {"F014", "kd", "КД"},
    {"F015", "ch", "СН"},        {"F016", "ts3", "ТС3"},      {"F017", "ky", "КУ"},
    {"F018", "hy", "НУ"},        {"F019", "yb", "УВ"},        {"F020", "yh", "УН"},
    {"F022", "ky2_f022", "КУ2"}, {"F023", "ky2_f023", "КУ2"}, {"F024", "hy22", "НУ22"},
    {"F025", "yb2", "УВ2"},      {"F026", "yh2", "УН2"},
};
constexpr Parameter kSystemParameters523[] = {
    {"F000", "sp", "СП"},     {"F001", "input_code", "КВ"}, {"F002", "tk1", "tк1"},
    {"F003", "tk2", "tк2"},   {"F004", "tk3", "tк3"},       {"F005", "dw", "ДВ"},
    {"F006", "wp1", "ВП1"},   {"F007", "wp2", "ВП2"},       {"F008", "pk1", "Pк1"},
    {"F009", "pk2", "Pк2"},   {"F010", "pk3", "Pк3"},       {"F011", "kg", "КG"},
    {"F012", "c1", "С1"},     {"F013", "gw1", "Gв1"},       {"F014", "gn1", "Gн1"},
    {"F015", "gk1", "Gк1"},   {"F016", "c2", "С2"},         {"F017", "gw2", "Gв2"},
    {"F018", "gn2", "Gн2"},   {"F019", "gk2", "Gк2"},       {"F020", "c3", "С3"},
    {"F021", "gw3", "Gв3"},   {"F022", "gn3", "Gн3"},       {"F023", "gk3", "Gк3"},
    {"F024", "am", "АМ"},     {"F025", "mk", "Мк"},         {"F026", "hm", "НМ"},
    {"F027", "aq", "АQ"},     {"F028", "qk", "Qк"},         {"F029", "ps", "ПС"},
    {"F030", "pm", "ПМ"},     {"F031", "atmin", "ATmin"},   {"F032", "atmax", "ATmax"},
    {"F033", "atep", "ATэп"}, {"F034", "atf", "ATф"},
};

constexpr Entry kAirTemperature[] = {{"tvoz", Type::kFloat, "'C", "t_air", "tвоз"}};
constexpr Entry kTimes[] = {
    {"Ti", Type::kFloat, "Час", "ti", "Tи"},    {"Tmin", Type::kFloat, "Час", "tmin"},
    {"Tmax", Type::kFloat, "Час", "tmax"},      {"Ttd", Type::kFloat, "Час", "ttd", "Tdt"},
    {"Tep", Type::kFloat, "Час", "tep", "Tэп"}, {"Tf", Type::kFloat, "Час", "tf", "Tф"},
    {"Tns", Type::kFloat, "Час", "tns", "Tн"},  {"Tw", Type::kFloat, "Час", "tw", "Tш"},
};
constexpr auto kCommonDatabase = Texts(kCommonParameters523);
constexpr auto kSystemDatabase = Texts(kSystemParameters523);

constexpr ColumnRun kCommonDatabaseRuns[] = {{kCommonDatabase}};
constexpr ColumnRun kSystemDatabaseRuns[] = {{kSystemDatabase}};
constexpr ColumnRun kCurrentRuns[] = {
    {kState}, {kFlows}, {kTwoPressures}, {kTemperatures}, {kAirTemperature}, {kCodes},
};
constexpr ColumnRun kTotalsRuns[] = {
    {kAmounts, Role::kAccumulated, Span::kTotal},
    {kTimes, Role::kAccumulated, Span::kTotal},
};
constexpr ColumnRun kArchiveRuns[] = {
    {kRecordTime, Role::kKey},
    {kState},
    {kTwoPressures},
    {kTemperatures},
    {kAirTemperature},
    {kAmounts, Role::kValue, Span::kInterval, Type::kFloat},
    {kTimes, Role::kValue, Span::kInterval},
    {kCodes},
};
// The role of its amounts is that of totals: they stood so at the end of a day.
constexpr ColumnRun kControlRuns[] = {
    {kRecordTime, Role::kKey},
    {kState},
    {kTwoPressures},
    {kTemperatures},
    {kAirTemperature},
    {kAmounts, Role::kAccumulated, Span::kTotal, Type::kFloat},
    {kTimes, Role::kAccumulated, Span::kTotal},
    {kCodes},
};

constexpr Layout kLayouts[] = {
    {Model::kK7523, Content::kDatabase, kCommonDatabaseRuns},
    {Model::kK7523, Content::kSystemDatabase, kSystemDatabaseRuns},
    {Model::kK7523, Content::kCurrent, kCurrentRuns},
    {Model::kK7523, Content::kTotals, kTotalsRuns},
    {Model::kK7523, Content::kHours, kArchiveRuns},
    {Model::kK7523, Content::kDays, kArchiveRuns},
    {Model::kK7523, Content::kMonths, kArchiveRuns},
    {Model::kK7523, Content::kControl, kControlRuns},
    {Model::kK7523, Content::kChanges, kChangeLog},
    {Model::kK7523, Content::kEvents, kEventLog},
};

}  // namespace

std::span<const Layout> LayoutsK7523() { return kLayouts; }

}  // namespace host
