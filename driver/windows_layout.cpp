// The binary layout that Windows hosts rely on, checked where it is built.
#include <cstddef>

#include "driver/tkspl_drv.h"

// Every compiler that lays these classes out supports it, though the language only permits it.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

static_assert(offsetof(TKSplDrv, stream) == 4 && offsetof(TKSplDrv, port) == 8);
static_assert(offsetof(TKSplDrv, prStep) == 12 && offsetof(TKSplDrv, thread) == 16);
static_assert(offsetof(TKSplDrv, threadId) == 20);
static_assert(offsetof(TKSplDrv, dateFrom) == 24 && offsetof(TKSplDrv, dateTo) == 40);
static_assert(offsetof(TKSplDrv, unusedFlag) == 56 && offsetof(TKSplDrv, groupFlag) == 57);
static_assert(offsetof(TKSplDrv, numberN) == 73 && offsetof(TKSplDrv, numberE) == 77);
static_assert(offsetof(TKSplDrv, numberK) == 81 && offsetof(TKSplDrv, baud) == 85);
static_assert(offsetof(TKSplDrv, typeText) == 89 && offsetof(TKSplDrv, numberText) == 119);
static_assert(offsetof(TKSplDrv, sectionText) == 149 && offsetof(TKSplDrv, versionText) == 179);
static_assert(offsetof(TKSplDrv, param) == 239 && offsetof(TKSplDrv, param16) == 275);
static_assert(offsetof(TKSplDrv, progress) == 279 && offsetof(TKSplDrv, stopRequest) == 283);
static_assert(offsetof(TKSplDrv, idle) == 284 && offsetof(TKSplDrv, prLock) == 285);
static_assert(offsetof(TKSplDrv, stopLock) == 309 && offsetof(TKSplDrv, mode) == 333);
static_assert(sizeof(TKSplDrv) == 337);
