#include "host/line/rfc2217.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include "host/line/serial.h"

namespace host {
namespace {

using std::chrono::seconds;
using Byte = unsigned char;

// RFC 854.
constexpr Byte kSubEnd = 240, kSubBegin = 250, kWill = 251, kWont = 252, kDo = 253, kDont = 254,
               kEscape = 255;
// Options: RFC 856, 858, 2217.
constexpr Byte kBinary = 0, kSuppressGoAhead = 3, kComPort = 44;
// Of RFC 2217; the gateway confirms each with the number 100 above.
constexpr Byte kBaud = 1, kDataBits = 2, kParity = 3, kStopBits = 4, kControl = 5;
constexpr Byte kConfirmed = 100, kNoFlowControl = 1;

constexpr seconds kAnswerLimit{5};
constexpr std::size_t kLongestSub = 64;  // of those that matter, all are shorter

bool IsWanted(Byte option) {
  return option == kBinary || option == kSuppressGoAhead || option == kComPort;
}

// 255 stands twice where it is a value.
std::string Escaped(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    text += byte;
    if (static_cast<Byte>(byte) == kEscape) text += byte;
  }
  return text;
}

std::string Letters(std::initializer_list<unsigned> bytes) {
  std::string text;
  for (const unsigned byte : bytes) text += static_cast<char>(byte);
  return text;
}

std::string Subnegotiation(Byte command, const std::string& value) {
  return Letters({kEscape, kSubBegin, kComPort, command}) + Escaped(value) +
         Letters({kEscape, kSubEnd});
}

struct Wish {
  Byte command;
  std::string value;  // as the option writes it
  const char* name;
};

std::vector<Wish> WishesFor(const SerialSettings& settings) {
  constexpr unsigned kParities[] = {1, 2, 3};
  constexpr unsigned kStops[] = {1, 3, 2};
  const auto known = [](int code) { return code == 1 || code == 2 ? code : 0; };
  const auto baud = static_cast<unsigned>(settings.baud);
  return {{kBaud, Letters({baud >> 24, baud >> 16 & 0xFF, baud >> 8 & 0xFF, baud & 0xFF}), "speed"},
          {kDataBits, Letters({static_cast<unsigned>(settings.dataBits)}), "number of data bits"},
          {kParity, Letters({kParities[known(settings.parity)]}), "parity"},
          {kStopBits, Letters({kStops[known(settings.stopBits)]}), "number of stop bits"}};
}

class Rfc2217 final : public Channel {
 public:
  explicit Rfc2217(std::unique_ptr<Channel> connection) : connection_(std::move(connection)) {}

  // Empty when the gateway has the option.
  std::string Negotiate();

  Transfer Receive(std::span<char> into, Clock::time_point deadline) override;
  Transfer Send(std::span<const char> bytes, Clock::time_point deadline) override;
  std::string Set(const SerialSettings& settings) override;

 private:
  enum class State { kData, kEscaped, kVerb, kSub, kSubEscaped };
  enum class Offer { kOpen, kTaken, kRefused };

  template <class Ready>
  std::string AwaitAnswer(Ready ready);
  std::string Say(const std::string& bytes);
  bool Take(Byte byte, char& data);
  void TakeEscaped(Byte byte, bool& isData);
  void TakeVerb(Byte option);
  void TakeSub(Byte byte);
  void EndSub();
  std::string Refusal(const std::vector<Wish>& wishes) const;

  std::unique_ptr<Channel> connection_;
  State state_ = State::kData;
  Byte verb_ = 0;
  std::string sub_;
  Offer offer_{};
  std::array<std::string, kControl + 1> confirmed_{};  // by command; empty: not yet
  std::string replies_;                                // to the gateway, not sent yet
  std::string halfSent_;                               // the second half of an escaped byte
};

std::string Rfc2217::Say(const std::string& bytes) {
  const Transfer went = connection_->Send(bytes, Clock::now() + kAnswerLimit);
  if (!went.trouble.empty()) return went.trouble;
  return went.count == bytes.size() ? "" : "the gateway takes no bytes";
}

// What else comes meanwhile is none of a reply: nobody has asked.
template <class Ready>
std::string Rfc2217::AwaitAnswer(Ready ready) {
  const auto latest = Clock::now() + kAnswerLimit;
  std::array<char, 256> ignored{};
  while (!ready() && Clock::now() < latest) {
    const Transfer came = Receive(ignored, std::min(latest, Clock::now() + kAnswerLimit / 50));
    if (!came.trouble.empty()) return came.trouble;
  }
  return {};
}

std::string Rfc2217::Negotiate() {
  const std::string trouble =
      Say(Letters({kEscape, kWill, kComPort, kEscape, kWill, kBinary, kEscape, kDo, kBinary,
                   kEscape, kWill, kSuppressGoAhead, kEscape, kDo, kSuppressGoAhead}));
  if (!trouble.empty()) return trouble;
  const std::string closed = AwaitAnswer([this] { return offer_ != Offer::kOpen; });
  if (!closed.empty()) return closed;
  if (offer_ == Offer::kTaken) return {};
  const char* const how = offer_ == Offer::kRefused ? "refuses" : "does not answer";
  return fmt::format("the gateway {} RFC 2217, by which it would be set; tcp: needs none of it",
                     how);
}

std::string Rfc2217::Set(const SerialSettings& settings) {
  const std::vector<Wish> wishes = WishesFor(settings);
  std::string request;
  for (const Wish& wish : wishes) request += Subnegotiation(wish.command, wish.value);
  request += Subnegotiation(kControl, Letters({kNoFlowControl}));
  confirmed_ = {};
  const std::string trouble = Say(request);
  if (!trouble.empty()) return trouble;
  const std::string closed = AwaitAnswer([&] {
    return std::none_of(wishes.begin(), wishes.end(),
                        [&](const Wish& wish) { return confirmed_[wish.command].empty(); });
  });
  return closed.empty() ? Refusal(wishes) : closed;
}

std::string Rfc2217::Refusal(const std::vector<Wish>& wishes) const {
  for (const Wish& wish : wishes) {
    const std::string& confirmed = confirmed_[wish.command];
    if (confirmed.empty()) return fmt::format("the gateway does not confirm the {}", wish.name);
    if (confirmed != wish.value) return fmt::format("the gateway takes another {}", wish.name);
  }
  return {};
}

Transfer Rfc2217::Receive(std::span<char> into, Clock::time_point deadline) {
  for (;;) {
    Transfer came = connection_->Receive(into, deadline);
    std::size_t data = 0;
    for (std::size_t i = 0; i < came.count; ++i) {
      char byte = 0;
      if (Take(static_cast<Byte>(into[i]), byte)) into[data++] = byte;
    }
    if (!replies_.empty() && came.trouble.empty()) came.trouble = Say(std::exchange(replies_, {}));
    if (data > 0 || !came.trouble.empty() || came.count == 0) return {data, came.trouble};
  }
}

// Returns whether the byte is data.
bool Rfc2217::Take(Byte byte, char& data) {
  data = static_cast<char>(byte);
  bool isData = false;
  switch (state_) {
    case State::kData:
      if (byte != kEscape) return true;
      state_ = State::kEscaped;
      break;
    case State::kEscaped:
      TakeEscaped(byte, isData);
      break;
    case State::kVerb:
      TakeVerb(byte);
      break;
    case State::kSub:
    case State::kSubEscaped:
      TakeSub(byte);
      break;
  }
  return isData;
}

// Other commands are one byte, and nothing to a serial line.
void Rfc2217::TakeEscaped(Byte byte, bool& isData) {
  isData = byte == kEscape;
  verb_ = byte;
  state_ = State::kData;
  if (byte >= kWill && byte <= kDont) state_ = State::kVerb;
  if (byte == kSubBegin) {
    state_ = State::kSub;
    sub_.clear();
  }
}

// What was asked for here needs no answer when it is taken; what is not known here is refused.
void Rfc2217::TakeVerb(Byte option) {
  state_ = State::kData;
  if (option == kComPort && offer_ == Offer::kOpen) {
    if (verb_ == kDo) offer_ = Offer::kTaken;
    if (verb_ == kDont) offer_ = Offer::kRefused;
  }
  if (IsWanted(option)) return;
  if (verb_ == kWill) replies_ += Letters({kEscape, kDont, option});
  if (verb_ == kDo) replies_ += Letters({kEscape, kWont, option});
}

void Rfc2217::TakeSub(Byte byte) {
  const bool escaped = state_ == State::kSubEscaped;
  if (!escaped && byte == kEscape) {
    state_ = State::kSubEscaped;
    return;
  }
  state_ = State::kSub;
  if (escaped && byte != kEscape) return EndSub();
  if (sub_.size() < kLongestSub) sub_ += static_cast<char>(byte);
}

void Rfc2217::EndSub() {
  state_ = State::kData;
  if (sub_.size() < 3 || static_cast<Byte>(sub_[0]) != kComPort) return;
  const unsigned command = static_cast<Byte>(sub_[1]);
  if (command > kConfirmed && command - kConfirmed < confirmed_.size()) {
    confirmed_[command - kConfirmed] = sub_.substr(2);
  }
}

// A byte counts when its first half went: the other one goes before the next.
Transfer Rfc2217::Send(std::span<const char> bytes, Clock::time_point deadline) {
  const std::string begun = std::exchange(halfSent_, {});
  const std::string text = begun + Escaped({bytes.data(), bytes.size()});
  const Transfer went = connection_->Send(text, deadline);
  if (went.count < begun.size()) {
    halfSent_ = begun;
    return {0, went.trouble};
  }
  std::size_t at = begun.size();
  std::size_t count = 0;
  for (; count < bytes.size() && at < went.count; ++count) {
    at += static_cast<Byte>(bytes[count]) == kEscape ? 2U : 1U;
  }
  if (at > went.count) halfSent_ = Letters({kEscape});
  return {count, went.trouble};
}

}  // namespace

std::unique_ptr<Channel> NegotiateRfc2217(std::unique_ptr<Channel> connection,
                                          const std::string& name) {
  auto channel = std::make_unique<Rfc2217>(std::move(connection));
  const std::string trouble = channel->Negotiate();
  if (!trouble.empty()) throw std::runtime_error(fmt::format("{}: {}", name, trouble));
  return channel;
}

}  // namespace host
