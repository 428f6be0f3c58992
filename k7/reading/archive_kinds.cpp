#include "k7/reading/archive_kinds.h"

#include "k7/models/columns.h"

namespace k7 {
namespace {

using namespace common::literals;

constexpr auto kChangeLog = columns::LogColumns("Изменение"_w);
constexpr auto kEventLog = columns::LogColumns("Событие"_w);

constexpr ArchiveKind kKinds[] = {
    {Kind::kHour, "Hour", "Hoyr", TitleKind::kHourly, "", Period::kHour, {}},
    {Kind::kDay, "Day", "Dey", TitleKind::kDaily, "", Period::kDay, {}},
    {Kind::kMon, "Mon", "Mon", TitleKind::kMonthly, "", Period::kMonth, {}},
    {Kind::kControl, "Control", "Dey", TitleKind::kDaily, " Контрольный"_w, Period::kDay, {}},
    {Kind::kChange, "Change", "Sit", TitleKind::kLog, " Изменения"_w, {}, kChangeLog},
    {Kind::kEvent, "Event", "Sit", TitleKind::kLog, " События"_w, {}, kEventLog},
};

}  // namespace

const ArchiveKind& Describe(Kind kind) {
  const ArchiveKind* description = kKinds;
  while (description->kind != kind) ++description;
  return *description;
}

}  // namespace k7
