#include "bench/responder.h"

#include <fcntl.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace bench {
namespace {

int OpenMaster() {
  const int master = posix_openpt(O_RDWR | O_NOCTTY);
  if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) {
    throw std::runtime_error("there is no pseudo terminal");
  }
  return master;
}

// Until nobody has the line open any more.
[[noreturn]] void Serve(int master, const Responder::Answer& answer) {
  std::array<std::uint8_t, 512> bytes{};
  for (;;) {
    const ssize_t count = read(master, bytes.data(), bytes.size());
    if (count <= 0) _exit(0);
    const auto reply = answer(std::span(bytes).first(static_cast<std::size_t>(count)));
    if (!reply.empty() && write(master, reply.data(), reply.size()) < 0) _exit(1);
  }
}

}  // namespace

Responder::Responder(const Answer& answer) {
  const int master = OpenMaster();
  device_ = ptsname(master);
  slave_ = open(device_.c_str(), O_RDWR | O_NOCTTY);
  process_ = fork();
  if (slave_ < 0 || process_ < 0) throw std::runtime_error("there is no process for the responder");
  if (process_ == 0) {
    close(slave_);
    Serve(master, answer);
  }
  close(master);
}

Responder::~Responder() {
  close(slave_);
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
}

}  // namespace bench
