// K7 model 523: two systems.
#include "simulator/k7/model.h"

namespace simulator::k7 {
namespace {

using enum Field::Kind;

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

constexpr ParameterRange kDatabase523[] = {{0, 0, 20}, {0, 22, 26}, {1, 0, 34}, {2, 0, 34}};

}  // namespace

const Model kModel523 = {
    .info = {{"k7-523", "heat meter of two systems, newer protocol"}, kUnits},
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

}  // namespace simulator::k7
