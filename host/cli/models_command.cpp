#include <fmt/format.h>

#include "host/cli/commands.h"

namespace host {
namespace {

void List(const char* heading, std::span<const simulator::Choice> choices) {
  fmt::print("{}\n", heading);
  for (const simulator::Choice& choice : choices) {
    fmt::print("  {:<16} {}\n", choice.name, choice.description);
  }
}

}  // namespace

int ListModels() {
  List("Instruments, for --simulate and simulate:", simulator::Models());
  List("\nFaults, for --fault:", simulator::Faults());
  return 0;
}

}  // namespace host
