#include "host/reading/scan.h"

#include <fmt/format.h>

#include <mutex>
#include <stdexcept>

#include "host/reading/clock_check.h"
#include "host/reading/driver_run.h"

namespace host {
namespace {

using Kind = ScanAnswer::Kind;

// More than any instrument tells before it is identified: a line that brings this brings noise.
constexpr std::size_t kMostBytes = 256;
// For what an identified instrument still has to tell.
constexpr std::chrono::seconds kPatience{10};

constexpr const char* kEndless = "bytes come without an end, but no reply";
constexpr const char* kLate = "bytes came only when nobody waited for them any more";

// Listens to one question, and knows when there is nothing more to learn.
class Hearing final : public RunListener {
 public:
  Hearing(RunListener& messages, const CountingLine& line) : introduction_(messages), line_(line) {}

  void Tell(const Message& message) override {
    introduction_.Tell(message);
    const std::lock_guard lock(mutex_);
    if (message.subject == "DT") clock_ = true;
    // What nobody has answered yet is silence, and no trouble.
    const bool trouble = IsError(message) && line_.Received() > 0;
    if (trouble && reason_.empty()) reason_ = ReasonOf(message);
  }

  bool Done() const {
    if (!introduction_.Model()) return Endless();
    const std::lock_guard lock(mutex_);
    return !reason_.empty() || (clock_ && introduction_.Serial());
  }
  const Introduction& Told() const { return introduction_; }
  // Once the run has ended; what went wrong, if anything did.
  std::string Reason() const {
    if (!reason_.empty() || introduction_.Model() || !Endless()) return reason_;
    return kEndless;
  }

 private:
  bool Endless() const { return line_.Received() > kMostBytes; }

  Introduction introduction_;
  const CountingLine& line_;
  mutable std::mutex mutex_;
  bool clock_ = false;
  std::string reason_;
};

class Scan {
 public:
  Scan(const DriverLibrary& library, const ScanPlan& plan, const ScanTools& tools,
       ScanListener& listener)
      : library_(library), plan_(plan), tools_(tools), listener_(listener), begun_(tools.now()) {}

  std::vector<ScanAnswer> Run() {
    for (const int number : plan_.numbers) {
      const auto answer = AskNumber(number);
      if (!answer) break;
      answers_.push_back(*answer);
      listener_.TakeAnswer(*answer);
    }
    return std::move(answers_);
  }

 private:
  std::optional<ScanAnswer> AskNumber(int number);
  ScanAnswer Ask(int number, const Way& way);
  bool RunQuestion(const ReadSettings& question, RunListener& clock, const Hearing& hearing);
  void Fill(ScanAnswer& answer, const Hearing& hearing) const;
  void TakeLate(ScanAnswer* before, const Way& way) const;
  void ShowProgress(int number, std::size_t at);
  bool Over() const { return tools_.line.Lost() || tools_.askStop() != StopRequest::kNone; }

  const DriverLibrary& library_;
  const ScanPlan& plan_;
  const ScanTools& tools_;
  ScanListener& listener_;
  const std::chrono::steady_clock::time_point begun_;
  std::vector<ScanAnswer> answers_;
  Way last_{};  // by which was asked before
};

void Scan::ShowProgress(int number, std::size_t at) {
  const Way& way = plan_.ways[at];
  const std::size_t done = answers_.size() * plan_.ways.size() + at;
  const std::size_t all = plan_.numbers.size() * plan_.ways.size();
  Progress progress;
  progress.percent = static_cast<int>(done * 100 / all);
  progress.step =
      fmt::format("asking: number {}, {}, {} bit/s", number, KindName(way.kind), way.baud);
  const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(tools_.now() - begun_);
  const auto left = static_cast<long long>(all - done);
  if (done > 0) progress.secondsLeft = elapsed.count() * left / static_cast<long long>(done) / 1000;
  listener_.ShowProgress(progress);
}

// A byte came after the time limit of the question before.
void Scan::TakeLate(ScanAnswer* before, const Way& way) const {
  if (before == nullptr || before->kind != Kind::kSilent || tools_.line.LateBefore() == 0) return;
  before->kind = Kind::kBroken;
  before->way = way;
  before->reason = kLate;
}

// Returns whether it did not end within the patience.
bool Scan::RunQuestion(const ReadSettings& question, RunListener& clock, const Hearing& hearing) {
  const AskStop askStop = [&] { return hearing.Done() ? StopRequest::kDone : tools_.askStop(); };
  const DriverEnd end = RunDriver(library_, question, tools_.line, clock, askStop);
  if (end.begun || tools_.line.Lost()) return end.waited;
  const std::string trouble = tools_.line.Trouble();
  throw std::runtime_error(trouble.empty() ? "the driver does not start" : trouble);
}

void Scan::Fill(ScanAnswer& answer, const Hearing& hearing) const {
  const Introduction& told = hearing.Told();
  answer.model = told.Model().value_or("");
  answer.version = told.Version().value_or("");
  answer.serial = told.Serial().value_or("");
  if (answer.reason.empty()) answer.reason = hearing.Reason();
  const bool whole = told.Model() && answer.reason.empty();
  if (whole) answer.kind = Kind::kAnswers;
  if (whole || tools_.line.Received() + tools_.line.LateSince() == 0) return;
  answer.kind = Kind::kBroken;
  if (answer.reason.empty()) answer.reason = kLate;
}

ScanAnswer Scan::Ask(int number, const Way& way) {
  ReadSettings settings;
  settings.number = number;
  settings.from = settings.to = tools_.localTime();
  settings = Question(settings, way);
  settings.patience = kPatience;
  Hearing hearing(tools_.messages, tools_.line);
  ClockCheck clock(hearing, settings, tools_.localTime);
  ScanAnswer answer{number, Kind::kSilent, way};
  if (RunQuestion(settings, clock, hearing)) answer.reason = kEndless;
  Fill(answer, hearing);
  answer.clock = clock.Reading();
  return answer;
}

// The first whole answer, else the first broken one. Nothing: the scan is over.
std::optional<ScanAnswer> Scan::AskNumber(int number) {
  ScanAnswer best{number};
  for (std::size_t at = 0; at < plan_.ways.size(); ++at) {
    if (Over()) return best.kind == Kind::kSilent ? std::nullopt : std::optional(best);
    ShowProgress(number, at);
    ScanAnswer answer = Ask(number, plan_.ways[at]);
    const bool first = at == 0;
    TakeLate(!first ? &best : answers_.empty() ? nullptr : &answers_.back(), last_);
    last_ = plan_.ways[at];
    if (answer.kind == Kind::kAnswers) return answer;
    if (best.kind == Kind::kSilent) best = answer;
  }
  if (Over() && best.kind == Kind::kSilent) return std::nullopt;
  return best;
}

}  // namespace

std::vector<ScanAnswer> ScanLine(const DriverLibrary& library, const ScanPlan& plan,
                                 const ScanTools& tools, ScanListener& listener) {
  return Scan(library, plan, tools, listener).Run();
}

}  // namespace host
