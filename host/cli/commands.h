// All commands of the program.
#pragma once

#include <memory>
#include <span>

#include "host/cli/command.h"

namespace host {

struct CommandRow {
  const char* name;
  const char* about;  // one sentence
  std::unique_ptr<Command> (*make)();
};

// In the order in which help tells them.
std::span<const CommandRow> Commands();

// One file each.
std::unique_ptr<Command> MakeReadCommand();
std::unique_ptr<Command> MakeScanCommand();
std::unique_ptr<Command> MakeReplayCommand();
std::unique_ptr<Command> MakeDecodeCommand();
std::unique_ptr<Command> MakeListCommand();
std::unique_ptr<Command> MakeShowCommand();
std::unique_ptr<Command> MakeGapsCommand();
std::unique_ptr<Command> MakeParamsCommand();
std::unique_ptr<Command> MakeCheckCommand();
std::unique_ptr<Command> MakeExportCommand();
std::unique_ptr<Command> MakeReportCommand();
std::unique_ptr<Command> MakeImportCommand();
std::unique_ptr<Command> MakeExplainCommand();
std::unique_ptr<Command> MakeSimulateCommand();
std::unique_ptr<Command> MakeModelsCommand();

}  // namespace host
