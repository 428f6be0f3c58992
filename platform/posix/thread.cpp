// A thread that can be ended from outside without taking the process down: it ends itself at its
// next TerminationPoint. Its handle is a number, not an object: it means nothing once the thread
// has ended, so that handles need not be closed and a late Kill does no harm.
#include <pthread.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <new>

#include "platform/platform.h"

namespace platform {
namespace {

// Longer than any time limit that the driver gives a read, so that only a host that overstays it is
// left behind.
constexpr std::chrono::milliseconds kTerminationWait{2000};

struct Running {
  TavThreadRoutine routine;
  void* argument;
  unsigned id = 0;
  std::atomic<bool> terminate = false;
  Running* next = nullptr;
};

struct Registry {
  std::mutex mutex;
  std::condition_variable ended;
  unsigned lastId = 0;
  Running* first = nullptr;
};

// Never destroyed: threads may outlive the static objects.
Registry& Threads() {
  alignas(Registry) static unsigned char storage[sizeof(Registry)];
  static Registry* registry = new (storage) Registry;
  return *registry;
}

thread_local Running* current = nullptr;

Running* Find(const Registry& threads, unsigned id) {
  Running* thread = threads.first;
  while (thread != nullptr && thread->id != id) thread = thread->next;
  return thread;
}

void Register(Running* thread) {
  Registry& threads = Threads();
  const std::lock_guard lock(threads.mutex);
  do {
    ++threads.lastId;
  } while (threads.lastId == 0 || Find(threads, threads.lastId) != nullptr);
  thread->id = threads.lastId;
  thread->next = threads.first;
  threads.first = thread;
}

void Unregister(Running* thread) {
  Registry& threads = Threads();
  {
    const std::lock_guard lock(threads.mutex);
    Running** link = &threads.first;
    while (*link != thread) link = &(*link)->next;
    *link = thread->next;
    threads.ended.notify_all();
  }
  delete thread;
}

// Takes the thread out of the registry when it returns and when it is ended.
struct Registration {
  ~Registration() { Unregister(current); }
};

void* Main(void* thread) {
  current = static_cast<Running*>(thread);
  const Registration registration;
  current->routine(current->argument);
  return nullptr;
}

bool Launch(Running* thread) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
  pthread_t created{};
  const int result = pthread_create(&created, &attributes, Main, thread);
  pthread_attr_destroy(&attributes);
  return result == 0;
}

}  // namespace

Thread CreateThread(TavThreadRoutine routine, void* argument) {
  auto* thread = new (std::nothrow) Running{routine, argument};
  if (thread == nullptr) return {};
  Register(thread);
  const unsigned id = thread->id;  // the thread may have ended, and its record with it
  if (!Launch(thread)) {
    Unregister(thread);
    return {};
  }
  return {reinterpret_cast<void*>(std::uintptr_t{id}), id};
}

void GetThreadExitCode(void* /*handle*/, unsigned long& /*code*/) {}

void TerminateThread(void* handle, unsigned long /*code*/) {
  const auto id = static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(handle));
  if (current != nullptr && current->id == id) return;  // a thread does not wait for its own end
  Registry& threads = Threads();
  std::unique_lock lock(threads.mutex);
  Running* thread = Find(threads, id);
  if (thread == nullptr) return;
  thread->terminate = true;
  threads.ended.wait_for(lock, kTerminationWait, [&] { return Find(threads, id) == nullptr; });
}

void TerminationPoint() {
  if (current != nullptr && current->terminate) pthread_exit(nullptr);
}

}  // namespace platform
