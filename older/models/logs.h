// The logs that several models keep.
#pragma once

#include "older/models/columns.h"
#include "older/reads/log.h"

namespace older {

inline constexpr Column kChangeLayout[] = {kDateColumn, Characters("ISM", 15, "код"_w, "ИЗМ"_w)};
static_assert(RecordSize(kChangeLayout) == 22);

inline constexpr Column kSituationLayout[] = {
    kDateColumn,
    {"NS", Type::kByte, "Код НС"_w, Role::kValue, "НС"_w},
    {"Flag", Type::kByte, "код"_w, Role::kValue, "Флаг"_w},
};
static_assert(RecordSize(kSituationLayout) == 9);

void ConvertChange(std::span<const std::uint8_t> entry, std::span<std::uint8_t> rest);
void ConvertSituation(std::span<const std::uint8_t> entry, std::span<std::uint8_t> rest);

inline constexpr Log kChangeLog = {kChangeLayout, "ИЗМ"_w, "PoitkaReadIsm", 32, ConvertChange};
inline constexpr Log kSituationLog = {kSituationLayout, "НС"_w, "PoitkaReadSit", 24,
                                      ConvertSituation};

}  // namespace older
