#include "host/reading/traced_reading.h"

#include <fmt/format.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "host/reading/settings_json.h"
#include "host/reading/traced_scan.h"
#include "host/system/files.h"

namespace host {
namespace {

using Json = nlohmann::json;

constexpr const char* kStopped[] = {"none", "done", "interrupted"};

std::string Dump(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

TracedReading ParseReading(const std::string& text) {
  const Json json = Json::parse(text);
  TracedReading reading;
  reading.settings = ParseSettings(json.at("settings").dump());
  reading.search = {json.at("any_kind"), json.at("any_speed")};
  reading.line = json.at("line");
  reading.begun = ParseDate(json.at("begun"));
  return reading;
}

TracedEnd ParseEnd(const std::string& text) {
  const Json json = Json::parse(text);
  TracedEnd end;
  end.ending = json.at("ending");
  end.reason = json.at("reason");
  const auto* stopped = std::find(std::begin(kStopped), std::end(kStopped), json.at("stopped"));
  if (stopped == std::end(kStopped)) throw std::invalid_argument("no stop");
  end.stopped = static_cast<StopRequest>(stopped - std::begin(kStopped));
  end.exitCode = json.at("exit");
  end.stream.pieces = json.at("pieces");
  end.stream.bytes = json.at("bytes");
  end.stream.sum = std::stoull(json.at("sum").get<std::string>(), nullptr, 16);
  return end;
}

// Runs of an earlier program have the defaults of what it did not know.
void Normalize(Trace& trace) {
  for (TraceEvent& event : trace.events) {
    if (event.kind != TraceEvent::Kind::kBeginRun) continue;
    event.settings = SettingsJson(ParseSettings(event.settings));
  }
}

}  // namespace

std::string ToJson(const TracedReading& reading) {
  return Dump({{"settings", Json::parse(SettingsJson(reading.settings))},
               {"any_kind", reading.search.anyKind},
               {"any_speed", reading.search.anySpeed},
               {"line", reading.line},
               {"begun", DateText(reading.begun)}});
}

std::string ToJson(const TracedEnd& end) {
  return Dump({{"ending", end.ending},
               {"reason", end.reason},
               {"stopped", kStopped[static_cast<std::size_t>(end.stopped)]},
               {"exit", end.exitCode},
               {"pieces", end.stream.pieces},
               {"bytes", end.stream.bytes},
               {"sum", fmt::format("{:016x}", end.stream.sum)}});
}

ReadingTrace LoadReadingTrace(const std::filesystem::path& path) {
  return ReadingOf(LoadTrace(path), PathText(path));
}

ReadingTrace ReadingOf(Trace trace, const std::string& name) {
  if (IsOfScan(trace.reading)) {
    throw std::runtime_error(name + " is the trace of a scan; only readings are repeated");
  }
  ReadingTrace loaded;
  loaded.trace = std::move(trace);
  const char* part = "the settings of the reading";
  try {
    loaded.reading = ParseReading(loaded.trace.reading);
    part = "a run of the driver";
    Normalize(loaded.trace);
    part = "the end of the reading";
    if (loaded.trace.end) loaded.end = ParseEnd(*loaded.trace.end);
  } catch (const std::exception&) {
    throw std::runtime_error(fmt::format("{} is damaged: {} makes no sense", name, part));
  }
  return loaded;
}

}  // namespace host
