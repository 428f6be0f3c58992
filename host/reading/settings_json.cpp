#include "host/reading/settings_json.h"

#include <fmt/format.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <tuple>

#include "host/reading/clock_check.h"

namespace host {
namespace {

using Json = nlohmann::json;
using std::chrono::seconds;

constexpr int kMostAttempts = 1000;
constexpr int kLongestPause = 600'000;
constexpr int kMostRetries = 100;
constexpr long long kLongestTime = 1'000'000'000;  // s

void Require(bool holds) {
  if (!holds) throw std::invalid_argument("no settings of a reading");
}

// Throws when it is there and no whole number from least to most.
template <class Number>
void Take(const Json& json, const char* key, Number& number, long long least, long long most) {
  if (!json.contains(key)) return;
  Require(json[key].is_number_integer());
  const auto value = json[key].get<long long>();
  Require(least <= value && value <= most);
  number = static_cast<Number>(value);
}

void TakeFlag(const Json& json, const char* key, bool& flag) { flag = json.value(key, flag); }

void TakeKind(const Json& json, ReadSettings& settings) {
  const std::string kind = json.at("kind");
  settings.kind = kind == KindName(tav::Mode::kK7) ? tav::Mode::kK7 : tav::Mode::kOlder;
  Require(kind == KindName(settings.kind));
}

void TakePeriod(const Json& json, ReadSettings& settings) {
  settings.from = ParseDate(json.at("from"));
  settings.to = ParseDate(json.at("to"));
  const auto fields = [](const SYSTEMTIME& time) {
    return std::tie(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond);
  };
  Require(fields(settings.from) <= fields(settings.to));
}

void TakeTimes(const Json& json, ReadSettings& settings) {
  long long patience = settings.patience.count();
  Take(json, "patience", patience, 0, kLongestTime);
  settings.patience = seconds(patience);
  long long warning = 0;
  Take(json, "clock_warning", warning, 0, kLongestTime);
  settings.clockWarning.reset();
  if (json.contains("clock_warning")) settings.clockWarning = seconds(warning);
}

void TakeSpeed(const Json& json, ReadSettings& settings) {
  if (!json.contains("speed")) return;
  Take(json, "speed", settings.baud.emplace(), 1, 10'000'000);
}

}  // namespace

std::string DateText(const SYSTEMTIME& time) {
  return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", time.wYear, time.wMonth, time.wDay,
                     time.wHour, time.wMinute, time.wSecond);
}

// Instruments tell dates with full stops.
SYSTEMTIME ParseDate(std::string text) {
  std::replace(text.begin(), text.end(), '-', '.');
  const auto time = ParseInstrumentTime(text);
  if (!time || time->wYear < 2000 || time->wYear > 2100) throw std::invalid_argument("no date");
  return *time;
}

std::string SettingsJson(const ReadSettings& settings) {
  Json json{{"kind", KindName(settings.kind)},
            {"number", settings.number},
            {"groups", settings.groups},
            {"from", DateText(settings.from)},
            {"to", DateText(settings.to)},
            {"attempts", settings.attempts},
            {"double_read", settings.doubleRead},
            {"validity", settings.validity},
            {"pause", settings.pause},
            {"follow", settings.follow},
            {"retry_gaps", settings.retryGaps},
            {"patience", settings.patience.count()}};
  if (settings.baud) json["speed"] = *settings.baud;
  if (settings.clockWarning) json["clock_warning"] = settings.clockWarning->count();
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

ReadSettings ParseSettings(const std::string& text) {
  const Json json = Json::parse(text);
  ReadSettings settings;
  TakeKind(json, settings);
  TakePeriod(json, settings);
  TakeTimes(json, settings);
  TakeSpeed(json, settings);
  settings.groups = json.value("groups", settings.groups);
  Take(json, "number", settings.number, 0, 255);
  Take(json, "attempts", settings.attempts, 1, kMostAttempts);
  Take(json, "pause", settings.pause, 0, kLongestPause);
  Take(json, "retry_gaps", settings.retryGaps, 0, kMostRetries);
  TakeFlag(json, "double_read", settings.doubleRead);
  TakeFlag(json, "validity", settings.validity);
  TakeFlag(json, "follow", settings.follow);
  Require(!settings.follow || settings.kind == tav::Mode::kOlder);
  return settings;
}

}  // namespace host
