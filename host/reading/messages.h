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

// Date and hour of the archive record that is being read.
std::optional<std::string> RecordDate(const Message& message);

// Whether the message reports that something went wrong.
bool IsError(const Message& message);

// What an error was, in words where they are known: "no reply".
std::string ReasonOf(const Message& message);

// "PoitkaArh: 3 Error: 12 (no reply)".
std::string Describe(const Message& message);

}  // namespace host
