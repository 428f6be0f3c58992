#include "host/reading/meanings.h"

#include <algorithm>
#include <charconv>

namespace host {
namespace {

// --- Attempts of the older protocol: "2 Error: 12", "2 Error Cmp: 0", "2 Error Valid: 0" ---

// Model 521 asks for some things in two halves and adds 10 to the code when the second one fails.
enum class Halves {
  kOne,
  kReplies,   // all but the sending is the second half: the database of 521
  kRequests,  // a second request, of 521 alone: a code may be of either half
};

struct Attempt {
  std::string_view subject;
  const char* what;
  Halves halves = Halves::kOne;
};

constexpr Attempt kAttempts[] = {
    {"PopitkaTime", "the clock could not be read"},
    {"PoitkaReadBD", "the database could not be read", Halves::kReplies},
    {"PoitkaReadBDOB", "the database could not be read"},
    {"PoitkaReadBDTB", "the database of a heat system could not be read"},
    {"Flash522", "the database could not be read"},
    {"PoitkaReadTek", "the current values could not be read", Halves::kRequests},
    {"PoitkaReadTot", "the totals could not be read"},
    {"PoitkaArh", "an archive record could not be read"},
    {"PoitkaReadIsm", "the log of changes could not be read"},
    {"PoitkaReadSit", "the log of situations could not be read"},
};

struct Code {
  int number;
  const char* why;
};

constexpr Code kCodes[] = {{11, "the request could not be sent"},
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
                           {24, "the instrument refused the request"},
                           {102, "the driver has no room for such a reply"}};
constexpr int kWrite = 11;
constexpr int kChecksum = 17;
constexpr int kFirstRefusal = 20;
constexpr int kLastRefusal = 24;
constexpr int kSecondHalf = 10;

const char* WhyOf(int code) {
  const auto* known = std::find_if(std::begin(kCodes), std::end(kCodes),
                                   [code](const Code& row) { return row.number == code; });
  return known == std::end(kCodes) ? "for a reason that is not known here" : known->why;
}

const char* WhyOf(int code, Halves halves) {
  if (halves == Halves::kReplies && code != kWrite) return WhyOf(code - kSecondHalf);
  if (halves == Halves::kRequests && code > kFirstRefusal) {
    if (code <= kLastRefusal) return "no good reply, or the instrument refused the request";
    return WhyOf(code - kSecondHalf);
  }
  return WhyOf(code);
}

std::string WhyOf(const std::string& detail, Halves halves) {
  if (detail.find("Cmp") != std::string::npos) return "two readings were not the same";
  if (detail.find("Valid") != std::string::npos) return "it did not pass the validity test";
  int code = 0;
  const char* const end = detail.data() + detail.size();
  std::from_chars(detail.data() + detail.find_last_of(' ') + 1, end, code);
  return WhyOf(code, halves);
}

std::optional<Meaning> AttemptMeaning(const Message& message) {
  for (const Attempt& attempt : kAttempts) {
    if (attempt.subject != message.subject) continue;
    return Meaning{true, attempt.what, WhyOf(message.detail, attempt.halves)};
  }
  return std::nullopt;
}

// --- All others ---

enum class Weight {
  kNotice,
  kSummary,  // of messages that have told more
  kError
};

struct Row {
  std::string_view subject;
  std::string_view detail;  // how it begins
  Weight weight;
  const char* what;  // {} stands for the detail
  const char* why = "";
};

constexpr const char* kNotIdentified = "the instrument could not be identified";
constexpr const char* kOtherReply = "the reply was one to another request";
constexpr const char* kUnknownModel = "the driver does not know this model";

// The first row that fits.
constexpr Row kRows[] = {
    {"ReadStop", "Error", Weight::kSummary, "the reading failed"},
    {"Start Opros", "Error Init", Weight::kSummary, kNotIdentified},
    {"PopitkaInit", "", Weight::kSummary, "the attempt to identify the instrument failed"},
    {"Error Version", "Not Write", Weight::kError, kNotIdentified, "the request could not be sent"},
    {"Error Version", "Read %h", Weight::kError, kNotIdentified, kUnknownModel},
    {"Error Version", "Read 0", Weight::kError, kNotIdentified, "no reply"},
    {"Error Version", "Read", Weight::kError, kNotIdentified, "the reply was cut short"},
    {"Error Version", "1", Weight::kError, kNotIdentified, "the reply has another number"},
    {"Error Version", "", Weight::kError, kNotIdentified, "the reply is damaged"},
    {"Version", "X.X.?", Weight::kError, "the driver does not know this version of the instrument"},
    {"DT", "pribor type not found", Weight::kError, "the driver does not know this instrument"},
    {"Init Opros Error ТВ", "", Weight::kSummary, "heat system {} could not be opened"},
    {"Dt", "", Weight::kSummary, "the clock could not be read"},
    {"BD", "Start Read", Weight::kNotice, ""},
    {"BD", "", Weight::kSummary, "the database could not be read"},
    {"Op", "", Weight::kSummary, "the current values could not be read"},
    {"Tek", "", Weight::kSummary, "the current values could not be read"},
    {"Tot", "", Weight::kSummary, "the totals could not be read"},
    {"error", "error len buffer", Weight::kError, "the driver has no room for such a reply"},
    {"Rasmernost", "", Weight::kNotice, "an item of the database that is no value"},
    {"Data not found", "", Weight::kNotice, "the instrument has no such record"},
    {"Чтение нецелесообразно", "", Weight::kNotice, "the heat system is off and is left out"},

    {"Init", "error", Weight::kSummary, kNotIdentified},
    {"warning query", "", Weight::kSummary, "the attempt failed"},
    {"error query", "", Weight::kSummary, "no attempt brought a good reply"},
    {"error read (0)", "ir=0", Weight::kError, "", "no reply"},
    {"error read (0)", "", Weight::kError, "", "the reply was damaged or cut short"},
    {"error read full", "", Weight::kError, "",
     "the line brings bytes without an end, but no reply"},
    {"error start ", "undefined", Weight::kError, kNotIdentified, kUnknownModel},
    {"error start", "", Weight::kError, kNotIdentified, kOtherReply},
    {"error basic", "", Weight::kError, "the database could not be read", kOtherReply},
    {"error dt", "", Weight::kError, "the clock could not be read", kOtherReply},
    {"error oper", "", Weight::kError, "the current values could not be read", kOtherReply},
    {"error total", "", Weight::kError, "the totals could not be read", kOtherReply},
    {"query error", "", Weight::kError, "the records from {} on could not be read",
     "no good reply"},
    {"fn error", "", Weight::kError, "the records from {} on could not be read", kOtherReply},
    {"Чтение не целесообразно", "", Weight::kError,
     "a heat system is off, and no more of it is read"},
    // The driver says the one for the other here.
    {"Чтение БД ОВ", "успешно", Weight::kError, "the database could not be read whole"},
    {"Чтение БД ОВ", "ошибка", Weight::kNotice, "the database was read"},
    {"Чтение БД ТВ", "успешно", Weight::kError,
     "the database of a heat system could not be read whole"},
    {"Чтение БД ТВ", "ошибка", Weight::kNotice, "the database of the heat system was read"},
    {"Чтение помесячных", "ошибка", Weight::kError, "the months could not be read whole"},
    {"Чтение посуточных", "ошибка", Weight::kError, "the days could not be read whole"},
    {"Чтение контрольных", "ошибка", Weight::kError, "the control archive could not be read whole"},
    {"Чтение почасовых", "ошибка", Weight::kError, "the hours could not be read whole"},
    {"Чтение изменений БД", "ошибка", Weight::kError, "the log of changes could not be read whole"},
    {"Чтение событий", "ошибка", Weight::kError, "the log of events could not be read whole"},
};

std::string WithDetail(std::string text, const std::string& detail) {
  const std::size_t place = text.find("{}");
  if (place != std::string::npos) text.replace(place, 2, detail);
  return text;
}

}  // namespace

std::optional<Meaning> MeaningOf(const Message& message) {
  if (auto attempt = AttemptMeaning(message)) return attempt;
  const auto* row = std::find_if(std::begin(kRows), std::end(kRows), [&](const Row& known) {
    return known.subject == message.subject && message.detail.starts_with(known.detail);
  });
  if (row == std::end(kRows) || (*row->what == '\0' && *row->why == '\0')) return std::nullopt;
  return Meaning{row->weight == Weight::kError, WithDetail(row->what, message.detail), row->why};
}

}  // namespace host
