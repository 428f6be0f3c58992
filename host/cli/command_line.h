// The command line, taken apart.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/cli/command.h"

namespace host {

struct CommandLine {
  std::unique_ptr<Command> command;  // null: there is nothing to run
  // Then:
  int exitCode = 0;
  std::string message;  // the help that was asked for, or what is wrong
};

// Never throws for what stands on the command line.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

// The whole program but for its arguments: its exit code. Never throws.
int RunProgram(const std::vector<std::string>& arguments);

}  // namespace host
