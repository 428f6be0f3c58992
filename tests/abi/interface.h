// The interface as the host of this test declares it: by our headers, or with plain types.
#pragma once

#if defined(PLAIN_TYPES)
#include "tests/abi/plain_types.h"
#else
#include "TKSplDrv/conversions.h"
#include "TKSplDrv/driver.h"
#endif
