// The options that say how much of a continuous reading is wanted.
#pragma once

#include <string>

#include "host/reading/follow_pace.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace host {

class PaceOptions {
 public:
  // pace must live as long as the options.
  explicit PaceOptions(Pace& pace) : pace_(pace) {}
  // follow: the option that they go with.
  void AddTo(CLI::App& app, CLI::Option* follow);
  // Once all is known. Throws UsageError.
  void Finish();

 private:
  Pace& pace_;
  std::string interval_;
  std::string duration_;
};

}  // namespace host
