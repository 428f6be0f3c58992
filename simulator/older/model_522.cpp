// Model 522: two heat systems with databases of their own, each text in a row of flash.
#include "simulator/older/text_memory.h"

namespace simulator::older {
namespace {

constexpr Parameter kCommon[] = {
    {"EI", "0"},     {"PI", "300"}, {"TO", "09:30:00"}, {"DO", "01.09.14"},
    {"KTh", "1.25"}, {"DR", "25"},  {"TR", "8"},        {"DL", "27.03"},
    {"DS", "30.10"}, {"NT", "1"},   {"ID", "1"},
};
constexpr Parameter kSystem[] = {
    {"SP", "0"},     {"KW", "101"},   {"tx", "5.5"},   {"Px", "4.0"}, {"TC", "2"},
    {"tk1", "95"},   {"tk2", "70.0"}, {"tk3", "55"},   {"DW", "1"},   {"WP1", "16"},
    {"WP2", "10.0"}, {"Pk1", "6.25"}, {"Pk2", "4.5"},  {"Pk3", "5"},  {"KG", "2"},
    {"C1", "100"},   {"Gw1", "25.0"}, {"Gn1", "0.25"}, {"Gk1", "12"}, {"C2", "100"},
    {"Gw2", "25.0"}, {"Gn2", "0.25"}, {"Gk2", "11.5"}, {"C3", "10"},  {"Gw3", "6.25"},
    {"Gn3", "0.06"}, {"Gk3", "0.5"},  {"PS", "1"},     {"PM", "2"},
};

// Pages 0, 8 and 16.
constexpr Block kBlocks[] = {
    {0, 0x0000, true, kCommon}, {1, 0x0200, true, kSystem}, {2, 0x0400, true, kSystem}};

constexpr const char* kCurrent[] = {"SP", "NS", "G1", "G2", "G3", "P1", "P2", "t1", "t2", "dt_1_2"};
constexpr const char* kTotals[] = {"V1", "V2", "V3", "M1", "M2", "M3", "Q", "Tw"};
constexpr const char* kArchive[] = {"P1", "P2", "t1", "t2", "V1", "V2",
                                    "V3", "M1", "M2", "M3", "Q",  "Tw"};

}  // namespace

const Model kModel522 = {
    .info = {{"522", "heat meter, two heat systems"}, kUnitCodes},
    .family = 'T',
    .code = 0x2A,
    .version = 3,
    .clockAddress = 243,
    .systems = 2,
    .memory = MakeTextMemory,
    .blocks = kBlocks,
    .current = kCurrent,
    .totals = kTotals,
    .archive = kArchive,
    .modeInArchive = true,
};

}  // namespace simulator::older
