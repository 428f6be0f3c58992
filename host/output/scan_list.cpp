#include "host/output/scan_list.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/output/folded_table.h"
#include "host/output/json_writer.h"
#include "host/reading/patience.h"
#include "host/reading/settings_json.h"

namespace host {
namespace {

using Kind = ScanAnswer::Kind;

constexpr const char* kWords[] = {"silent", "broken", "answers"};

const TextLine kHeading = {"number",  "kind",   "bit/s", "model",
                           "version", "serial", "clock", "difference"};

constexpr const char* kCauses =
    "what breaks an answer: two instruments with one number, another speed, noise, a slow "
    "gateway\n";

const char* WordOf(Kind kind) { return kWords[static_cast<std::size_t>(kind)]; }

std::string DifferenceText(const ClockReading& clock) {
  const std::string time = TimeText(std::chrono::abs(std::chrono::seconds(clock.difference)));
  if (clock.difference == 0) return time;
  return time + (clock.difference < 0 ? " behind" : " ahead");
}

TextLine LineOf(const ScanAnswer& answer) {
  return {std::to_string(answer.number),
          KindName(answer.way.kind),
          std::to_string(answer.way.baud),
          answer.model,
          answer.version,
          answer.serial,
          answer.clock ? DateText(answer.clock->instrument) : "",
          answer.clock ? DifferenceText(*answer.clock) : ""};
}

std::size_t Count(const std::vector<ScanAnswer>& answers, Kind kind) {
  return static_cast<std::size_t>(
      std::count_if(answers.begin(), answers.end(),
                    [kind](const ScanAnswer& answer) { return answer.kind == kind; }));
}

std::string SilentLine(const std::vector<ScanAnswer>& answers) {
  std::vector<int> silent;
  for (const ScanAnswer& answer : answers) {
    if (answer.kind == Kind::kSilent) silent.push_back(answer.number);
  }
  return silent.empty() ? "" : "silent: " + NumbersText(silent) + '\n';
}

void AddClock(std::vector<JsonMember>& members, const std::optional<ClockReading>& clock) {
  members.emplace_back("clock", clock ? JsonText(DateText(clock->instrument)) : "null");
  members.emplace_back("machine_clock", clock ? JsonText(DateText(clock->machine)) : "null");
  members.emplace_back("clock_difference", clock ? std::to_string(clock->difference) : "null");
}

std::string JsonOf(const ScanAnswer& answer) {
  const bool came = answer.kind != Kind::kSilent;
  std::vector<JsonMember> members = {
      {"number", std::to_string(answer.number)},
      {"answer", JsonText(WordOf(answer.kind))},
      {"kind", JsonTextOrNull(came ? KindName(answer.way.kind) : "")},
      {"speed", came ? std::to_string(answer.way.baud) : "null"},
      {"model", JsonTextOrNull(answer.model)},
      {"version", JsonTextOrNull(answer.version)},
      {"serial", JsonTextOrNull(answer.serial)}};
  AddClock(members, answer.clock);
  members.emplace_back("reason", JsonTextOrNull(answer.reason));
  return JsonObject(members);
}

}  // namespace

std::string ScanText(const std::vector<ScanAnswer>& answers) {
  std::vector<TextLine> lines = {kHeading};
  std::string broken;
  for (const ScanAnswer& answer : answers) {
    if (answer.kind == Kind::kAnswers) lines.push_back(LineOf(answer));
    if (answer.kind == Kind::kBroken) broken += AnswerLine(answer) + '\n';
  }
  const std::string table = lines.size() > 1 ? ListText(lines, "") : "";
  return table + broken + SilentLine(answers) + (broken.empty() ? "" : kCauses);
}

std::string ScanJson(const std::vector<ScanAnswer>& answers) {
  std::string text;
  for (const ScanAnswer& answer : answers) {
    text += text.empty() ? "[\n" : ",\n";
    text += JsonOf(answer);
  }
  return text.empty() ? "[]\n" : text + "\n]\n";
}

std::string AnswerLine(const ScanAnswer& answer) {
  if (answer.kind == Kind::kSilent) return {};
  if (answer.kind == Kind::kBroken) {
    const std::string model = answer.model.empty() ? "" : fmt::format(", {}", answer.model);
    return fmt::format("number {}: a broken answer ({}, {} bit/s{}): {}", answer.number,
                       KindName(answer.way.kind), answer.way.baud, model, answer.reason);
  }
  return fmt::format("number {} answers: {} {}, number {}", answer.number, answer.model,
                     answer.version, answer.serial);
}

std::string ScanSummary(const std::vector<ScanAnswer>& answers) {
  const auto counted = [&](Kind kind, const char* one, const char* many) {
    const std::size_t count = Count(answers, kind);
    return fmt::format("{} {}", count, count == 1 ? one : many);
  };
  return counted(Kind::kAnswers, "number answers", "numbers answer") + ", " +
         counted(Kind::kBroken, "answer is broken", "answers are broken") + ", " +
         counted(Kind::kSilent, "is silent", "are silent");
}

std::string NumbersText(const std::vector<int>& numbers) {
  std::string text;
  for (std::size_t begin = 0, end = 0; begin < numbers.size(); begin = end) {
    end = begin + 1;
    while (end < numbers.size() && numbers[end] == numbers[end - 1] + 1) ++end;
    if (!text.empty()) text += ", ";
    text += std::to_string(numbers[begin]);
    if (end - begin > 1) text += fmt::format("-{}", numbers[end - 1]);
  }
  return text;
}

}  // namespace host
