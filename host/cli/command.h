// A command of the program: its options, and what it does.
#pragma once

namespace CLI {
class App;
}

namespace host {

class Command {
 public:
  virtual ~Command() = default;
  // Adds its options and examples. The command must outlive the parsing of app.
  virtual void AddTo(CLI::App& app) = 0;
  // Once all options are known: what they have to be together. Throws UsageError or
  // std::invalid_argument.
  virtual void Finish() {}
  // Returns the exit code. Throws std::exception with one sentence when it fails.
  virtual int Run() = 0;
};

}  // namespace host
