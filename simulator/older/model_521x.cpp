// Model 521.1x: one heat system, database and logs as texts.
#include "simulator/older/text_memory.h"

namespace simulator::older {
namespace {

constexpr Parameter kDatabase[] = {
    {"EI", "0"},     {"SP", "0"},     {"TO", "09:30:00"}, {"DO", "01.09.14"},  {"DR", "25"},
    {"TR", "8"},     {"TS", "1"},     {"KG", "2"},        {"C1", "100"},       {"Gw1", "25.0"},
    {"Gn1", "0.25"}, {"Gk1", "12"},   {"C2", "100"},      {"Gw2", "25.0"},     {"Gn2", "0.25"},
    {"Gk2", "11.5"}, {"C3", "10"},    {"Gw3", "6.25"},    {"Gn3", "0.06"},     {"Gk3", "0.5"},
    {"tk1", "95"},   {"Pk1", "6.25"}, {"tk2", "70.0"},    {"Pk2", "4.5"},      {"tk3", "55"},
    {"Pk3", "5"},    {"txk", "5.5"},  {"Pxk", "4.0"},     {"AM", "1"},         {"Mk", "0.5"},
    {"HM", "1.05"},  {"AQ", "1"},     {"Qk", "0.75"},     {"PL", "1"},         {"KD", "24"},
    {"NT", "1"},     {"ID", "1"},     {"KI", "3"},        {"TMN", "06:00:00"}, {"TMK", "23:30:00"},
    {"PS", "1"},     {"PM", "2"},
};

constexpr Block kBlocks[] = {{0, 0x0000, false, kDatabase}};

constexpr const char* kCurrent[] = {"SP", "NS", "G1", "G2", "G3", "t1", "t2", "dt_1_2"};
constexpr const char* kTotals[] = {"V1", "V2", "V3", "M1", "M2", "M3", "Q", "Tw"};
constexpr const char* kArchive[] = {"t1", "t2", "V1", "V2", "V3", "M1", "M2", "M3", "Q", "Tw"};

}  // namespace

const Model kModel521x = {
    .info = {{"521.1x", "heat meter of the later 521 generation, one heat system, logs"},
             kUnitCodes},
    .family = 0x92,
    .code = 0x29,
    .version = 12,
    .clockAddress = 243,
    .memory = MakeTextMemory,
    .blocks = kBlocks,
    .current = kCurrent,
    .totals = kTotals,
    .archive = kArchive,
    .modeInArchive = true,
    .logs = true,
};

}  // namespace simulator::older
