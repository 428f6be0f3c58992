// How the program ends.
#pragma once

namespace host {

enum ExitCode : int {
  kSuccess = 0,       // done
  kFailed = 1,        // the reading, or a file, failed
  kWrongUsage = 2,    // the command line makes no sense
  kInterrupted = 130  // Ctrl-C
};

}  // namespace host
