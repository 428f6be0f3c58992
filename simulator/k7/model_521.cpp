// K7 model 521: one system.
#include "simulator/k7/model.h"

namespace simulator::k7 {
namespace {

using enum Field::Kind;

constexpr Field kCurrent521[] = {
    {kState, "SP"},  {kFloat, "G1"},  {kFloat, "G2"}, {kFloat, "G3"}, {kFloat, "Gм1"},
    {kFloat, "Gм2"}, {kFloat, "Gм3"}, {kFloat, "t1"}, {kFloat, "t2"}, {kFloat, "dt_1_2"},
    {kFloat, "t3"},  {kFloat, "thv"}, {kFloat, "t4"}, {kFloat, "P1"}, {kFloat, "P2"},
    {kFloat, "P3"},  {kFloat, "Phv"}, {kFloat, "P4"}, {kCode, "NS"},  {kCode, "DS"},
};

constexpr Field kTotals521[] = {
    {kIntFloat, "V1"}, {kIntFloat, "V2"}, {kIntFloat, "V3"},   {kIntFloat, "M1"}, {kIntFloat, "M2"},
    {kIntFloat, "M3"}, {kIntFloat, "Q"},  {kIntFloat, "Qgvs"}, {kFloat, "Ti"},    {kFloat, "Tns"},
    {kFloat, "Tw"},    {kFloat, "TC1"},   {kFloat, "TC2"},     {kFloat, "TC3"},   {kFloat, "TC4"},
    {kFloat, "TC5"},   {kFloat, "TC6"},   {kFloat, "TC7"},     {kFloat, "TC8"},   {kFloat, "TC9"},
    {kFloat, "TC10"},  {kFloat, "TC11"},  {kFloat, "TC12"},    {kFloat, "TC13"},  {kFloat, "TC14"},
    {kFloat, "TC15"},  {kFloat, "TC16"},
};

constexpr Field kPeriodic521[] = {
    {kState, "SP"},   {kFloat, "t1"},   {kFloat, "t2"},   {kFloat, "dt_1_2"}, {kFloat, "t3"},
    {kFloat, "thv"},  {kFloat, "t4"},   {kFloat, "P1"},   {kFloat, "P2"},     {kFloat, "P3"},
    {kFloat, "Phv"},  {kFloat, "P4"},   {kFloat, "V1"},   {kFloat, "V2"},     {kFloat, "V3"},
    {kFloat, "M1"},   {kFloat, "M2"},   {kFloat, "M3"},   {kFloat, "Q"},      {kFloat, "Qgvs"},
    {kFloat, "Ti"},   {kFloat, "Tns"},  {kFloat, "Tw"},   {kFloat, "TC1"},    {kFloat, "TC2"},
    {kFloat, "TC3"},  {kFloat, "TC4"},  {kFloat, "TC5"},  {kFloat, "TC6"},    {kFloat, "TC7"},
    {kFloat, "TC8"},  {kFloat, "TC9"},  {kFloat, "TC10"}, {kFloat, "TC11"},   {kFloat, "TC12"},
    {kFloat, "TC13"}, {kFloat, "TC14"}, {kFloat, "TC15"}, {kFloat, "TC16"},   {kCode, "NS"},
    {kCode, "DS"},
};

// Without the last situation counter, and with the diagnostic code before the situation code.
constexpr Field kControl521[] = {
    {kState, "SP"},    {kFloat, "G1"},      {kFloat, "G2"},    {kFloat, "G3"},
    {kFloat, "Gм1"},   {kFloat, "Gм2"},     {kFloat, "Gм3"},   {kFloat, "t1"},
    {kFloat, "t2"},    {kFloat, "dt_1_2"},  {kFloat, "t3"},    {kFloat, "thv"},
    {kFloat, "t4"},    {kFloat, "P1"},      {kFloat, "P2"},    {kFloat, "P3"},
    {kFloat, "Phv"},   {kFloat, "P4"},      {kIntFloat, "V1"}, {kIntFloat, "V2"},
    {kIntFloat, "V3"}, {kIntFloat, "M1"},   {kIntFloat, "M2"}, {kIntFloat, "M3"},
    {kIntFloat, "Q"},  {kIntFloat, "Qgvs"}, {kFloat, "Ti"},    {kFloat, "Tns"},
    {kFloat, "Tw"},    {kFloat, "TC1"},     {kFloat, "TC2"},   {kFloat, "TC3"},
    {kFloat, "TC4"},   {kFloat, "TC5"},     {kFloat, "TC6"},   {kFloat, "TC7"},
    {kFloat, "TC8"},   {kFloat, "TC9"},     {kFloat, "TC10"},  {kFloat, "TC11"},
    {kFloat, "TC12"},  {kFloat, "TC13"},    {kFloat, "TC14"},  {kFloat, "TC15"},
    {kCode, "DS"},     {kCode, "NS"},
};

constexpr ParameterRange kDatabase521[] = {{0, 0, 109}, {0, 150, 166}};
}  // namespace

const Model kModel521 = {
    .info = {{"k7-521", "heat meter of one system, newer protocol"}, kUnits},
    .code = 0x2992,
    .version = 7,
    .firstSystem = 0,
    .lastSystem = 0,
    .database = kDatabase521,
    .serialNumber = 0x3A,
    .pressureUnit = 1,
    .heatUnit = 2,
    .current = 0x402,
    .totals = 0x800,
    .currentFields = kCurrent521,
    .totalsFields = kTotals521,
    .datedRecords = true,
    .periodic = kPeriodic521,
    .control = kControl521,
};

}  // namespace simulator::k7
