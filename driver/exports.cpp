#include <new>

#include "driver/tkspl_drv.h"

extern "C" {

TavDrvV1* TAV_CDECL LInit(void* stream, void* port) {
  return new (std::nothrow) TKSplDrv(stream, port);
}

// The memory alone: the thread is not ended and the locks are not deleted, so that a host which
// calls this on a finished reading pays nothing. Intended.
unsigned TAV_CDECL LFree(void* driver) {
  ::operator delete(driver);
  return 1;
}
}
