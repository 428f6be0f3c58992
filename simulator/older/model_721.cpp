// Model 721: gas-volume corrector, its units are texts of its database.
#include "simulator/older/text_memory.h"

namespace simulator::older {
namespace {

constexpr Parameter kDatabase[] = {
    {"SP", "0"},
    {"PI", "10"},
    {"NT", "1"},
    {"ID", "1"},
    {"Pk", "760.5"},
    {"rc", "0.6875"},
    {"Xa", "0.8"},
    {"Xy", "0.05"},
    {"rb", "1.0"},
    {"DO", "01.09.14"},
    {"TO", "09:30:00"},
    {"KTime", "1.25"},
    {"DSommer", "27.03"},
    {"DWinter", "30.10"},
    {"DR", "25"},
    {"HR", "8"},
    {"PS", "1"},
    {"PD", "2"},
    {"PM", "100000"},
    {"Vd", "150"},
    {"ZD", "0.5"},
    {"P1k", "3.0"},
    {"dP1k", "0.12"},
    {"t1k", "5.5"},
    {"Qp1k", "240"},
    {"RP1k", "кгс/см2", 16},
    {"RdP1k", "кгс/см2 дифф.", 16},
    {"Rt1k", "'C", 16},
    {"RQp1k", "м3/час", 16},
    {"P2k", "3.25"},
    {"dP2k", "0.06"},
    {"t2k", "-5.5"},
    {"Qp2k", "150"},
    {"RP2k", "кгс/см2 абс.", 16},
    {"RdP2k", "кгс/см2 дифф.", 16},
    {"Rt2k", "'C", 16},
    {"RQp2k", "м3/час", 16},
    {"RdP3", "кгс/см2 дифф.", 16},
    {"RPb", "кгс/см2", 16},
    {"RP3", "кгс/см2 избыточн", 16},
    {"RP4", "кгс/см2 изб.", 16},
    {"Rt3", "'C", 16},
};

// The texts of the database that name units of pressure, and the pressures with them.
constexpr Choice kPressures[] = {{"0", "кгс/см2"}, {"1", "МПа"}, {"2", "бар"}};

constexpr Block kBlocks[] = {{0, 0x0000, false, kDatabase}};

constexpr const char* kCurrent[] = {"NS", "P1",  "dP1", "t1",  "Qp1", "Q1", "P2", "dP2",
                                    "t2", "Qp2", "Q2",  "dP3", "Pb",  "P3", "P4", "t3"};
constexpr const char* kTotals[] = {"Vp1", "Vp2", "V1", "V2", "Vsn", "V", "Tw"};
constexpr const char* kArchive[] = {"TC", "P1",  "t1", "Vp1", "V1", "P2",
                                    "t2", "Vp2", "V2", "V",   "Vp"};

}  // namespace

const Model kModel721 = {
    .info = {{"721", "gas-volume corrector, logs"}, kPressures},
    .family = 'G',
    .code = 0x29,
    .version = 2,
    .clockAddress = 243,
    .site = Site::kGas,
    .memory = MakeTextMemory,
    .blocks = kBlocks,
    .current = kCurrent,
    .totals = kTotals,
    .archive = kArchive,
    .logs = true,
};

}  // namespace simulator::older
