#include "host/output/progress.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>

#include "host/system/console.h"
#include "host/system/files.h"

namespace host {
namespace {

constexpr int kBarWidth = 30;
constexpr int kAnnouncedEvery = 10;  // percent

std::string Bar(int percent) {
  const auto filled = static_cast<std::size_t>(std::clamp(percent, 0, 100) * kBarWidth / 100);
  return std::string(filled, '#') + std::string(kBarWidth - filled, '.');
}

void Write(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
  std::fflush(stderr);
}

}  // namespace

Progress::Progress() : terminal_(ErrorIsTerminal()) {}

Progress::~Progress() { Clear(); }

void Progress::Update(int percent, const std::string& step) {
  const std::lock_guard lock(mutex_);
  const int shown = percent < 0 ? percent_ : std::min(percent, 100);
  if (shown == percent_ && step == step_) return;
  percent_ = shown;
  step_ = step;
  if (terminal_) {
    Draw();
  } else {
    Announce();
  }
}

void Progress::Draw() {
  Erase();
  Write(fmt::format("[{}] {:3} %  {}", Bar(percent_), percent_, step_));
  drawn_ = true;
}

void Progress::Erase() {
  if (drawn_) Write("\r\x1b[K");
  drawn_ = false;
}

// A line for each new step and for each tenth of the way.
void Progress::Announce() {
  const std::string subject = step_.substr(0, step_.find(':'));
  const bool further = percent_ >= announcedPercent_ + kAnnouncedEvery;
  if (subject == announcedStep_ && !further) return;
  announcedStep_ = subject;
  announcedPercent_ = percent_ - percent_ % kAnnouncedEvery;
  Write(fmt::format("{:3} %  {}\n", percent_, step_));
}

void Progress::Print(const std::string& line) {
  const std::lock_guard lock(mutex_);
  Erase();
  Write(line + '\n');
  if (terminal_ && !step_.empty()) Draw();
}

void Progress::PrintResult(const std::string& text) {
  const std::lock_guard lock(mutex_);
  Erase();
  WriteStandardOutput(text);
}

void Progress::Clear() {
  const std::lock_guard lock(mutex_);
  Erase();
  step_.clear();
}

}  // namespace host
