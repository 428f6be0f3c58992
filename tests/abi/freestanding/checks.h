// The parts of the test.
#pragma once

#include "tests/abi/freestanding/probe.h"
#include "tests/abi/freestanding/system.h"
#include "tests/abi/interface.h"

void CheckSlots();     // the object of LInit through its table, LInit and LFree themselves
void CheckOwnClass();  // a host's class derived from TavDrvV1, and the operations outside the table
void CheckConversions();  // the free functions

// An operation by its name in the host's table; slot 12 is "Destroy".
Callee SlotOf(const TavDrvV1* object, const char* name);
