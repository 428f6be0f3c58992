#include "host/output/progress_display.h"

#include <fmt/format.h>

#include <algorithm>

namespace host {
namespace {

constexpr int kBarWidth = 30;
constexpr int kAnnouncedEvery = 10;  // percent

std::string Bar(int percent) {
  const auto filled = static_cast<std::size_t>(percent * kBarWidth / 100);
  return std::string(filled, '#') + std::string(kBarWidth - filled, '.');
}

}  // namespace

void ProgressDisplay::ShowProgress(const Progress& progress) {
  const int percent = progress.percent < 0 ? percent_ : std::min(progress.percent, 100);
  if (percent == percent_ && progress.step == step_) return;
  percent_ = percent;
  step_ = progress.step;
  if (screen_.IsTerminal()) {
    screen_.DrawBar(fmt::format("[{}] {:3} %  {}", Bar(percent_), percent_, step_));
  } else {
    Announce();
  }
}

// A line for each new step and for each tenth of the way.
void ProgressDisplay::Announce() {
  const std::string subject = step_.substr(0, step_.find(':'));
  const bool further = percent_ >= announcedPercent_ + kAnnouncedEvery;
  if (subject == announcedStep_ && !further) return;
  announcedStep_ = subject;
  announcedPercent_ = percent_ - percent_ % kAnnouncedEvery;
  screen_.PrintLine(fmt::format("{:3} %  {}", percent_, step_));
}

void ProgressDisplay::EndRun(const RunEnd&) { screen_.TakeBarAway(); }

}  // namespace host
