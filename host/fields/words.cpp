// How quantities, pipes and the like are called.
#include "host/fields/words.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace host {
namespace {

template <typename Key>
struct Word {
  Key key;
  const char* word;
};

constexpr Word<Quantity> kQuantities[] = {
    {Quantity::kTime, "time"},
    {Quantity::kModeCode, "mode code"},
    {Quantity::kSituationCode, "situation code"},
    {Quantity::kDiagnosticCode, "diagnostic code"},
    {Quantity::kFlag, "flag"},
    {Quantity::kTemperature, "temperature"},
    {Quantity::kTemperatureDifference, "temperature difference"},
    {Quantity::kPressure, "pressure"},
    {Quantity::kPressureDifference, "pressure difference"},
    {Quantity::kVolume, "volume"},
    {Quantity::kWorkingVolume, "working volume"},
    {Quantity::kMass, "mass"},
    {Quantity::kHeat, "heat"},
    {Quantity::kVolumeFlow, "volume flow"},
    {Quantity::kWorkingVolumeFlow, "working volume flow"},
    {Quantity::kMassFlow, "mass flow"},
    {Quantity::kWorkingTime, "working time"},
    {Quantity::kSituationTime, "time of situations"},
    {Quantity::kDuration, "duration"},
    {Quantity::kDate, "date"},
    {Quantity::kTimeOfDay, "time of day"},
    {Quantity::kSetting, "setting"},
    {Quantity::kText, "text"},
};

constexpr Word<Pipe> kPipes[] = {
    {Pipe::kSupply, "supply"}, {Pipe::kReturn, "return"},        {Pipe::kThird, "third"},
    {Pipe::kFourth, "fourth"}, {Pipe::kColdWater, "cold water"}, {Pipe::kHotWater, "hot water"},
    {Pipe::kAir, "air"},       {Pipe::kGas1, "gas 1"},           {Pipe::kGas2, "gas 2"},
    {Pipe::kGas3, "gas 3"},    {Pipe::kGas4, "gas 4"},
};

constexpr Word<Span> kSpans[] = {{Span::kInterval, "interval"}, {Span::kTotal, "total"}};

constexpr Word<tav::Type> kTypes[] = {
    {tav::Type::kFloat, "float"},  {tav::Type::kDouble, "double"},
    {tav::Type::kInt32, "uint32"}, {tav::Type::kInt16, "uint16"},
    {tav::Type::kByte, "byte"},    {tav::Type::kDateTime, "datetime"},
    {tav::Type::kChars, "text"},
};

constexpr Word<tav::Role> kRoles[] = {
    {tav::Role::kKey, "key"},
    {tav::Role::kValue, "value"},
    {tav::Role::kAccumulated, "accumulated"},
};

template <typename Key, std::size_t N>
const char* Find(const Word<Key> (&words)[N], Key key) {
  const auto* found = std::find_if(std::begin(words), std::end(words),
                                   [key](const Word<Key>& each) { return each.key == key; });
  return found == std::end(words) ? "" : found->word;
}

}  // namespace

const char* NameOf(Quantity quantity) { return Find(kQuantities, quantity); }
const char* NameOf(Pipe pipe) { return Find(kPipes, pipe); }
const char* NameOf(Span span) { return Find(kSpans, span); }
const char* NameOf(tav::Type type) { return Find(kTypes, type); }
const char* NameOf(tav::Role role) { return Find(kRoles, role); }

std::string CountOf(std::size_t count, const char* what) {
  return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

}  // namespace host
