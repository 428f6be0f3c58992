#include <cstdlib>

#include "platform/platform.h"

namespace platform {

void* AllocateZeroed(unsigned size) { return std::calloc(1, size != 0 ? size : 1); }
void FreeBlock(void* block) { std::free(block); }

}  // namespace platform
