// How the program ends.
#pragma once

namespace host {

enum ExitCode : int {
  kSuccess = 0,        // done
  kFailed = 1,         // the reading, or a file, failed
  kWrongUsage = 2,     // the command line makes no sense
  kReadWithGaps = 3,   // read, but for records that are missing
  kFindings = 3,       // checked, and something was found
  kHungUp = 129,       // SIGHUP: the terminal is gone
  kInterrupted = 130,  // Ctrl-C
  kTerminated = 143    // SIGTERM; on Windows the console is closed, or the user logs off
};

}  // namespace host
