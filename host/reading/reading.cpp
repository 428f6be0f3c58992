#include "host/reading/reading.h"

#include <algorithm>
#include <cctype>

#include "host/reading/assembler.h"
#include "host/reading/clock_check.h"
#include "host/reading/driver_run.h"
#include "host/reading/patience.h"

namespace host {
namespace {

// Makes one reading of several runs of the driver.
class Reading {
 public:
  Reading(const DriverLibrary& library, const ReadSettings& asked, LinePort& line,
          RunListener& listener, const AskStop& askStop, KnownRecords* known)
      : library_(library),
        asked_(asked),
        line_(line),
        askStop_(askStop),
        assembler_(listener, asked, known) {}

  const UnitSettings& Units() const { return assembler_.Units(); }
  void Plan(KnownInstrument instrument) { assembler_.Plan(std::move(instrument)); }
  SYSTEMTIME From() const;
  RunEnd Run();

 private:
  void Begin();
  DriverEnd RunOnce(const ReadSettings& settings);
  DriverEnd Fill(const ReadSettings& gap);
  bool FillGaps();
  void AskAgain();
  bool IsOver(const DriverEnd& run) const;
  std::string FailureReason() const;
  Ending EndingOf(const std::vector<SectionAccount>& accounts) const;

  const DriverLibrary& library_;
  const ReadSettings& asked_;
  LinePort& line_;
  const AskStop& askStop_;
  Assembler assembler_;
  std::size_t ignored_ = 0;
  bool idle_ = false;    // there was nothing to read
  DriverEnd first_;      // the run that was to bring everything, or the first of what is wanted
  std::string refusal_;  // of the listener
};

DriverEnd Reading::RunOnce(const ReadSettings& settings) {
  assembler_.BeginDriverRun(settings);
  const AskStop askStop = [this] {
    return assembler_.MeetsAnother() ? StopRequest::kDone : askStop_();
  };
  DriverEnd end = RunDriver(library_, settings, line_, assembler_, askStop);
  assembler_.EndDriverRun();
  ignored_ += end.counts.ignored;
  if (refusal_.empty()) refusal_ = end.status.refusal;
  return end;
}

bool Reading::IsOver(const DriverEnd& run) const {
  return !run.begun || run.waited || line_.Lost() || !refusal_.empty() ||
         assembler_.MeetsAnother() || askStop_() != StopRequest::kNone;
}

// A run that broke off before it came to what it is for is made once more.
DriverEnd Reading::Fill(const ReadSettings& gap) {
  const std::size_t missing = assembler_.Records().Missing();
  const DriverEnd run = RunOnce(gap);
  const bool broke = run.status.succeeded != true && assembler_.Records().Missing() == missing;
  return broke && !IsOver(run) ? RunOnce(gap) : run;
}

// Where what is wanted begins.
SYSTEMTIME Reading::From() const {
  SYSTEMTIME from = asked_.from;
  bool any = false;
  for (const ReadSettings& run : assembler_.Records().Gaps()) {
    if (!any || IsEarlier(TavOf(run.from), TavOf(from))) from = run.from;
    any = true;
  }
  return from;
}

// An instrument that was not expected is read by what is known of it.
void Reading::Begin() {
  constexpr int kMostPlans = 3;
  for (int plans = 0; plans < kMostPlans; ++plans) {
    if (assembler_.MeetsAnother()) assembler_.PlanForOther();
    const auto run = assembler_.Records().FirstRun();
    idle_ = !run;
    if (idle_) return;
    first_ = RunOnce(*run);
    if (!assembler_.MeetsAnother()) return;
  }
}

// Asks for what is missing. An instrument that does not even tell its model any more, several times
// in a row, is left alone.
bool Reading::FillGaps() {
  constexpr int kMostInVain = 2;
  int inVain = 0;
  for (const ReadSettings& gap : assembler_.Records().Gaps()) {
    const DriverEnd run = Fill(gap);
    inVain = run.status.identified ? 0 : inVain + 1;
    if (IsOver(run) || inVain == kMostInVain) return false;
  }
  return true;
}

// The first of what went wrong: the file that could not be written, the line, the instrument.
std::string Reading::FailureReason() const {
  if (!refusal_.empty()) return refusal_;
  if (!line_.Trouble().empty()) return line_.Trouble();
  if (assembler_.MeetsAnother()) return "another instrument answers each time";
  if (!first_.begun) return "the reading could not be started";
  if (first_.waited) return SilenceReason(asked_);
  const std::string& error = first_.status.lastError;
  return error.empty() ? "the driver gave no reason" : error;
}

Ending Reading::EndingOf(const std::vector<SectionAccount>& accounts) const {
  if (idle_) return Ending::kRead;
  if (!first_.begun || line_.Lost() || !refusal_.empty()) return Ending::kFailed;
  const bool gaps = std::any_of(accounts.begin(), accounts.end(),
                                [](const SectionAccount& account) { return account.failed > 0; });
  if (askStop_() == StopRequest::kInterrupted) return Ending::kInterrupted;
  if (askStop_() == StopRequest::kDone) return Ending::kRead;
  // A run that broke off has told why; what it left out may have come when it was asked for again.
  const bool brokeOff = first_.waited || first_.status.succeeded != true;
  if (brokeOff && (gaps || accounts.empty())) return Ending::kFailed;
  return gaps ? Ending::kGaps : Ending::kRead;
}

// A round that brings something does not count while there is what was never asked for before: a
// reading that breaks off again and again comes to its end. Where only what lacks is wanted, the
// first round is none that asks again.
void Reading::AskAgain() {
  const Ledger& records = assembler_.Records();
  if (records.HasUnasked() && records.IsOfGaps() && !FillGaps()) return;
  for (int rounds = 0; rounds < asked_.retryGaps;) {
    const bool unasked = records.HasUnasked();
    const std::size_t missing = records.Missing();
    if (!FillGaps()) return;
    if (!unasked || records.Missing() == missing) ++rounds;
  }
}

RunEnd Reading::Run() {
  Begin();
  const bool complete = asked_.follow || IsOver(first_) || !assembler_.Records().Identified();
  if (!complete) AskAgain();
  RunEnd end;
  if (!asked_.follow) end.accounts = assembler_.Records().Accounts();
  end.ending = EndingOf(end.accounts);
  if (end.ending == Ending::kFailed) end.reason = FailureReason();
  if (end.ending == Ending::kInterrupted) end.reason = "interrupted";
  end.counts = assembler_.Counts();
  end.counts.ignored = ignored_;
  return end;
}

}  // namespace

RunEnd RunReading(const DriverLibrary& library, const Run& run, LinePort& line,
                  RunListener& listener, const AskStop& askStop, KnownRecords* known,
                  const std::function<SYSTEMTIME()>& now) {
  ReadSettings asked = *run.settings;
  // A small letter asks for the same, but for the hours of the older protocol, which it leaves out.
  for (char& letter : asked.groups) letter = static_cast<char>(std::toupper(letter));
  ClockCheck clock(listener, asked, now);
  Reading reading(library, asked, line, clock, askStop, known);
  Run told = run;
  if (known != nullptr) {
    reading.Plan(known->ReadLast(run));
    told.settings->from = reading.From();
  }
  told.units = &reading.Units();
  listener.BeginRun(told);
  RunEnd end = reading.Run();
  end.clock = clock.Reading();
  end.lineCounts = line.Counts();
  listener.EndRun(end);
  return end;
}

}  // namespace host
