#include <pthread.h>

#include <new>

#include "platform/platform.h"

namespace platform {
namespace {

static_assert(sizeof(pthread_mutex_t) <= sizeof(TavLock));
static_assert(alignof(pthread_mutex_t) <= alignof(TavLock));

pthread_mutex_t* Mutex(TavLock& lock) {
  return std::launder(reinterpret_cast<pthread_mutex_t*>(lock.storage));
}

}  // namespace

void InitializeLock(TavLock& lock) {
  // A Windows critical section may be entered again by its owner; hosts may rely on it.
  pthread_mutexattr_t attributes;
  pthread_mutexattr_init(&attributes);
  pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
  pthread_mutex_init(new (lock.storage) pthread_mutex_t, &attributes);
  pthread_mutexattr_destroy(&attributes);
}

void DeleteLock(TavLock& lock) { pthread_mutex_destroy(Mutex(lock)); }
void EnterLock(TavLock& lock) { pthread_mutex_lock(Mutex(lock)); }
void LeaveLock(TavLock& lock) { pthread_mutex_unlock(Mutex(lock)); }

}  // namespace platform
