// An instrument in a process of its own at the far end of a pseudo terminal, so that its work is
// not counted with that of the program under measurement.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace bench {

class Responder {
 public:
  // What a request gets as its reply; called in the other process with the bytes of one read, which
  // hold whole requests.
  using Answer = std::function<std::vector<std::uint8_t>(std::span<const std::uint8_t>)>;

  // To be made while the program has one thread.
  explicit Responder(const Answer& answer);
  ~Responder();
  Responder(const Responder&) = delete;
  Responder& operator=(const Responder&) = delete;

  const std::string& Device() const { return device_; }

 private:
  std::string device_;
  int slave_;  // keeps the line while no run has it open; with it the other process ends
  pid_t process_;
};

}  // namespace bench
