#include "host/reading/messages.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

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

// Subjects whose detail is the code of an exchange that failed.
constexpr std::array<std::string_view, 5> kFailedReads = {"Dt", "BD", "Op", "Tek", "Tot"};

struct Code {
  int number;
  const char* meaning;
};

constexpr std::array<Code, 12> kCodes = {{{11, "the request could not be sent"},
                                          {12, "no reply"},
                                          {13, "the error reply was cut short"},
                                          {14, "the error reply was cut short"},
                                          {15, "the reply was cut short"},
                                          {16, "the reply was cut short"},
                                          {17, "the reply's checksum is wrong"},
                                          {20, "the instrument refused the request: error 0"},
                                          {21, "the instrument refused the request: error 1"},
                                          {22, "the instrument refused the request: error 2"},
                                          {23, "the instrument refused the request: error 3"},
                                          {24, "the instrument refused the request"}}};

bool IsNumber(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(),
                                      [](char digit) { return digit >= '0' && digit <= '9'; });
}

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

// The database read of model 521 counts its codes from 10 higher, so that they cannot be told from
// the refusals.
std::string_view Meaning(const Message& message) {
  if (message.subject == "Error Version") {
    return message.detail == "Read 0" ? "no reply" : "the instrument did not identify itself";
  }
  if (message.subject == "PoitkaReadBD" || message.subject == "BD") return {};
  const std::string_view detail = message.detail;
  const std::string_view digits = detail.substr(detail.find_last_of(' ') + 1);
  if (!IsNumber(digits) || !IsError(message)) return {};
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const auto* code = std::find_if(kCodes.begin(), kCodes.end(),
                                  [&](const Code& known) { return known.number == number; });
  return code == kCodes.end() ? std::string_view{} : code->meaning;
}

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
  if (message.subject == "Nonstop") return "continuous reading";
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

std::optional<std::string> RecordDate(const Message& message) {
  const bool record = message.subject == "Date:hour" || message.subject == "read...";
  return record ? std::optional(message.detail) : std::nullopt;
}

bool IsError(const Message& message) {
  if (message.detail == "ошибка") return true;
  // Sums up the attempts that have told more.
  if (message.detail == "Error Init") return false;
  for (const std::string_view text :
       {std::string_view(message.detail), std::string_view(message.subject)}) {
    if (Contains(text, "Error") || Contains(text, "error") || Contains(text, "not found")) {
      // An instrument that has no such record answers properly.
      return message.subject != "Data not found";
    }
  }
  return IsNumber(message.detail) &&
         std::find(kFailedReads.begin(), kFailedReads.end(), message.subject) != kFailedReads.end();
}

std::string ReasonOf(const Message& message) {
  const std::string_view meaning = Meaning(message);
  return meaning.empty() ? Describe(message) : std::string(meaning);
}

std::string Describe(const Message& message) {
  std::string text = message.subject + ": " + message.detail;
  const std::string_view meaning = Meaning(message);
  if (!meaning.empty()) text += " (" + std::string(meaning) + ")";
  return text;
}

}  // namespace host
