#include "host/reading/messages.h"

#include <algorithm>
#include <array>

#include "host/reading/meanings.h"

namespace host {
namespace {

constexpr std::string_view kStart = "Start Read";

struct Word {
  std::string_view subject;
  const char* meaning;
};

// The driver's own words for its steps.
constexpr std::array<Word, 8> kSteps = {{{"BD", "database"},
                                         {"Oper", "current"},
                                         {"Mon", "months"},
                                         {"Month", "months"},
                                         {"Dey", "days"},
                                         {"Hoyr", "hours"},
                                         {"Hour", "hours"},
                                         {"Sit", "log"}}};

}  // namespace

bool IsEndOfReading(const Message& message) { return message.subject == "Opros End"; }

std::optional<bool> ReadingResult(const Message& message) {
  if (message.subject != "ReadStop") return std::nullopt;
  return message.detail == "OK";
}

std::optional<std::string> StepName(const Message& message) {
  if (message.detail == "...") return message.subject;
  if (message.subject == "Start Opros" && message.detail != "Error Init")
    return "opening the session";
  if (BeginsCycle(message)) return "continuous reading";
  if (!message.detail.starts_with(kStart)) return std::nullopt;
  // "Start Read ТВ1" / "Mon", or "Start Read" / "Month ОВ".
  const std::size_t blank = message.subject.find(' ');
  const std::string word = message.subject.substr(0, blank);
  const auto* step = std::find_if(kSteps.begin(), kSteps.end(),
                                  [&](const Word& known) { return known.subject == word; });
  std::string name = step == kSteps.end() ? word : step->meaning;
  name += message.detail.substr(kStart.size());
  if (blank != std::string::npos) name += message.subject.substr(blank);
  return name;
}

bool BeginsCycle(const Message& message) { return message.subject == "Nonstop"; }

std::optional<std::string> RecordDate(const Message& message) {
  const bool record = message.subject == "Date:hour" || message.subject == "read...";
  return record ? std::optional(message.detail) : std::nullopt;
}

bool IsError(const Message& message) {
  const auto meaning = MeaningOf(message);
  return meaning && meaning->error;
}

std::string ReasonOf(const Message& message) {
  const auto meaning = MeaningOf(message);
  if (!meaning) return Describe(message);
  return meaning->why.empty() ? meaning->what : meaning->why;
}

std::string Describe(const Message& message) {
  std::string text = message.subject + ": " + message.detail;
  if (MeaningOf(message)) text += " (" + ReasonOf(message) + ")";
  return text;
}

std::string Explain(const Message& message) {
  const auto meaning = MeaningOf(message);
  if (!meaning) return Describe(message);
  const char* const between = meaning->what.empty() || meaning->why.empty() ? "" : ": ";
  return meaning->what + between + meaning->why;
}

}  // namespace host
