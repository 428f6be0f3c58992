// What each command does. They return the exit code and throw std::exception with one sentence when
// they fail.
#pragma once

#include "host/cli/command_line.h"

namespace host {

int Read(const ReadOptions& options);
int Decode(const DecodeOptions& options);
int ShowParameters(const ParamsOptions& options);
int Simulate(const SimulateOptions& options);
int ListStore(const ListOptions& options);
int Show(const ShowOptions& options);
int Export(const ExportOptions& options);
int ShowGaps(const GapsOptions& options);
int ListModels(const ModelsOptions& options);

// The whole program but for its arguments. Never throws.
int RunProgram(const std::vector<std::string>& arguments);

}  // namespace host
