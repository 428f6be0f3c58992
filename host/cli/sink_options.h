// The options that choose where a run goes, for the commands that have one.
#pragma once

#include "host/output/sinks.h"

namespace CLI {
class App;
}

namespace host {

// sinks must live as long as app.
void AddSinkOptions(CLI::App& app, SinkOptions& sinks);

}  // namespace host
