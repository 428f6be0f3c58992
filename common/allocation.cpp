#include "TKSplDrv/conversions.h"
#include "platform/platform.h"

void* _malloc_(unsigned size, unsigned char* failed) {
  void* block = platform::AllocateZeroed(size);
  if (failed != nullptr) *failed = block == nullptr ? 1 : 0;
  return block;
}

void* _malloc_(unsigned size) { return _malloc_(size, nullptr); }

unsigned _free_(void* block) {
  if (block != nullptr) platform::FreeBlock(block);
  return 1;
}
