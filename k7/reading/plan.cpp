#include "k7/reading/plan.h"

#include "common/cp1251.h"
#include "common/format.h"
#include "driver/read_groups.h"
#include "k7/link/messages.h"

namespace k7 {
namespace {

using namespace common::literals;

struct ArchiveStep {
  Kind kind;
  const char* subject;
  ReadGroup group;
};

// In the order of reading. The control archive has no letter of its own.
constexpr ArchiveStep kPeriodicSteps[] = {
    {Kind::kMon, "Чтение помесячных"_w, ReadGroup::kMonths},
    {Kind::kDay, "Чтение посуточных"_w, ReadGroup::kDays},
    {Kind::kControl, "Чтение контрольных"_w, ReadGroup::kDays},
    {Kind::kHour, "Чтение почасовых"_w, ReadGroup::kHours},
};

constexpr const char* kBegun = "...";
constexpr const char* kSucceeded = "успешно"_w;
constexpr const char* kFailed = "ошибка"_w;

}  // namespace

bool Plan::Stopped() {
  if (driver_.IsStop() == 0) return false;
  driver_.ReadStop(false);
  return true;
}

// A failed read does not end the plan, a stop and a refused record do.
template <typename Read>
bool Plan::Step(const char* subject, Report report, Read read) {
  if (Stopped()) return false;
  Say(driver_, kBegun, subject);
  const bool done = read();
  if (out_.Refused()) return false;
  Say(driver_, done == (report == Report::kPlain) ? kSucceeded : kFailed, subject);
  return true;
}

bool Plan::ReadPlan(std::uint8_t system) {
  common::SetText(driver_.sectionText, common::Format("%s%u", "ТВ"_w, unsigned{system}));
  Say(driver_, driver_.sectionText, "Ch");
  return ReadCurrentAndTotals(system) && ReadPeriodicArchives(system) &&
         ReadDatabaseAndLogs(system);
}

bool Plan::ReadCommonDatabase() {
  return !GroupWanted(driver_, ReadGroup::kDatabase) ||
         Step("Чтение БД ОВ"_w, Report::kSwapped, [this] { return sections_.ReadDatabase(0); });
}

bool Plan::ReadCurrentAndTotals(std::uint8_t system) {
  if (!GroupWanted(driver_, ReadGroup::kCurrent)) return true;
  if (Stopped()) return false;
  constexpr const char* kSubject = "Чтение текущих"_w;
  Say(driver_, kBegun, kSubject);
  if (!sections_.ReadCurrent(system) || !sections_.ReadTotals(system)) return false;
  Say(driver_, kSucceeded, kSubject);
  return true;
}

bool Plan::ReadPeriodicArchives(std::uint8_t system) {
  for (const ArchiveStep& step : kPeriodicSteps) {
    if (!GroupWanted(driver_, step.group)) continue;
    const auto read = [&] { return sections_.ReadPeriodic(system, step.kind); };
    if (!Step(step.subject, Report::kPlain, read)) return false;
  }
  return true;
}

// The logs belong to the database; their own letter is not looked at.
bool Plan::ReadDatabaseAndLogs(std::uint8_t system) {
  if (!GroupWanted(driver_, ReadGroup::kDatabase)) return true;
  const auto read = [&] { return sections_.ReadDatabase(system); };
  return Step("Чтение БД ТВ"_w, Report::kSwapped, read) &&
         ReadLog(system, Kind::kChange, "Чтение изменений БД"_w) &&
         ReadLog(system, Kind::kEvent, "Чтение событий"_w);
}

bool Plan::ReadLog(std::uint8_t system, Kind kind, const char* subject) {
  return Step(subject, Report::kPlain, [&] { return sections_.ReadEvents(system, kind); });
}

}  // namespace k7
