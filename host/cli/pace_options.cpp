#include "host/cli/pace_options.h"

#include <CLI/CLI.hpp>

#include "host/cli/checks.h"
#include "host/cli/durations.h"

namespace host {

void PaceOptions::AddTo(CLI::App& app, CLI::Option* follow) {
  app.add_option("--interval", interval_, "rows of current values at most this often: 10s, 1m")
      ->option_text("TIME")
      ->needs(follow);
  app.add_option("--count", pace_.count,
                 "end after so many rows of current values of each heat system")
      ->check(WholeNumber(1, 1000000000))
      ->option_text("N")
      ->needs(follow);
  app.add_option("--duration", duration_, "end so long after the archives were read: 90s, 2h")
      ->option_text("TIME")
      ->needs(follow);
}

void PaceOptions::Finish() {
  if (!interval_.empty()) pace_.interval = RequireDuration("--interval", interval_);
  if (!duration_.empty()) pace_.duration = RequireDuration("--duration", duration_);
}

}  // namespace host
