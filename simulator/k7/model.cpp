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

constexpr Field kCurrent523[] = {
    {kState, "SP"},  {kFloat, "G1"},   {kFloat, "G2"}, {kFloat, "G3"},     {kFloat, "P1"},
    {kFloat, "P2"},  {kFloat, "t1"},   {kFloat, "t2"}, {kFloat, "dt_1_2"}, {kFloat, "t3"},
    {kFloat, "thv"}, {kFloat, "tvoz"}, {kCode, "NS"},  {kCode, "DS"},
};

constexpr Field kTotals523[] = {
    {kIntFloat, "V1"}, {kIntFloat, "V2"}, {kIntFloat, "V3"}, {kIntFloat, "M1"},
    {kIntFloat, "M2"}, {kIntFloat, "M3"}, {kIntFloat, "Q"},  {kIntFloat, "Qgvs"},
    {kFloat, "Ti"},    {kFloat, "Tmin"},  {kFloat, "Tmax"},  {kFloat, "Ttd"},
    {kFloat, "Tep"},   {kFloat, "Tf"},    {kFloat, "Tns"},   {kFloat, "Tw"},
};

// The last float has no column.
constexpr Field kPeriodic523[] = {
    {kState, "SP"},     {kFloat, "P1"},   {kFloat, "P2"},  {kFloat, "t1"},   {kFloat, "t2"},
    {kFloat, "dt_1_2"}, {kFloat, "t3"},   {kFloat, "thv"}, {kFloat, "tvoz"}, {kFloat, "V1"},
    {kFloat, "V2"},     {kFloat, "V3"},   {kFloat, "M1"},  {kFloat, "M2"},   {kFloat, "M3"},
    {kFloat, "Q"},      {kFloat, "Qgvs"}, {kFloat, "Ti"},  {kFloat, "Tmin"}, {kFloat, "Tmax"},
    {kFloat, "Ttd"},    {kFloat, "Tep"},  {kFloat, "Tf"},  {kFloat, "Tns"},  {kFloat, "Tw"},
    {kFloat, ""},       {kCode, "NS"},    {kCode, "DS"},
};

constexpr ParameterRange kDatabase521[] = {{0, 0, 109}, {0, 150, 166}};
constexpr ParameterRange kDatabase523[] = {{0, 0, 20}, {0, 22, 26}, {1, 0, 34}, {2, 0, 34}};

constexpr Model kModel521 = {
    .choice = {"k7-521", "heat meter of one system, newer protocol"},
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

constexpr Model kModel523 = {
    .choice = {"k7-523", "heat meter of two systems, newer protocol"},
    .code = 0x2B54,
    .version = 3,
    .firstSystem = 1,
    .lastSystem = 2,
    .database = kDatabase523,
    .serialNumber = 7,
    .pressureUnit = 0,
    .heatUnit = 0,
    .current = 0x400,
    .totals = 0x800,
    .currentFields = kCurrent523,
    .totalsFields = kTotals523,
    .datedRecords = false,
    .periodic = kPeriodic523,
    .control = kPeriodic523,
};

constexpr const Model* kModels[] = {&kModel521, &kModel523};

}  // namespace

std::span<const Model* const> AllModels() { return kModels; }

const Model* FindModel(const std::string& name) {
  for (const Model* model : kModels) {
    if (name == model->choice.name) return model;
  }
  return nullptr;
}

}  // namespace simulator::k7
