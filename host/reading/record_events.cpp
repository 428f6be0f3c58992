#include "host/reading/record_events.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace host {
namespace {

using Kind = RecordEvent::Kind;
using tav::TitleKind;

constexpr std::string_view kStart = "Start Read";

struct SectionWord {
  std::string_view word;
  TitleKind kind;
};
constexpr SectionWord kSectionWords[] = {
    {"BD", TitleKind::kDatabase},   {"Oper", TitleKind::kCurrent}, {"Mon", TitleKind::kMonthly},
    {"Month", TitleKind::kMonthly}, {"Dey", TitleKind::kDaily},    {"Hoyr", TitleKind::kHourly},
    {"Hour", TitleKind::kHourly},   {"Sit", TitleKind::kLog}};

struct Word {
  std::string_view subject;
  Kind kind;
};
constexpr Word kWords[] = {
    {"Ch", Kind::kPart},
    {"Th", Kind::kPart},
    {"Чтение нецелесообразно", Kind::kPartIdle},
    {"Чтение не целесообразно", Kind::kPartIdle},
    {"error query", Kind::kReplyLost},
    {"Op", Kind::kBlockLost},
    {"Tek", Kind::kBlockLost},
    {"Tot", Kind::kBlockLost},
    {"Nonstop", Kind::kCycle},
};
constexpr Word kDatedWords[] = {
    {"DT", Kind::kClock},
    {"Data not found", Kind::kNotHeld},
    {"read...", Kind::kAsked},
    {"fn error", Kind::kAskedInVain},
    {"query error", Kind::kAskedInVain},
};

template <std::size_t N>
const Word* Find(const Word (&words)[N], std::string_view subject) {
  const auto* found = std::find_if(std::begin(words), std::end(words),
                                   [&](const Word& word) { return word.subject == subject; });
  return found == std::end(words) ? nullptr : found;
}

std::string_view After(std::string_view text, std::size_t count) {
  text.remove_prefix(std::min(count, text.size()));
  return text.starts_with(' ') ? text.substr(1) : text;
}

// "Start Read ТВ1 ИЗМ" / "Sit", or "Start Read" / "Month ОВ".
RecordEvent SectionStart(const Message& message) {
  const std::string_view subject = message.subject;
  const std::size_t blank = std::min(subject.find(' '), subject.size());
  const auto* word = std::find_if(
      std::begin(kSectionWords), std::end(kSectionWords),
      [&](const SectionWord& known) { return known.word == subject.substr(0, blank); });
  if (word == std::end(kSectionWords)) return {};
  const std::string_view own = After(message.detail, kStart.size());
  return {.kind = Kind::kSection,
          .titleKind = word->kind,
          .text = std::string(own.empty() ? After(subject, blank) : own)};
}

// K7's steps: "..." begins one, "успешно" and "ошибка" end it. Those of its databases are told the
// other way round, and tell of single questions only.
RecordEvent K7Step(const Message& message) {
  const bool database = message.subject.starts_with("Чтение БД");
  if (message.detail == "...") {
    if (!database) return {};
    const bool common = message.subject.ends_with("ОВ");
    return {.kind = Kind::kSection, .titleKind = TitleKind::kDatabase, .text = common ? "ОБЩ" : ""};
  }
  if (database || message.detail == "успешно") return {.kind = Kind::kSectionDone};
  return {.kind = message.detail == "ошибка" ? Kind::kSectionLost : Kind::kNone};
}

// Takes a number from the front of a text.
std::optional<int> TakeNumber(std::string_view& text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || number < 0) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

// "3 Error: 12", "3 Error Cmp: 0", or the attempt alone.
RecordEvent AttemptOf(const Message& message) {
  std::string_view rest = message.detail;
  const auto number = TakeNumber(rest);
  if (!number || !(rest.empty() || rest.starts_with(" Error"))) return {};
  RecordEvent event{.kind = Kind::kAttempt};
  event.number = *number;
  constexpr std::string_view kCode = " Error: ";
  if (rest.starts_with(kCode)) {
    rest.remove_prefix(kCode.size());
    event.code = TakeNumber(rest).value_or(0);
  }
  return event;
}

RecordEvent DatedEvent(Kind kind, const Message& message) {
  RecordEvent event;
  event.date = ParseDriverDate(message.detail);
  if (event.date) event.kind = kind;
  return event;
}

}  // namespace

std::optional<TAVDT> ParseDriverDate(std::string_view text) {
  std::array<int, 6> parts{};
  for (int& part : parts) {
    if (&part != parts.data() && !text.empty()) text.remove_prefix(1);
    const auto number = TakeNumber(text);
    if (!number) return std::nullopt;
    part = *number;
  }
  return TAVDT{static_cast<unsigned short>(parts[0]), static_cast<unsigned char>(parts[1]),
               static_cast<unsigned char>(parts[2]),  static_cast<unsigned char>(parts[3]),
               static_cast<unsigned char>(parts[4]),  static_cast<unsigned char>(parts[5])};
}

RecordEvent EventOf(const Message& message) {
  if (message.detail.starts_with(kStart)) return SectionStart(message);
  if (message.subject.starts_with("Чтение ") && !message.detail.starts_with("СП") &&
      !message.detail.starts_with("ТВ")) {
    return K7Step(message);
  }
  if (message.subject == "Init Opros Error ТВ") {
    return {.kind = Kind::kPartFailed, .text = std::string("ТВ").append(message.detail)};
  }
  // "ТВ1 Тотальный" / "Oper"
  if (message.subject == "Oper") {
    return {.kind = Kind::kSection, .titleKind = TitleKind::kCurrent, .text = message.detail};
  }
  if (const Word* word = Find(kDatedWords, message.subject)) return DatedEvent(word->kind, message);
  if (const Word* word = Find(kWords, message.subject)) {
    return {.kind = word->kind, .text = message.detail};
  }
  return AttemptOf(message);
}

}  // namespace host
