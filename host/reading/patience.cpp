#include "host/reading/patience.h"

#include <fmt/format.h>

#include <algorithm>

namespace host {
namespace {

using std::chrono::seconds;

constexpr int kUsualSpeed = 2400;             // bit/s, of both kinds
constexpr std::size_t kLongestReply = 65536;  // bytes
constexpr std::size_t kBitsPerByte = 11;

bool IsFailedAttempt(const Message& message) {
  return IsError(message) || message.subject == "warning query";
}

// An attempt that the user wants to be that late is not waited for in vain.
seconds LimitOf(const ReadSettings& settings) {
  if (settings.patience == seconds(0)) return seconds(0);
  return settings.patience + std::chrono::ceil<seconds>(std::chrono::milliseconds(settings.pause));
}

}  // namespace

Patience::Patience(const ReadSettings& settings, Clock::time_point now)
    : limit_(LimitOf(settings)), baud_(settings.baud.value_or(kUsualSpeed)), aliveAt_(now) {}

bool Patience::IsOver(std::size_t received, Clock::time_point now) {
  if (gotOn_.exchange(false) && received > receivedThen_) {
    aliveAt_ = now;
    receivedThen_ = received;
  }
  if (limit_ == seconds(0)) return false;
  const std::size_t bytes = std::min(received - receivedThen_, kLongestReply);
  const seconds onTheLine(bytes * kBitsPerByte / static_cast<std::size_t>(baud_));
  return now - aliveAt_ > limit_ + onTheLine;
}

void PatientListener::AddPiece(ByteView piece) {
  patience_.GetOn();
  Wrapped().AddPiece(piece);
}

void PatientListener::Tell(const Message& message) {
  if (!IsFailedAttempt(message)) patience_.GetOn();
  Wrapped().Tell(message);
}

std::string LikelyCauses(const ReadSettings& settings) {
  return fmt::format(
      "likely causes: another network number than {}, another kind than {}, another speed than {} "
      "bit/s, the wiring",
      settings.number, KindName(settings.kind), settings.baud.value_or(kUsualSpeed));
}

std::string SilenceReason(const ReadSettings& settings) {
  return fmt::format("nothing has come from the instrument for {}; {}", TimeText(LimitOf(settings)),
                     LikelyCauses(settings));
}

std::string TimeText(seconds time) {
  const auto count = time.count();
  if (count < 120) return count == 60 ? "1 min" : fmt::format("{} s", count);
  if (count < 3600) return fmt::format("{} min", count / 60);
  // Up to two days.
  if (count < 172'800) return fmt::format("{} h {} min", count / 3600, count / 60 % 60);
  return fmt::format("{} d", count / 86400);
}

}  // namespace host
