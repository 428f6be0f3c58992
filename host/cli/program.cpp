#include <fmt/format.h>

#include <cstdio>
#include <exception>

#include "host/cli/commands.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"

namespace host {
namespace {

int RunCommand(const CommandLine& line) {
  switch (line.command) {
    case Command::kRead:
      return Read(line.read);
    case Command::kDecode:
      return Decode(line.decode);
    case Command::kList:
      return ListStore(line.list);
    case Command::kShow:
      return Show(line.show);
    case Command::kExport:
      return Export(line.exported);
    case Command::kParams:
      return ShowParameters(line.params);
    case Command::kGaps:
      return ShowGaps(line.gaps);
    case Command::kSimulate:
      return Simulate(line.simulate);
    case Command::kModels:
      return ListModels(line.models);
    case Command::kNone:
      break;
  }
  if (line.exitCode == kSuccess) {
    WriteStandardOutput(line.message);
  } else {
    fmt::print(stderr, "{}", line.message);
  }
  return line.exitCode;
}

}  // namespace

int RunProgram(const std::vector<std::string>& arguments) {
  try {
    return RunCommand(ParseCommandLine(arguments));
  } catch (const UsageError& error) {
    WriteStandardError(fmt::format("irvela: {}\n", error.what()));
    return kWrongUsage;
  } catch (const std::exception& error) {
    WriteStandardError(fmt::format("irvela: {}\n", error.what()));
    return kFailed;
  }
}

}  // namespace host
