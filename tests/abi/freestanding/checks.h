// The parts of the test.
#pragma once

void CheckSlots();     // the object of LInit through its table, LInit and LFree themselves
void CheckOwnClass();  // a host's class derived from TavDrvV1, and the operations outside the table
void CheckConversions();  // the free functions
