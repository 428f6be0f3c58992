#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdlib>

#include "host/system/console.h"
#include "host/system/exit_codes.h"

namespace host {
namespace {

std::atomic<int> interrupts = 0;
static_assert(std::atomic<int>::is_always_lock_free);

void OnSignal(int) {
  if (interrupts.fetch_add(1) > 0) std::_Exit(kInterrupted);
}

}  // namespace

// A descriptor that the caller has closed would be the line's, and the instrument would be sent what
// is printed. What stands there now takes nothing either, but for the standard error.
void SetUpConsole() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) >= 0) continue;
    if (open("/dev/null", stream == STDERR_FILENO ? O_WRONLY : O_RDONLY) < 0) return;
  }
}

std::vector<std::string> Arguments(int argc, char** argv) {
  return {argv + std::min(1, argc), argv + argc};
}

std::string ErrorText(const std::error_code& error) { return error.message(); }

bool ErrorIsTerminal() { return isatty(STDERR_FILENO) != 0; }

void CountInterrupts() {
  struct sigaction action = {};
  action.sa_handler = OnSignal;
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
}

bool Interrupted() { return interrupts > 0; }

}  // namespace host
