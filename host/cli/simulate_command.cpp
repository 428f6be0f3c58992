#include <fmt/format.h>

#include <chrono>
#include <cstdio>
#include <thread>

#include "host/cli/commands.h"
#include "host/system/console.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"

namespace host {

int Simulate(const SimulateOptions& options) {
  simulator::Settings settings = options.settings;
  settings.report = [](const std::string& text) { fmt::print(stderr, "{}\n", text); };
  CountInterrupts();
  const auto served = options.tcp ? simulator::ServeTcp(settings, options.port)
                                  : simulator::ServePty(settings, options.pty);
  WriteStandardOutput(fmt::format("model {} number {} answers at {}\n", settings.model,
                                  settings.number, served->Address()));
  while (!Interrupted()) std::this_thread::sleep_for(std::chrono::milliseconds(100));
  return kSuccess;
}

}  // namespace host
