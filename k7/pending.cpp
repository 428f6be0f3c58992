// The K7 reader is being written: until then a reading of this kind fails.
#include "driver/reader.h"

std::unique_ptr<Reader> MakeK7Reader(TavDrvV1& /*host*/) { return nullptr; }
