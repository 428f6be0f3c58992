// The parameter databases: which parameters are read, in which blocks, and the instrument's short
// names of them. One column per parameter, "F" and its number, 50 characters.
#pragma once

#include "k7/column_tables.h"
#include "k7/requests.h"

namespace k7 {

// Consecutive parameters that one request asks for.
struct ParameterBlock {
  std::uint16_t first;
  std::uint8_t count;
};

template <std::size_t N>
using ParameterBlocks = std::array<ParameterBlock, N>;

namespace columns {

// "F000" and on, as far as any database goes.
inline constexpr auto kParameterNames = NumberedTexts<167>("F", 0, 3);

// One column for each parameter of the blocks, in their order.
template <std::size_t N, std::size_t B>
constexpr ColumnTable<N> Database(const ParameterBlocks<B>& blocks,
                                  const std::array<const char*, N>& captions) {
  auto table = Repeated<N>({"", Type::kChars, common::kCp1251<"код">.data(), Role::kValue, nullptr,
                            nullptr, kEntrySize});
  std::size_t count = 0;
  for (const ParameterBlock& block : blocks) {
    for (std::size_t i = 0; i < block.count; ++i, ++count) {
      table[count].name = kParameterNames[block.first + i].data();
      table[count].caption = captions[count];
    }
  }
  return table;
}

template <std::size_t B>
constexpr std::size_t CountOf(const ParameterBlocks<B>& blocks) {
  std::size_t count = 0;
  for (const ParameterBlock& block : blocks) count += block.count;
  return count;
}

// No caption is missing: a null one does not compile.
template <std::size_t N>
constexpr bool IsComplete(const ColumnTable<N>& table) {
  for (const Column& column : table) {
    if (column.caption[0] == '\0' || column.width != kEntrySize) return false;
  }
  return true;
}

using namespace common::literals;

inline constexpr std::array<const char*, 127> kCaptions521 = {
    "СП"_w,    "ЕИ/P"_w, "ЕИ/Q"_w, "ТО"_w,    "ДО"_w,    "РКЧ"_w,   "СР"_w,    "ЧР"_w,    "ПЛ"_w,
    "tхк"_w,   "Pхк"_w,  "ТС"_w,   "ТС1"_w,   "tк1"_w,   "ТС2"_w,   "tк2"_w,   "ТС3"_w,   "tк3"_w,
    "ПД1"_w,   "ВП1"_w,  "Pк1"_w,  "ПД2"_w,   "ВП2"_w,   "Pк2"_w,   "ПД3"_w,   "ВП3"_w,   "Pк3"_w,
    "С1"_w,    "Gв1"_w,  "Gн1"_w,  "Gкв1"_w,  "Gкн1"_w,  "Gотс1"_w, "АGв1"_w,  "АGн1"_w,  "С2"_w,
    "Gв2"_w,   "Gн2"_w,  "Gкв2"_w, "Gкн2"_w,  "Gотс2"_w, "АGв2"_w,  "АGн2"_w,  "С3"_w,    "Gв3"_w,
    "Gн3"_w,   "Gкв3"_w, "Gкн3"_w, "Gотс3"_w, "АGв3"_w,  "АGн3"_w,  "НМ"_w,    "Мк"_w,    "АМк"_w,
    "АrV"_w,   "Qк"_w,   "АQк"_w,  "NT",      "ИД"_w,    "КИ1"_w,   "КИ2"_w,   "КИ3"_w,   "КД1"_w,
    "АКД1"_w,  "КД2"_w,  "АНС"_w,  "АСТ1"_w,  "АСТ2"_w,  "АСТ3"_w,  "АСТ4"_w,  "АСТ5"_w,  "АСТ6"_w,
    "АСТ7"_w,  "АСТ8"_w, "АСТ9"_w, "АСТ10"_w, "АСТ11"_w, "АСТ12"_w, "АСТ13"_w, "АСТ14"_w, "АСТ15"_w,
    "АСТ16"_w, "КТГ"_w,  "tп1"_w,  "tп2"_w,   "tп3"_w,   "tп4"_w,   "tп5"_w,   "tо1"_w,   "tо2"_w,
    "tо3"_w,   "tо4"_w,  "tо5"_w,  "КУ1"_w,   "УВ1"_w,   "УН1"_w,   "КУ2"_w,   "УВ2"_w,   "УН2"_w,
    "КУ3"_w,   "УВ3"_w,  "УН3"_w,  "КУ4"_w,   "УВ4"_w,   "УН4"_w,   "КУ5"_w,   "УВ5"_w,   "УН5"_w,
    "ПС"_w,    "ПМ"_w,   "PLG",    "PPW",     "AT1",     "ОТВ1"_w,  "AT2",     "ОТВ2"_w,  "AT3",
    "ОТВ3"_w,  "AT4",    "ОТВ4"_w, "AT5",     "ОТВ5"_w,  "IP",      "PORT",    "SLG",     "SPW",
    "Tka",
};

// Two captions stand there twice and one looks like a slip: intended.
inline constexpr std::array<const char*, 26> kCaptionsCommon523 = {
    "ЕИ"_w,  "ТО"_w,  "ДО"_w,  "СР"_w,  "ЧР"_w,  "ПЛ"_w,   "NT",    "ИД"_w,  "КИ"_w,
    "ВМН"_w, "ВМК"_w, "tхк"_w, "Pхк"_w, "ТС"_w,  "КД"_w,   "СН"_w,  "ТС3"_w, "КУ"_w,
    "НУ"_w,  "УВ"_w,  "УН"_w,  "КУ2"_w, "КУ2"_w, "НУ22"_w, "УВ2"_w, "УН2"_w,
};

inline constexpr std::array<const char*, 35> kCaptionsSystem523 = {
    "СП"_w,  "КВ"_w,  "tк1"_w, "tк2"_w, "tк3"_w, "ДВ"_w,  "ВП1"_w,  "ВП2"_w, "Pк1"_w,
    "Pк2"_w, "Pк3"_w, "КG"_w,  "С1"_w,  "Gв1"_w, "Gн1"_w, "Gк1"_w,  "С2"_w,  "Gв2"_w,
    "Gн2"_w, "Gк2"_w, "С3"_w,  "Gв3"_w, "Gн3"_w, "Gк3"_w, "АМ"_w,   "Мк"_w,  "НМ"_w,
    "АQ"_w,  "Qк"_w,  "ПС"_w,  "ПМ"_w,  "ATmin", "ATmax", "ATэп"_w, "ATф"_w,
};

}  // namespace columns

inline constexpr ParameterBlocks<13> kBlocks521 = {{
    {0, 10},
    {10, 10},
    {20, 10},
    {30, 10},
    {40, 10},
    {50, 10},
    {60, 10},
    {70, 10},
    {80, 10},
    {90, 10},
    {100, 10},
    {150, 10},
    {160, 7},
}};
// There is no parameter 21.
inline constexpr ParameterBlocks<3> kBlocksCommon523 = {{{0, 10}, {10, 11}, {22, 5}}};
inline constexpr ParameterBlocks<4> kBlocksSystem523 = {{{0, 10}, {10, 10}, {20, 10}, {30, 5}}};

static_assert(columns::CountOf(kBlocks521) == columns::kCaptions521.size());
static_assert(columns::CountOf(kBlocksCommon523) == columns::kCaptionsCommon523.size());
static_assert(columns::CountOf(kBlocksSystem523) == columns::kCaptionsSystem523.size());

inline constexpr auto kDatabase521 = columns::Database(kBlocks521, columns::kCaptions521);
inline constexpr auto kDatabaseCommon523 =
    columns::Database(kBlocksCommon523, columns::kCaptionsCommon523);
inline constexpr auto kDatabaseSystem523 =
    columns::Database(kBlocksSystem523, columns::kCaptionsSystem523);

static_assert(columns::IsComplete(kDatabase521) && columns::IsComplete(kDatabaseCommon523) &&
              columns::IsComplete(kDatabaseSystem523));
static_assert(SameText(kDatabase521[109].name, "F109") && SameText(kDatabase521[110].name, "F150"));
static_assert(SameText(kDatabase521[126].name, "F166"));
static_assert(SameText(kDatabaseCommon523[21].name, "F022"));
static_assert(SameText(kDatabaseSystem523[34].name, "F034"));

}  // namespace k7
