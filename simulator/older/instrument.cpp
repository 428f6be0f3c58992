#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <utility>

#include "simulator/framed_instrument.h"
#include "simulator/model_list.h"
#include "simulator/older/encoding.h"
#include "simulator/older/frame.h"
#include "simulator/older/model.h"
#include "simulator/older/protocol.h"
#include "simulator/older/values.h"

namespace simulator::older {
namespace {

// Error reply codes.
constexpr std::uint8_t kUnknownFunction = 0;
constexpr std::uint8_t kBadParameter = 1;
constexpr std::uint8_t kNothingThere = 2;

constexpr std::size_t kClockSize = 6;

// Longer than the half second that a host waits for a byte.
constexpr std::chrono::milliseconds kAfterHostGaveUp{700};

struct Request {
  explicit Request(const RequestFrame& frame)
      : function(frame[2]), p{frame[3], frame[4], frame[5], frame[6]} {}
  std::uint8_t function;
  std::uint8_t p[4];
  unsigned Word() const { return p[0] + 256u * p[1]; }
};

// Data of a reply, one element for each frame of it; or an error reply's code. The sentence says
// what was wrong with the request, if anything was.
struct Outcome {
  std::vector<Bytes> data;
  std::uint8_t code = 0;
  std::string sentence;
};

Outcome Refuse(std::uint8_t code, std::string sentence) { return {{}, code, std::move(sentence)}; }

// The closing time that an archive request names; parameters that the kind doesn't use are 0.
std::optional<ClockTime> RequestedTime(const Request& request, Archive kind) {
  const bool day = kind != Archive::kMonthly, hour = kind == Archive::kHourly;
  if ((!day && request.p[2] != 0) || (!hour && request.p[3] != 0)) return std::nullopt;
  const ClockTime time{
      1900 + request.p[0], request.p[1], day ? request.p[2] : 1, request.p[3], 0, 0};
  if (!IsDate(time)) return std::nullopt;
  return time;
}

Bytes ClockBytes(const ClockTime& now) {
  Bytes bytes;
  for (const int part : {now.year % 100, now.month, now.day, now.hour, now.minute, now.second}) {
    PutInteger(bytes, static_cast<std::uint32_t>(part), 1);
  }
  return bytes;
}

class OlderInstrument : public FramedInstrument<RequestCollector, RequestFrame> {
 public:
  OlderInstrument(const Settings& settings, Clock now)
      : FramedInstrument(settings.report),
        values_(settings),
        model_(values_.GetModel()),
        memory_(model_.memory(model_, values_)),
        number_(static_cast<std::uint8_t>(settings.number)),
        now_(std::move(now)) {}

 private:
  Exchange Answer(const RequestFrame& frame) override {
    Exchange exchange{Bytes(frame.begin(), frame.end()), {}};
    std::string sentence = FrameError(frame, number_);
    if (sentence.empty()) {
      const Request request(frame);
      Outcome outcome = Handle(request);
      exchange.reply = Reply(request, outcome);
      sentence = std::move(outcome.sentence);
    }
    if (!sentence.empty()) Report("Request " + Hex(frame) + ": " + sentence);
    return exchange;
  }

  std::vector<Part> Reply(const Request& request, const Outcome& outcome) const {
    if (request.function == '?' && outcome.data.empty() && outcome.sentence.empty()) return {};
    if (outcome.data.empty()) return {{{}, ErrorReply(number_, outcome.code)}};
    std::vector<Part> parts(1);
    for (std::size_t i = 0; i < outcome.data.size(); ++i) {
      Bytes frame = DataReply(number_, request.function, outcome.data[i]);
      const bool failing = request.function == 'E' && IsFailingPage(request.Word() + i);
      if (failing) frame = CutErrorReply();
      parts.back().bytes.insert(parts.back().bytes.end(), frame.begin(), frame.end());
      if (failing && i + 1 < outcome.data.size()) parts.push_back({kAfterHostGaveUp, {}});
    }
    return parts;
  }

  bool IsFailingPage(std::size_t page) const {
    const std::optional<int> failing = values_.GetSettings().special.failingPage;
    return failing && static_cast<std::size_t>(*failing) == page;
  }

  // Without its checksum and its end byte.
  Bytes CutErrorReply() const {
    Bytes reply = ErrorReply(number_, kNothingThere);
    reply.resize(4);
    return reply;
  }

  Outcome Handle(const Request& request) {
    switch (request.function) {
      case '?':
        return Identify(request);
      case 'R':
        return ReadMemory(request);
      case 'E':
        return ReadFlash(request);
      case 'H':
        return ReadArchive(request, Archive::kHourly);
      case 'Y':
        return ReadArchive(request, Archive::kDaily);
      case 'M':
        return ReadArchive(request, Archive::kMonthly);
      default:
        return Refuse(kUnknownFunction,
                      fmt::format("the function 0x{:02X} is unknown", request.function));
    }
  }

  // A system that doesn't answer leaves data and sentence empty.
  Outcome Identify(const Request& request) {
    const int system = request.p[0];
    if (request.p[1] != 0 || request.p[2] != 0 || request.p[3] != 0) {
      return Refuse(kBadParameter, "an identification has no parameters P2 to P4");
    }
    if (system > 0 && (model_.systems == 1 || system > model_.systems)) {
      return Refuse(kBadParameter, fmt::format("there is no heat system {}", system));
    }
    if (system > 0 && system == values_.GetSettings().special.silentSystem) return {};
    system_ = std::max(system, 1);
    return {{{model_.family, model_.code, values_.Version()}}, 0, {}};
  }

  Outcome ReadMemory(const Request& request) const {
    const std::size_t count = request.p[2];
    if (request.p[3] != 0) return Refuse(kBadParameter, "a memory read has no parameter P4");
    const ClockTime now = now_();
    if (request.Word() == model_.clockAddress && count == kClockSize) {
      return {{ClockBytes(now)}, 0, {}};
    }
    if (auto data = memory_->Read(request.Word(), count, ToMoment(now))) return {{*data}, 0, {}};
    return Refuse(kNothingThere, fmt::format("no value of {} bytes stands at address 0x{:04X}",
                                             count, request.Word()));
  }

  Outcome ReadFlash(const Request& request) const {
    const std::size_t count = request.p[2];
    if (request.p[3] != 0) return Refuse(kBadParameter, "a flash read has no parameter P4");
    if (count == 0) return Refuse(kBadParameter, "a flash read takes at least one page");
    const auto flash = memory_->Flash(request.Word(), count, ToMoment(now_()));
    if (!flash) {
      return Refuse(kNothingThere, fmt::format("not all of {} flash pages from page {} on exist",
                                               count, request.Word()));
    }
    Outcome outcome;
    for (auto page = flash->begin(); page != flash->end(); page += kPageSize) {
      outcome.data.emplace_back(page, page + kPageSize);
    }
    return outcome;
  }

  Outcome ReadArchive(const Request& request, Archive kind) const {
    const std::optional<ClockTime> time = RequestedTime(request, kind);
    if (!time) return Refuse(kBadParameter, "P1 to P4 are no date of such an archive record");
    const Moment stamp = ToMoment(*time);
    // Nothing is wrong with asking for a record that isn't there.
    if (!Values::Exists(stamp, ToMoment(now_()))) return Refuse(model_.noRecordCode, {});
    return {{memory_->Record(kind, system_, stamp)}, 0, {}};
  }

  Values values_;
  const Model& model_;
  std::unique_ptr<Memory> memory_;
  std::uint8_t number_;
  Clock now_;
  int system_ = 1;  // of the last identification
};

void AnswerError(Exchange& exchange, Random& random) {
  const auto code = static_cast<std::uint8_t>(random.Below(3));
  exchange.reply = {{{}, ErrorReply(exchange.request[1], code)}};
}

constexpr FaultKind kFaults[] = {
    {{"error-reply", "the instrument answers with an error code"}, AnswerError},
};

}  // namespace

constinit const Protocol kProtocol = {
    .models = [] { return InfosOf(AllModels()); },
    .faults = []() -> std::span<const FaultKind> { return kFaults; },
    .make = [](const Settings& settings, Clock now) -> std::unique_ptr<Instrument> {
      return std::make_unique<OlderInstrument>(settings, std::move(now));
    },
};

}  // namespace simulator::older
