// The DLL as a file: its version, and what is left when it is loaded and unloaded.
#include <doctest/doctest.h>
#include <windows.h>

#include <array>

#include "TKSplDrv/driver.h"
#include "tests/support/fake_port.h"
#include "tests/support/recording_stream.h"

namespace {

// Open handles, the next slot of thread-local storage, blocks on all heaps.
std::array<unsigned long, 3> Measure() {
  unsigned long handles = 0, blocks = 0;
  REQUIRE(GetProcessHandleCount(GetCurrentProcess(), &handles));
  const unsigned long slot = TlsAlloc();
  TlsFree(slot);
  HANDLE heaps[64] = {};
  const unsigned long count = GetProcessHeaps(64, heaps);
  REQUIRE(count <= 64);
  for (unsigned long i = 0; i < count; ++i) {
    PROCESS_HEAP_ENTRY entry = {};
    while (HeapWalk(heaps[i], &entry)) {
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) ++blocks;
    }
  }
  CHECK(blocks > 0);
  return {handles, slot, blocks};
}

// A mode that reads nothing still runs the reading thread. Its handle stays open, so the host
// closes it.
void ReadNothing(HMODULE library) {
  support::RecordingStream stream;
  support::FakePort port;
  void* init = reinterpret_cast<void*>(GetProcAddress(library, "LInit"));
  REQUIRE(init != nullptr);
  TavDrvV1* driver = reinterpret_cast<decltype(&LInit)>(init)(static_cast<HostStream*>(&stream),
                                                              static_cast<HostPort*>(&port));
  REQUIRE(driver != nullptr);
  REQUIRE(driver->Start(3) == 1);
  HANDLE thread = driver->thread;
  REQUIRE(WaitForSingleObject(thread, 60000) == WAIT_OBJECT_0);
  CHECK(driver->Destroy(1) == driver);
  CloseHandle(thread);
}

void LoadAndUnload(int rounds) {
  for (int i = 0; i < rounds; ++i) {
    HMODULE library = LoadLibraryA("TKSplDrv.dll");
    REQUIRE(library != nullptr);
    ReadNothing(library);
    REQUIRE(FreeLibrary(library));
    REQUIRE(GetModuleHandleA("TKSplDrv.dll") == nullptr);
  }
}

}  // namespace

TEST_CASE("loading and unloading a hundred times leaks nothing") {
  LoadAndUnload(10);
  Measure();  // what the system keeps for good it has after these
  const auto before = Measure();
  LoadAndUnload(100);
  CHECK(Measure() == before);
}

TEST_CASE("the DLL carries the version of the project") {
  char resource[4096];
  VS_FIXEDFILEINFO* version = nullptr;
  unsigned size = 0;
  REQUIRE(GetFileVersionInfoA("TKSplDrv.dll", 0, sizeof resource, resource));
  REQUIRE(VerQueryValueA(resource, "\\", reinterpret_cast<void**>(&version), &size));
  CHECK(version->dwFileVersionMS == (VERSION_MAJOR << 16 | VERSION_MINOR));
  CHECK(version->dwFileVersionLS == VERSION_PATCH << 16);
}
