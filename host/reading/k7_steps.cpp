#include "host/reading/k7_steps.h"

#include <algorithm>
#include <chrono>

namespace host {
namespace {

// Of what has no dates, roughly.
constexpr std::size_t kDatabaseRequests = 8;
constexpr std::size_t kOtherRequests = 2;

std::size_t Months(const SYSTEMTIME& from, const SYSTEMTIME& to) {
  const int months = (to.wYear - from.wYear) * 12 + to.wMonth - from.wMonth + 1;
  return static_cast<std::size_t>(std::max(months, 1));
}

std::size_t Hours(const SYSTEMTIME& from, const SYSTEMTIME& to) {
  const auto hour = [](const SYSTEMTIME& time) {
    const auto day = std::chrono::year(time.wYear) / time.wMonth / time.wDay;
    return std::chrono::sys_days(day) + std::chrono::hours(time.wHour);
  };
  const auto hours = (hour(to) - hour(from)).count();
  return hours < 0 ? 1 : static_cast<std::size_t>(hours) + 1;
}

std::size_t Days(const SYSTEMTIME& from, const SYSTEMTIME& to) {
  return (Hours(from, to) + from.wHour) / 24 + 1;
}

}  // namespace

K7Steps::K7Steps(const ReadSettings& settings) {
  const SYSTEMTIME& from = settings.from;
  const SYSTEMTIME& to = settings.to;
  const struct {
    tav::ReadGroup group;
    const char* name;
    std::size_t requests;
  } steps[] = {{tav::ReadGroup::kCurrent, "Чтение текущих", kOtherRequests},
               {tav::ReadGroup::kMonths, "Чтение помесячных", Months(from, to)},
               {tav::ReadGroup::kDays, "Чтение посуточных", Days(from, to)},
               {tav::ReadGroup::kDays, "Чтение контрольных", Days(from, to)},
               {tav::ReadGroup::kHours, "Чтение почасовых", Hours(from, to)},
               {tav::ReadGroup::kDatabase, "Чтение БД ТВ", kDatabaseRequests},
               {tav::ReadGroup::kDatabase, "Чтение изменений БД", kOtherRequests},
               {tav::ReadGroup::kDatabase, "Чтение событий", kOtherRequests}};
  for (const auto& step : steps) {
    if (settings.groups.find(static_cast<char>(step.group)) == std::string::npos) continue;
    steps_.push_back({step.name, step.requests});
    requests_ += step.requests;
  }
}

void K7Steps::Take(const Message& message) {
  if (message.subject == "Tip") {
    systems_ = message.detail.ends_with("523") ? 2 : 1;
  } else if (message.subject == "Ch") {
    ++begunSystems_;
    before_ = inStep_ = stepRequests_ = 0;
  } else if (message.detail == "...") {
    Begin(message.subject);
  } else if (message.subject == "read...") {
    inStep_ = std::min(inStep_ + 1, stepRequests_);
  }
}

void K7Steps::Begin(const std::string& name) {
  std::size_t before = 0;
  for (const Step& step : steps_) {
    if (step.name == name) {
      before_ = before;
      stepRequests_ = step.requests;
      inStep_ = 0;
      return;
    }
    before += step.requests;
  }
}

int K7Steps::Percent() const {
  if (begunSystems_ == 0 || requests_ == 0) return 0;
  const std::size_t done = (begunSystems_ - 1) * requests_ + before_ + inStep_;
  return static_cast<int>(std::min(done * 100 / (systems_ * requests_), std::size_t{99}));
}

}  // namespace host
