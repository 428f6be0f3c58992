// Gas-volume corrector 721: one measuring system, logs, and a database whose texts name the units
// of the pressures.
#pragma once

#include <string_view>

#include "common/does_not_compile.h"
#include "older/models/columns.h"
#include "older/models/logs.h"
#include "older/models/model.h"
#include "older/reads/memory.h"
#include "older/reads/text_database.h"

namespace older {

// --- Units: texts of the database ---

inline constexpr const char* kUnitColumns721[] = {"RP1k", "RP2k", "RdP3", "RPb", "RP3", "RP4"};
static_assert(std::size(kUnitColumns721) <= Unit::kChoices);

consteval Unit TextOf(std::string_view column) {
  for (std::size_t i = 0; i < std::size(kUnitColumns721); ++i) {
    if (column == kUnitColumns721[i]) return Unit::Chosen(static_cast<std::uint8_t>(i));
  }
  common::DoesNotCompile("this column names no unit");
}

// --- Layouts ---

// In the database every column's unit is its own name.
consteval Column Setting(const char* name, Type type) { return {name, type, name}; }
consteval Column Setting(const char* name, DateForm form) { return DateItem(form, name, name); }
consteval Column UnitName(const char* name) { return Characters(name, 15, name); }

inline constexpr Column kBdLayout721[] = {
    Setting("SP", Type::kByte),
    Setting("PI", Type::kInt32),
    Setting("NT", Type::kByte),
    Characters("ID", 9, "ID"),
    Setting("Pk", Type::kFloat),
    Setting("rc", Type::kFloat),
    Setting("Xa", Type::kFloat),
    Setting("Xy", Type::kFloat),
    Setting("rb", Type::kFloat),
    Setting("DO", DateForm::kDate),
    Setting("TO", DateForm::kTimeOfDay),
    Setting("KTime", Type::kFloat),
    Setting("DSommer", DateForm::kDayOfYear),
    Setting("DWinter", DateForm::kDayOfYear),
    Setting("DR", Type::kInt32),
    Setting("HR", Type::kInt32),
    Setting("PS", Type::kInt32),
    Setting("PD", Type::kInt32),
    Setting("PM", Type::kInt32),
    Setting("Vd", Type::kFloat),
    Setting("ZD", Type::kFloat),
    Setting("P1k", Type::kFloat),
    Setting("dP1k", Type::kFloat),
    Setting("t1k", Type::kFloat),
    Setting("Qp1k", Type::kFloat),
    UnitName("RP1k"),
    UnitName("RdP1k"),
    UnitName("Rt1k"),
    UnitName("RQp1k"),
    Setting("P2k", Type::kFloat),
    Setting("dP2k", Type::kFloat),
    Setting("t2k", Type::kFloat),
    Setting("Qp2k", Type::kFloat),
    UnitName("RP2k"),
    UnitName("RdP2k"),
    UnitName("Rt2k"),
    UnitName("RQp2k"),
    UnitName("RdP3"),
    UnitName("RPb"),
    UnitName("RP3"),
    UnitName("RP4"),
    UnitName("Rt3"),
};
static_assert(std::size(kBdLayout721) == 42 && RecordSize(kBdLayout721) == 322);
static_assert(ConsistsOfItems(kBdLayout721) && ItemsSize(kBdLayout721) == 55 * kItemSize);

// dP1 and dP2 carry the units of P1 and P2, not their own: intended.
inline constexpr Column kCurrentColumns721[] = {
    kSituationColumn,
    {"P1", Type::kFloat, TextOf("RP1k")},
    {"dP1", Type::kFloat, TextOf("RP1k")},
    {"t1", Type::kFloat, "'C"},
    {"Qp1", Type::kFloat, "м3/час"_w},
    {"Q1", Type::kFloat, "м3/час"_w},
    {"P2", Type::kFloat, TextOf("RP2k")},
    {"dP2", Type::kFloat, TextOf("RP2k")},
    {"t2", Type::kFloat, "'C"},
    {"Qp2", Type::kFloat, "м3/час"_w},
    {"Q2", Type::kFloat, "м3/час"_w},
    {"dP3", Type::kFloat, TextOf("RdP3")},
    {"Pb", Type::kFloat, TextOf("RPb"), Role::kValue, "Pб"_w},
    {"P3", Type::kFloat, TextOf("RP3")},
    {"P4", Type::kFloat, TextOf("RP4")},
    {"t3", Type::kFloat, "'C"},
};
static_assert(RecordSize(kCurrentColumns721) == 64);

inline constexpr Column kTotalsColumns721[] = {
    {"Vp1", Type::kFloat, "м3"_w, Role::kAccumulated},
    {"Vp2", Type::kFloat, "м3"_w, Role::kAccumulated},
    {"V1", Type::kFloat, "м3"_w, Role::kAccumulated},
    {"V2", Type::kFloat, "м3"_w, Role::kAccumulated},
    {"Vsn", Type::kFloat, "м3"_w, Role::kAccumulated},
    {"V", Type::kFloat, "м3"_w, Role::kAccumulated},
    {"Tw", Type::kFloat, "Час"_w, Role::kAccumulated, "Tр"_w},
};
static_assert(RecordSize(kTotalsColumns721) == 28);

inline constexpr auto kCurrentLayout721 = Table(kCurrentColumns721, kTotalsColumns721);

inline constexpr Column kArchiveLayout721[] = {
    kDateColumn,
    {"TC", Type::kFloat, "час."_w, Role::kValue, "ТС"_w},
    kSituationColumn,
    {"P1", Type::kFloat, TextOf("RP1k")},
    {"t1", Type::kFloat, "'C"},
    {"Vp1", Type::kFloat, "м3"_w, Role::kValue, "Vр1"_w},
    {"V1", Type::kFloat, "м3"_w},
    {"P2", Type::kFloat, TextOf("RP2k")},
    {"t2", Type::kFloat, "'C"},
    {"Vp2", Type::kFloat, "м3"_w, Role::kValue, "Vр2"_w},
    {"V2", Type::kFloat, "м3"_w},
    {"V", Type::kFloat, "м3"_w},
    {"Vp", Type::kFloat, "м3"_w, Role::kValue, "Vп"_w},
};
static_assert(std::size(kArchiveLayout721) == 13 && RecordSize(kArchiveLayout721) == 55);

void KeepUnitTexts721(TKSplImpl& reader, std::span<const std::uint8_t> database);
ChosenUnits Units721(const TKSplImpl& reader, int system);

// --- Where it stands in the instrument ---

inline constexpr Block kOperative721[] = {
    {kCurrentColumns721, ReadMemoryBlock, "PoitkaReadTek", "Tek", {0x0200}},
    {kTotalsColumns721, ReadMemoryBlock, "PoitkaReadTot", "Tot", {0x0280}},
};

inline constexpr ArchiveRecord kArchive721 = {kArchiveLayout721, 64, ConvertEveryColumn, true};

inline constexpr LogSection kLogs721[] = {{kChangeLog, {0x1000}}, {kSituationLog, {0x2000}}};

inline constexpr Model kModel721 = {
    .identity = {'G', 0x29, "ДКГ721"_w, "dkg721", 243},
    .greeting = "721",
    .sectionText = "Общий"_w,
    .progress = {.database = 10,
                 .operative = 2,
                 .doubled = true,
                 .beforeClock = true,
                 .clock = 2,
                 .databaseRead = 8},
    .database = {.block = {kBdLayout721, ReadTextItems, "PoitkaReadBDOB", "BD", {0x0000}, true},
                 .start = nullptr,
                 .startName = "BD"},
    .number = FieldOf(kBdLayout721, "ID"),
    .mode = FieldOf(kBdLayout721, "SP"),
    .start = nullptr,
    .operative = {.layout = kCurrentLayout721,
                  .blocks = kOperative721,
                  .startName = "Oper",
                  .continuousTitle = "ОВ"_w},
    .archives = {{kArchive721, "Hoyr"}, {kArchive721, "Dey"}, {kArchive721, "Mon"}},
    .logs = kLogs721,
    .keepSettings = KeepUnitTexts721,
    .units = Units721,
};

}  // namespace older
