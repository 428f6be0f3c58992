#include "host/reading/progress_meter.h"

#include <algorithm>

namespace host {
namespace {

// Before there is so much behind, the pace says nothing.
constexpr int kLeastPercent = 3;
constexpr std::chrono::seconds kLeastTime{5};

}  // namespace

void ProgressMeter::BeginRun(const Run& run) {
  begun_ = now_();
  endless_ = run.settings && run.settings->follow;
  if (run.settings && run.settings->kind == tav::Mode::kK7) k7_.emplace(*run.settings);
  Wrapped().BeginRun(run);
}

void ProgressMeter::AddRow(const Section& section, const Cells& cells) {
  ++last_.rows;
  Wrapped().AddRow(section, cells);
}

void ProgressMeter::Tell(const Message& message) {
  if (k7_) k7_->Take(message);
  Wrapped().Tell(message);
}

// What is asked for again, and other parts of the instrument, may be counted from the beginning:
// people do not want to see that.
void ProgressMeter::ShowProgress(const Progress& progress) {
  const int percent = k7_ ? k7_->Percent() : std::min(progress.percent, 100);
  last_.percent = std::max(last_.percent, percent);
  last_.step = progress.step;
  last_.secondsLeft = SecondsLeft(last_.percent);
  Wrapped().ShowProgress(last_);
}

std::optional<long long> ProgressMeter::SecondsLeft(int percent) const {
  const auto passed = std::chrono::duration_cast<std::chrono::seconds>(now_() - begun_);
  if (endless_ || percent < kLeastPercent || percent > 99 || passed < kLeastTime) return {};
  return passed.count() * (100 - percent) / percent;
}

void ProgressMeter::EndRun(const RunEnd& end) {
  if (end.ending == Ending::kRead || end.ending == Ending::kGaps) {
    last_.percent = 100;
    last_.secondsLeft.reset();
    Wrapped().ShowProgress(last_);
  }
  Wrapped().EndRun(end);
}

}  // namespace host
