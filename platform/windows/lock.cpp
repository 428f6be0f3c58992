#include "platform/platform.h"

namespace platform {
namespace {

// The host's layout puts the locks at odd offsets, so the storage has no alignment of its own; the
// processor's locked operations do not need any.
CRITICAL_SECTION* Section(TavLock& lock) {
  static_assert(sizeof(CRITICAL_SECTION) == sizeof(TavLock));
  return reinterpret_cast<CRITICAL_SECTION*>(lock.storage);
}

}  // namespace

void InitializeLock(TavLock& lock) { ::InitializeCriticalSection(Section(lock)); }
void DeleteLock(TavLock& lock) { ::DeleteCriticalSection(Section(lock)); }
void EnterLock(TavLock& lock) { ::EnterCriticalSection(Section(lock)); }
void LeaveLock(TavLock& lock) { ::LeaveCriticalSection(Section(lock)); }

}  // namespace platform
