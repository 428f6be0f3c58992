#include "host/output/progress_display.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "host/output/text.h"

namespace host {
namespace {

constexpr std::size_t kBarWidth = 30;
constexpr std::size_t kLeastBarWidth = 5;
constexpr int kAnnouncedEvery = 10;  // percent

std::string Bar(int percent, std::size_t width) {
  const std::size_t filled = static_cast<std::size_t>(percent) * width / 100;
  return '[' + std::string(filled, '#') + std::string(width - filled, '.') + "] ";
}

// "3:05", "1:03:05".
std::string TimeLeft(long long seconds) {
  const long long hours = seconds / 3600, minutes = seconds / 60 % 60;
  return hours > 0 ? fmt::format("{}:{:02}:{:02}", hours, minutes, seconds % 60)
                   : fmt::format("{}:{:02}", minutes, seconds % 60);
}

std::string Words(int percent, const std::string& step, const Progress& progress) {
  std::string words = fmt::format("{:3} %", percent);
  if (progress.secondsLeft) words += fmt::format("  {} left", TimeLeft(*progress.secondsLeft));
  if (progress.rows > 0) words += "  " + CountOf(progress.rows, "row");
  return words + "  " + step;
}

// As many characters as fit.
std::string Cut(std::string text, std::size_t width) {
  while (DisplayWidth(text) > width) {
    std::size_t last = text.size() - 1;
    while (last > 0 && (static_cast<unsigned char>(text[last]) & 0xC0U) == 0x80U) --last;
    text.erase(last);
  }
  return text;
}

}  // namespace

void ProgressDisplay::ShowProgress(const Progress& progress) {
  percent_ = progress.percent < 0 ? percent_ : std::min(progress.percent, 100);
  step_ = progress.step;
  if (screen_.IsTerminal()) {
    Draw(progress);
  } else {
    Announce();
  }
}

// The bar takes a third of the line at most, and none of a narrow one.
void ProgressDisplay::Draw(const Progress& progress) {
  const std::size_t width = screen_.BarWidth();
  const std::size_t bar = std::min(kBarWidth, width / 3);
  std::string text = bar < kLeastBarWidth ? "" : Bar(percent_, bar);
  text = Cut(text + Words(percent_, step_, progress), width);
  if (text == drawn_) return;
  screen_.DrawBar(text);
  drawn_ = std::move(text);
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
