// A host as the platform's own compilers build it, without their runtime: it calls the DLL in every
// way such a host can. Prints what failed; the exit code tells whether all was right.
#include "tests/abi/freestanding/checks.h"
#include "tests/abi/freestanding/system.h"

extern "C" void mainCRTStartup() {
  CheckSlots();
  CheckOwnClass();
  CheckConversions();
  ExitProcess(ExitCode());
}
