// The options that choose where a run goes, for the commands that have one.
#pragma once

#include <optional>
#include <string>

#include "host/output/sinks.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace host {

// sinks must live as long as app.
void AddSinkOptions(CLI::App& app, SinkOptions& sinks);

// "--units"; units must live as long as app.
void AddUnitsOption(CLI::App& app, UnitChoice& units);

// "--format table" or "json"; json must live as long as app.
CLI::Option* AddJsonOption(CLI::App& app, bool& json);

// The same, and what else a reading can keep and show.
void AddReadingSinkOptions(CLI::App& app, SinkOptions& sinks);

// "--driver PATH" on Windows, where the driver is loaded; driver must live as long as app.
void AddDriverOption(CLI::App& app, std::string& driver);

// "--db [FILE]"; db must live as long as app, and is empty text when no file is named.
void AddStoreOption(CLI::App& app, std::optional<std::string>& db);

}  // namespace host
