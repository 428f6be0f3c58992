// What the driver's messages mean to a person.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace host {

struct Message {
  std::string detail;   // UTF-8
  std::string subject;  // UTF-8
  unsigned code = 0;    // tav::kNewValues, or 0
};

// What the reading's last message says; it comes once the driver's thread is done.
bool IsEndOfReading(const Message& message);

// Whether the reading succeeded; nothing for any other message.
std::optional<bool> ReadingResult(const Message& message);

// "hours ТВ1" when the message announces a step of the reading.
std::optional<std::string> StepName(const Message& message);

// Whether the message announces another cycle of a continuous reading.
bool BeginsCycle(const Message& message);

// Date and hour of the archive record that is being read.
std::optional<std::string> RecordDate(const Message& message);

// Whether the message reports that something went wrong, and no message before it told more of
// that.
bool IsError(const Message& message);

// Why it was, or what: "no reply".
std::string ReasonOf(const Message& message);

// The driver's words, and what they mean: "PoitkaArh: 3 Error: 12 (no reply)".
std::string Describe(const Message& message);

// The same in words for people: "an archive record could not be read: no reply".
std::string Explain(const Message& message);

}  // namespace host
