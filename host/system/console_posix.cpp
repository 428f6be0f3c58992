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

struct Signal {
  int number;
  ExitCode code;
};
constexpr Signal kSignals[] = {{SIGINT, kInterrupted}, {SIGTERM, kTerminated}, {SIGHUP, kHungUp}};

std::atomic<int> interruptCode = 0;
static_assert(std::atomic<int>::is_always_lock_free);

void OnSignal(int number) {
  for (const Signal& signal : kSignals) {
    int first = 0;
    if (signal.number != number) continue;
    if (!interruptCode.compare_exchange_strong(first, signal.code)) std::_Exit(first);
  }
}

// Who starts a program so that it outlives its terminal wants it to stay deaf to the loss of it.
bool IsHangUpIgnored() {
  struct sigaction action = {};
  sigaction(SIGHUP, nullptr, &action);
  return action.sa_handler == SIG_IGN;
}

}  // namespace

// A descriptor that the caller has closed would be the line's, and the instrument would be sent
// what is printed. What stands there now takes nothing either, but for the standard error.
void SetUpConsole() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) >= 0) continue;
    if (open("/dev/null", stream == STDERR_FILENO ? O_WRONLY : O_RDONLY) < 0) break;
  }
  std::signal(SIGPIPE, SIG_IGN);  // a pipe that nobody reads any more takes nothing either
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
  for (const Signal& signal : kSignals) {
    if (signal.number == SIGHUP && IsHangUpIgnored()) continue;
    sigaction(signal.number, &action, nullptr);
  }
}

bool Interrupted() { return interruptCode != 0; }

int InterruptExitCode() { return interruptCode; }

}  // namespace host
