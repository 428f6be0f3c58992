#include <fmt/format.h>

#include <exception>

#include "host/cli/command_line.h"
#include "host/reading/settings.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"

namespace host {
namespace {

int RunLine(const CommandLine& line) {
  if (line.command) return line.command->Run();
  if (line.exitCode == kSuccess) {
    WriteStandardOutput(line.message);
  } else {
    WriteStandardError(line.message);
  }
  return line.exitCode;
}

}  // namespace

int RunProgram(const std::vector<std::string>& arguments) {
  try {
    return RunLine(ParseCommandLine(arguments));
  } catch (const UsageError& error) {
    WriteStandardError(fmt::format("irvela: {}\n", error.what()));
    return kWrongUsage;
  } catch (const std::exception& error) {
    WriteStandardError(fmt::format("irvela: {}\n", error.what()));
    return kFailed;
  }
}

}  // namespace host
