#include <fmt/core.h>

#include <algorithm>
#include <utility>

#include "simulator/framed_instrument.h"
#include "simulator/k7/faults.h"
#include "simulator/k7/frame.h"
#include "simulator/k7/items.h"
#include "simulator/k7/protocol.h"
#include "simulator/k7/requests.h"
#include "simulator/k7/values.h"
#include "simulator/model_list.h"

namespace simulator::k7 {
namespace {

constexpr std::uint8_t kIdentify = 0x3F;
constexpr std::uint8_t kReadParameters = 0x72;
constexpr std::uint8_t kReadArchive = 0x61;

// Parameters on channel 0 beside the database and the values.
constexpr int kTime = 0x0400;
constexpr int kDate = 0x0401;
constexpr int kSettingA = 0x2040;
constexpr int kSettingB = 0x2026;

void PutField(Bytes& bytes, const Field& field, const Row& row) {
  const double value = row.at(field.name);
  switch (field.kind) {
    case Field::kState:
      return PutUInt(bytes, static_cast<std::uint32_t>(value), 1);
    case Field::kFloat:
      return PutFloat(bytes, value);
    case Field::kIntFloat:
      return PutIntFloat(bytes, value);
    case Field::kCode:
      return PutUInt(bytes, static_cast<std::uint32_t>(value), 4);
  }
}

std::string HexOf(const Bytes& bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) {
    text += fmt::format("{}{:02X}", text.empty() ? "" : " ", byte);
  }
  return text;
}

class K7Instrument : public FramedInstrument<RequestCollector, Bytes> {
 public:
  K7Instrument(const Settings& settings, Clock now)
      : FramedInstrument(settings.report), values_(settings), now_(std::move(now)) {}

 private:
  Exchange Answer(const Bytes& bytes) override {
    complaint_.clear();
    Exchange exchange{bytes, {}};
    const std::optional<Frame> request = Parse(bytes);
    if (!request) {
      complaint_ = "its check sum or its fifth byte is wrong";
    } else if (IsMeant(*request)) {
      if (auto data = Handle(*request)) exchange.reply = {{{}, Reply(*request, std::move(*data))}};
    }
    if (!complaint_.empty()) Report("Request " + HexOf(bytes) + ": " + complaint_);
    return exchange;
  }

  bool IsMeant(const Frame& request) {
    if (request.address != values_.GetSettings().number) {
      complaint_ = fmt::format("it is meant for number {}", request.address);
      return false;
    }
    if (!request.isLong) return true;
    // A request is repeated under its number, and the next one has the next number.
    const bool first = collector_.WasWoken() || !sequence_;
    const auto next = static_cast<std::uint8_t>(first ? 0 : *sequence_ + 1);
    if (!first && request.sequence != next && request.sequence != *sequence_) {
      complaint_ = fmt::format("the sequence number {} follows {}", request.sequence, *sequence_);
    }
    sequence_ = request.sequence;
    return true;
  }

  // A short reply has no room for data: a host takes it with the byte behind it.
  static Bytes Reply(const Frame& request, Bytes data) {
    Frame reply = request;
    reply.data = request.isLong ? std::move(data) : Bytes{};
    Bytes bytes = Build(reply);
    if (!request.isLong) bytes.push_back(0xFF);
    return bytes;
  }

  // Nothing: no answer.
  std::optional<Bytes> Handle(const Frame& request) {
    switch (request.command) {
      case kIdentify:
        return Identify(request.data);
      case kReadParameters:
        return ReadParameters(request.data);
      case kReadArchive:
        return ReadArchive(request.data);
      default:
        complaint_ = fmt::format("the command 0x{:02X} is unknown", request.command);
        return std::nullopt;
    }
  }

  Bytes Identify(const Bytes& data) {
    if (data != Bytes(4)) complaint_ = "an identification carries four zero bytes";
    const std::uint16_t code = values_.GetModel().code;
    return {static_cast<std::uint8_t>(code), static_cast<std::uint8_t>(code >> 8), 0,
            values_.Version()};
  }

  std::optional<Bytes> ReadParameters(const Bytes& data) {
    const auto references = ParseReferences(data);
    if (!references) {
      complaint_ = "its data are no parameter references";
      return std::nullopt;
    }
    Bytes reply;
    for (const Reference& reference : *references) PutParameter(reply, reference);
    return reply;
  }

  void PutParameter(Bytes& reply, const Reference& reference) {
    if (reference.channel == 0 && PutOther(reply, reference.number)) return;
    if (PutValue(reply, reference)) return;
    if (const auto text = values_.ParameterText(reference.channel, reference.number)) {
      return PutText(reply, *text);
    }
    complaint_ = fmt::format("there is no parameter 0x{:04X} on channel {}", reference.number,
                             reference.channel);
    PutText(reply, "");
  }

  // The clock and the two settings.
  bool PutOther(Bytes& reply, int number) const {
    switch (number) {
      case kTime:
        PutTime(reply, now_());
        return true;
      case kDate:
        PutDate(reply, now_());
        return true;
      case kSettingA:
        PutUInt(reply, Values::SettingA(), 4);
        return true;
      case kSettingB:
        PutUInt(reply, Values::SettingB(), 2);
        return true;
      default:
        return false;
    }
  }

  // Current values and totals.
  bool PutValue(Bytes& reply, const Reference& reference) const {
    if (!values_.HasSystem(reference.channel)) return false;
    const Model& model = values_.GetModel();
    const auto put = [&](int first, Fields fields, Row (Values::*row)(int, Moment) const) {
      const int index = reference.number - first;
      if (index < 0 || index >= static_cast<int>(fields.size())) return false;
      PutField(reply, fields[static_cast<std::size_t>(index)],
               (values_.*row)(reference.channel, ToMoment(now_())));
      return true;
    };
    return put(model.current, model.currentFields, &Values::CurrentRow) ||
           put(model.totals, model.totalsFields, &Values::TotalsRow);
  }

  std::optional<Bytes> ReadArchive(const Bytes& data) {
    const auto request = ParseArchiveRequest(data);
    if (!request) {
      complaint_ = "its data are no archive request";
      return std::nullopt;
    }
    if (!values_.HasSystem(request->channel)) {
      complaint_ = fmt::format("there is no system {}", request->channel);
      return std::nullopt;
    }
    if (request->kind == Archive::kChanges || request->kind == Archive::kEvents) {
      return Log(*request);
    }
    return Periodic(*request);
  }

  // The record of the first moment; hosts ask for one at a time.
  Bytes Periodic(const ArchiveRequest& request) const {
    const Moment begin = Values::BeginOf(request.kind, request.from);
    Bytes reply;
    if (begin <= request.to && Values::Exists(request.kind, begin, ToMoment(now_()))) {
      PutRecord(reply, ToClockTime(begin), Record(request, begin));
    }
    return reply;
  }

  Bytes Record(const ArchiveRequest& request, Moment begin) const {
    const Model& model = values_.GetModel();
    const Row row = values_.ArchiveRow(request.kind, request.channel, begin);
    Bytes values;
    if (model.datedRecords) {
      PutTime(values, ToClockTime(begin));
      PutDate(values, ToClockTime(begin));
    }
    for (const Field& field : request.kind == Archive::kControl ? model.control : model.periodic) {
      PutField(values, field, row);
    }
    return values;
  }

  Bytes Log(const ArchiveRequest& request) const {
    Bytes reply;
    for (const LogEntry& entry : values_.Log(request.kind, request.channel, ToMoment(now_()))) {
      const Moment time = ToMoment(entry.time);
      if (time < request.from || time > request.to) continue;
      Bytes text;
      PutText(text, entry.text);
      PutRecord(reply, entry.time, text);
    }
    return reply;
  }

  Values values_;
  Clock now_;
  std::optional<std::uint8_t> sequence_;  // of the last request
  std::string complaint_;                 // what is wrong with the request at hand
};

}  // namespace

constinit const Protocol kProtocol = {
    .models = [] { return InfosOf(AllModels()); },
    .faults = Faults,
    .make = [](const Settings& settings, Clock now) -> std::unique_ptr<Instrument> {
      return std::make_unique<K7Instrument>(settings, std::move(now));
    },
};

}  // namespace simulator::k7
