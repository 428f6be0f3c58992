#include "k7/models.h"

#include "k7/layouts.h"

namespace k7 {
namespace {

using namespace common::literals;

constexpr std::uint32_t kType521 = 0x0102;
constexpr std::uint32_t kType523 = 0x0302;

constexpr Introduction kIntroductions[] = {
    {0x2992, kType521, "УРМ521"_w},
    {0x2B54, kType523, "УРМ523"_w},
};

constexpr std::uint16_t kBasic521[] = {0x003A, 0x0001, 0x0002, 0x2040, 0x2026};
constexpr std::uint16_t kBasic523[] = {0x0007, 0x0000, 0x2040, 0x2026};

constexpr std::uint8_t kSystems521[] = {0};
constexpr std::uint8_t kSystems523[] = {1, 2};

constexpr Model kModels[] = {
    {
        .devType = kType521,
        .basicParameters = kBasic521,
        .ownHeatUnit = true,
        .systems = kSystems521,
        .commonDatabase = false,
        .current = {0x0402, kCurrent521, "error oper", false},
        .totals = {0x0800, kTotals521, "error total", false},
        .endsFailedRead = false,
        .datedRecords = true,
        .periodic = {kArchive521, Closing::kInOrder},
        .control = {kControl521, Closing::kReversed},
        .databases = {{{kDatabase521, kBlocks521}, {}, {}}},
    },
    {
        .devType = kType523,
        .basicParameters = kBasic523,
        .ownHeatUnit = false,
        .systems = kSystems523,
        .commonDatabase = true,
        .current = {0x0400, kCurrent523, "error oper", true},
        .totals = {0x0800, kTotals523, "error total", false},
        .endsFailedRead = true,
        .datedRecords = false,
        .periodic = {kArchive523, Closing::kSpareFloat},
        .control = {kControl523, Closing::kSpareFloat},
        .databases = {{{kDatabaseCommon523, kBlocksCommon523},
                       {kDatabaseSystem523, kBlocksSystem523},
                       {kDatabaseSystem523, kBlocksSystem523}}},
    },
};

}  // namespace

const char* SystemName(std::uint8_t system) {
  constexpr const char* kNames[kSystems] = {"ОБЩ"_w, "ТВ1"_w, "ТВ2"_w};
  return kNames[system];
}

const Model* FindModel(std::uint32_t devType) {
  for (const Model& model : kModels) {
    if (model.devType == devType) return &model;
  }
  return nullptr;
}

const Introduction* FindIntroduction(std::uint16_t code) {
  for (const Introduction& introduction : kIntroductions) {
    if (introduction.code == code) return &introduction;
  }
  return nullptr;
}

}  // namespace k7
