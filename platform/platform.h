// The few calls of the operating system that the driver needs, once for Windows and once for POSIX.
#pragma once

#include "TKSplDrv/driver.h"

namespace platform {

// --- Locks: a critical section in the storage that the driver object gives it ---

void InitializeLock(TavLock& lock);
void DeleteLock(TavLock& lock);
void EnterLock(TavLock& lock);
void LeaveLock(TavLock& lock);

class LockGuard {
 public:
  explicit LockGuard(TavLock& lock) : lock_(lock) { EnterLock(lock_); }
  ~LockGuard() { LeaveLock(lock_); }
  LockGuard(const LockGuard&) = delete;
  LockGuard& operator=(const LockGuard&) = delete;

 private:
  TavLock& lock_;
};

// --- Threads ---

struct Thread {
  void* handle;  // null: the thread could not be created
  unsigned id;
};

Thread CreateThread(TavThreadRoutine routine, void* argument);

// The exit code of a thread; what cannot be told leaves code as it is.
void GetThreadExitCode(void* handle, unsigned long& code);

// Ends the thread wherever it is. On POSIX it ends at its next TerminationPoint, and this waits for
// that; a thread that the host keeps in a call of its own for longer is left there and ends when
// the call returns, without touching the driver object again. A thread that has ended is left
// alone.
void TerminateThread(void* handle, unsigned long code);

// Where a terminated POSIX thread ends. Stands behind every call into the host, so that no frame of
// the host's is ever unwound. Nothing on Windows.
void TerminationPoint();

// --- Memory: zero-filled blocks of the local heap ---

void* AllocateZeroed(unsigned size);
void FreeBlock(void* block);

// --- Clock: what tests replace ---

void Sleep(unsigned milliseconds);
SYSTEMTIME GetLocalTime();

}  // namespace platform
