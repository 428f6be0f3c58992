// The flash of the older protocol's instruments: databases and logs in pages of 64 bytes.
#pragma once

#include "host/frames/older_places.h"

namespace host::frames {

// What stands in a page, of a request that began firstPage. data: of the page; those before it are
// in the context's flash.
OlderPlace FindFlash(const Context& context, unsigned firstPage, ByteView data);

}  // namespace host::frames
