// Model 523: two heat systems with databases of their own, logs.
#include "simulator/older/text_memory.h"
#include "simulator/older/values.h"

namespace simulator::older {
namespace {

constexpr Parameter kCommon[] = {
    {"EI", "0"},         {"TO", "09:30:00"}, {"DO", "01.09.14"}, {"DR", "25"}, {"TR", "8"},
    {"PL", "1"},         {"NT", "1"},        {"ID", "1"},        {"KI", "3"},  {"TMN", "06:00:00"},
    {"TMK", "23:30:00"}, {"txk", "5.5"},     {"Pxk", "4.0"},     {"TS", "1"},  {"KD", "24"},
    {"CH", "2"},         {"TC3", "1"},       {"KY", "0"},        {"HY", "1"},  {"YB", "85.5"},
    {"YH", "-12.25"},
};
constexpr Parameter kSystem[] = {
    {"SP", "0"},   {"KW", "101"},   {"tk1", "95"},   {"tk2", "70.0"}, {"tk3", "55"},
    {"DW", "1"},   {"WP1", "16"},   {"WP2", "10.0"}, {"Pk1", "6.25"}, {"Pk2", "4.5"},
    {"Pk3", "5"},  {"KG", "2"},     {"C1", "100"},   {"Gw1", "25.0"}, {"Gn1", "0.25"},
    {"Gk1", "12"}, {"C2", "100"},   {"Gw2", "25.0"}, {"Gn2", "0.25"}, {"Gk2", "11.5"},
    {"C3", "10"},  {"Gw3", "6.25"}, {"Gn3", "0.06"}, {"Gk3", "0.5"},  {"AM", "1"},
    {"Mk", "0.5"}, {"HM", "1.05"},  {"AQ", "1"},     {"Qk", "0.75"},  {"PS", "1"},
    {"PM", "2"},
};

constexpr Block kBlocks[] = {
    {0, 0x0000, false, kCommon}, {1, 0x0400, false, kSystem}, {2, 0x0800, false, kSystem}};

constexpr const char* kCurrent[] = {"SP", "NS", "G1",     "G2", "G3",  "P1",  "P2",
                                    "t1", "t2", "dt_1_2", "t3", "thv", "tvoz"};
constexpr const char* kTotals[] = {"V1", "V2", "V3", "M1", "M2", "M3", "Q", "Tw", "Qgvs"};
constexpr const char* kArchive[] = {"P1", "P2", "t1", "t2", "t3", "thv", "tvoz", "V1",
                                    "V2", "V3", "M1", "M2", "Q",  "Tw",  "Qgvs"};

}  // namespace

const Model kModel523 = {
    .info = {{"523", "heat meter, two heat systems, logs"}, kUnitCodes},
    .family = 'T',
    .code = 0x2B,
    .version = 7,
    .clockAddress = 243,
    .systems = 2,
    .memory = MakeTextMemory,
    .blocks = kBlocks,
    .current = kCurrent,
    .totals = kTotals,
    .archive = kArchive,
    .modeInArchive = true,
    .logs = true,
    .completeArchive = [](Archive, Row& row) { row.TakeDifferenceAsM3(); },
};

}  // namespace simulator::older
