#include "host/line/trace_event.h"

#include <fmt/format.h>

#include <charconv>
#include <nlohmann/json.hpp>

namespace host {
namespace {

using Json = nlohmann::json;
using Kind = TraceEvent::Kind;

constexpr const char* kCauses[] = {"none", "user", "done", "lost", "refused", "waited"};

[[noreturn]] void Fail() { throw Json::other_error::create(0, "no event of a trace", nullptr); }

void Require(bool holds) {
  if (!holds) Fail();
}

// --- Writing ---

std::string Digits(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() * 2);
  for (const char byte : bytes) {
    fmt::format_to(std::back_inserter(text), "{:02x}", static_cast<unsigned char>(byte));
  }
  return text;
}

std::string Text(const std::string& text) {
  return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string ArgumentsText(const PortCall& call) {
  if (call.name == PortCall::Name::kWrite) return '"' + Digits(call.sent) + '"';
  std::string text(1, '[');
  for (std::size_t i = 0; i < NameOf(call).arguments; ++i) {
    if (i > 0) text += ',';
    text += std::to_string(call.arguments[i]);
  }
  return text + ']';
}

// What a call returns when all is well; left out then.
int UsualResult(const PortCall& call, const CallResult& result) {
  if (call.name == PortCall::Name::kRead) return static_cast<int>(result.received.size());
  return call.name == PortCall::Name::kWrite ? static_cast<int>(call.sent.size()) : 1;
}

std::string MainPart(const TraceEvent& event) {
  switch (event.kind) {
    case Kind::kBeginRun:
      return R"("run":)" + event.settings;
    case Kind::kCall:
      return fmt::format(R"("{}":{})", NameOf(event.call).text, ArgumentsText(event.call));
    case Kind::kEndRun:
      return fmt::format(R"("run_end":"{}")", event.obeyed ? "obeyed" : "forced");
    case Kind::kStop:
      break;
  }
  return {};
}

void AppendBytes(std::string& line, const char* name, const std::string& bytes) {
  if (!bytes.empty()) line += fmt::format(R"(,"{}":"{}")", name, Digits(bytes));
}

// --- Reading ---

std::string BytesOf(const Json& value) {
  const std::string& digits = value.get_ref<const std::string&>();
  Require(digits.size() % 2 == 0);
  std::string bytes;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    unsigned char byte = 0;
    const char* const end = digits.data() + i + 2;
    Require(std::from_chars(digits.data() + i, end, byte, 16).ptr == end);
    bytes += static_cast<char>(byte);
  }
  return bytes;
}

std::string BytesOf(const Json& line, const char* name) {
  return line.contains(name) ? BytesOf(line[name]) : "";
}

long long NumberOf(const Json& value) {
  Require(value.is_number_integer());
  return value.get<long long>();
}

StopCause CauseOf(const Json& line) {
  if (!line.contains("stop")) return StopCause::kNone;
  for (std::size_t i = 1; i < std::size(kCauses); ++i) {
    if (line["stop"] == kCauses[i]) return static_cast<StopCause>(i);
  }
  Fail();
}

void TakeArguments(const Json& value, PortCall& call) {
  if (call.name == PortCall::Name::kWrite) {
    call.sent = BytesOf(value);
    return;
  }
  Require(value.is_array() && value.size() == NameOf(call).arguments);
  for (std::size_t i = 0; i < value.size(); ++i) call.arguments[i] = NumberOf(value[i]);
}

// Of equal calls one after the other, each of which got all its bytes, the data stand in one line.
void CheckReceived(const PortCall& call, std::size_t size) {
  if (size == 0) return;
  Require(call.name == PortCall::Name::kRead && call.arguments[1] > 0);
  const auto count = static_cast<std::size_t>(call.arguments[1]);
  Require(size <= count || size % count == 0);
}

void TakeResult(const Json& line, const PortCall& call, CallResult& result) {
  result.received = BytesOf(line, "data");
  result.dropped = BytesOf(line, "dropped");
  CheckReceived(call, result.received.size());
  result.value = UsualResult(call, result);
  if (!line.contains("result")) return;
  const long long value = NumberOf(line["result"]);
  Require(0 <= value && value <= result.value);
  result.value = static_cast<int>(value);
}

// Whether the line is a port call.
bool TakeCall(const Json& line, TraceEvent& event) {
  for (const PortCallName& known : kPortCalls) {
    const auto found = line.find(known.text);
    if (found == line.end()) continue;
    event.kind = Kind::kCall;
    event.call.name = known.name;
    TakeArguments(*found, event.call);
    TakeResult(line, event.call, event.result);
    return true;
  }
  return false;
}

void TakeKind(const Json& line, TraceEvent& event) {
  if (TakeCall(line, event)) return;
  if (line.contains("run")) {
    event.kind = Kind::kBeginRun;
    Require(line["run"].is_object());
    event.settings = line["run"].dump();
  } else if (line.contains("run_end")) {
    event.kind = Kind::kEndRun;
    event.obeyed = line["run_end"] == "obeyed";
    Require(event.obeyed || line["run_end"] == "forced");
  } else {
    event.kind = Kind::kStop;
    Require(event.stop != StopCause::kNone);
  }
}

}  // namespace

const char* NameOf(StopCause cause) { return kCauses[static_cast<std::size_t>(cause)]; }

std::string TraceLineOf(const TraceEvent& event) {
  std::string line = fmt::format(R"({{"t":{})", event.ms);
  const std::string part = MainPart(event);
  if (!part.empty()) line += ',' + part;
  if (event.kind == Kind::kCall) {
    AppendBytes(line, "data", event.result.received);
    const int value = event.result.value;
    const bool usual = value == UsualResult(event.call, event.result);
    if (!usual) line += fmt::format(R"(,"result":{})", value);
    AppendBytes(line, "dropped", event.result.dropped);
  }
  if (event.stop != StopCause::kNone) line += fmt::format(R"(,"stop":"{}")", NameOf(event.stop));
  if (event.lost) line += R"(,"lost":true)";
  if (event.trouble) line += R"(,"trouble":)" + Text(*event.trouble);
  return line + '}';
}

TraceEvent ParseTraceEvent(const Json& line) {
  TraceEvent event;
  event.ms = NumberOf(line.at("t"));
  event.stop = CauseOf(line);
  TakeKind(line, event);
  event.lost = line.value("lost", false);
  if (line.contains("trouble")) event.trouble = line.at("trouble").get<std::string>();
  return event;
}

}  // namespace host
