#include "host/reading/messages.h"

#include "host/reading/meanings.h"
#include "host/reading/record_events.h"
#include "host/stream/section.h"

namespace host {

bool IsEndOfReading(const Message& message) { return message.subject == "Opros End"; }

std::optional<bool> ReadingResult(const Message& message) {
  if (message.subject != "ReadStop") return std::nullopt;
  return message.detail == "OK";
}

std::optional<std::string> StepName(const Message& message) {
  if (message.subject == "Start Opros" && message.detail != "Error Init")
    return "opening the session";
  if (BeginsCycle(message)) return "continuous reading";
  const RecordEvent event = EventOf(message);
  if (event.kind == RecordEvent::Kind::kSection) {
    const std::string name = KindName(event.titleKind);
    return event.text.empty() ? name : name + ' ' + event.text;
  }
  return message.detail == "..." ? std::optional(message.subject) : std::nullopt;
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
