#include "host/line/reconnecting.h"

#include <algorithm>
#include <array>
#include <exception>
#include <thread>
#include <utility>

namespace host {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kFirstPause{1000};
constexpr milliseconds kLongestPause{30'000};
constexpr milliseconds kLook{20};
// What a gateway kept for the connection before comes at once.
constexpr milliseconds kSilence{200};
constexpr milliseconds kOldLimit{1000};

}  // namespace

Reconnecting::Reconnecting(Open open, LineReport report)
    : open_(std::move(open)), report_(std::move(report)), channel_(open_()) {}

std::string Reconnecting::Trouble() const {
  const std::lock_guard lock(mutex_);
  return trouble_;
}

void Reconnecting::SetTrouble(const std::string& trouble) {
  const std::lock_guard lock(mutex_);
  trouble_ = trouble;
}

// A gateway that takes a connection and closes it, again and again, is asked as rarely as one that
// takes none: only bytes end the growing of the pauses.
void Reconnecting::Break(const std::string& trouble) {
  channel_.reset();
  SetTrouble(trouble);
  next_ = Clock::now() + pause_;
  pause_ = std::clamp(pause_ * 2, kFirstPause, kLongestPause);
  if (report_) report_(trouble + "; connecting again");
}

Transfer Reconnecting::Receive(std::span<char> into, Clock::time_point deadline) {
  if (!channel_) return {};
  const Transfer came = channel_->Receive(into, deadline);
  if (came.count > 0) pause_ = milliseconds(0);
  if (!came.trouble.empty()) Break(came.trouble);
  return {came.count, {}};
}

Transfer Reconnecting::Send(std::span<const char> bytes, Clock::time_point deadline) {
  if (!channel_) {
    const auto limit = deadline - Clock::now();
    if (!Connect()) return {};
    deadline = Clock::now() + limit;
  }
  const Transfer went = channel_->Send(bytes, deadline);
  if (!went.trouble.empty()) Break(went.trouble);
  return {went.count, {}};
}

std::string Reconnecting::Set(const SerialSettings& settings) {
  settings_ = settings;
  return channel_ ? channel_->Set(settings) : std::string();
}

bool Reconnecting::Connect() {
  while (!channel_) {
    if (hurried_) return false;
    if (!opening_.valid() && Clock::now() >= next_) Begin();
    const bool done = opening_.valid() && opening_.wait_for(kLook) == std::future_status::ready;
    if (done && Finish()) return true;
    if (!opening_.valid()) std::this_thread::sleep_for(kLook);
  }
  return true;
}

// An attempt may take seconds, for which a stop does not wait. What came of it goes to the other
// thread as a value: an exception would be owned by both.
void Reconnecting::Begin() {
  std::packaged_task<Opened()> task([open = open_, settings = settings_] {
    try {
      Opened opened{open(), {}};
      if (settings) opened.trouble = opened.channel->Set(*settings);
      return opened;
    } catch (const std::exception& error) {
      return Opened{nullptr, error.what()};
    }
  });
  opening_ = task.get_future();
  std::thread(std::move(task)).detach();
}

bool Reconnecting::Finish() {
  Opened opened = opening_.get();
  SetTrouble(opened.trouble);
  if (opened.channel == nullptr || !opened.trouble.empty()) {
    next_ = Clock::now() + pause_;
    pause_ = std::min(pause_ * 2, kLongestPause);
    return false;
  }
  channel_ = std::move(opened.channel);
  DropOld();
  return channel_ != nullptr;
}

void Reconnecting::DropOld() {
  std::array<char, 256> old{};
  const auto latest = Clock::now() + kOldLimit;
  while (channel_ && Clock::now() < latest) {
    const Transfer came = channel_->Receive(old, Clock::now() + kSilence);
    if (!came.trouble.empty()) return Break(came.trouble);
    if (came.count == 0) return;
  }
}

}  // namespace host
