#include "platform/platform.h"

namespace platform {

void* AllocateZeroed(unsigned size) { return ::LocalAlloc(LPTR, size); }
void FreeBlock(void* block) { ::LocalFree(block); }

}  // namespace platform
