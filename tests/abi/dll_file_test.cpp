// The DLL as a file: its version, and what is left when it is loaded and unloaded. Loading
// it, running its thread and unloading it a hundred times leaves what the process held before.
#include <doctest/doctest.h>
#include <windows.h>

#include <cstring>

#include "TKSplDrv/driver.h"

namespace {

struct Held {
  unsigned long handles = 0;
  unsigned long blocks = 0;  // on all heaps
  unsigned long freeThreadSlots = 0;
};

unsigned long CountBlocks(HANDLE heap) {
  unsigned long count = 0;
  PROCESS_HEAP_ENTRY entry = {};
  while (HeapWalk(heap, &entry)) {
    if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) ++count;
  }
  REQUIRE(GetLastError() == ERROR_NO_MORE_ITEMS);
  return count;
}

// The slots of thread-local storage that are still free, taken and given back.
unsigned long CountFreeThreadSlots() {
  unsigned long slots[2048] = {};
  unsigned long count = 0;
  while (count < 2048 && (slots[count] = TlsAlloc()) != TLS_OUT_OF_INDEXES) ++count;
  for (unsigned long i = 0; i < count; ++i) TlsFree(slots[i]);
  return count;
}

Held Measure() {
  Held held;
  REQUIRE(GetProcessHandleCount(GetCurrentProcess(), &held.handles));
  HANDLE heaps[64] = {};
  const unsigned long count = GetProcessHeaps(64, heaps);
  REQUIRE(count > 0);
  REQUIRE(count <= 64);
  for (unsigned long i = 0; i < count; ++i) held.blocks += CountBlocks(heaps[i]);
  held.freeThreadSlots = CountFreeThreadSlots();
  return held;
}

class Stream : public HostStream {
 public:
  bool Message(const char*, const char*, unsigned) override { return true; }
  bool Write(const void*, unsigned) override { return true; }
};

class Port : public HostPort {
 public:
  bool Control(int) override { return true; }
  bool SetTimeouts(unsigned, unsigned, unsigned, unsigned, unsigned) override { return true; }
  void Reserved2() override {}
  bool SetLine(int, int, int, int, int, int) override { return true; }
  void Reserved4() override {}
  bool SetBuffers(int, int) override { return true; }
  int Read(unsigned, unsigned, void*) override { return 0; }
  int Write(const void*, unsigned) override { return 0; }
};

// A mode that reads nothing still runs the reading thread. Its handle stays open, so the host
// closes it.
void ReadNothing(HMODULE library) {
  Stream stream;
  Port port;
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
  const Held before = Measure();
  LoadAndUnload(100);
  const Held after = Measure();
  CHECK(after.handles == before.handles);
  CHECK(after.blocks == before.blocks);
  CHECK(after.freeThreadSlots == before.freeThreadSlots);
}

TEST_CASE("the DLL carries the version of the project") {
  HMODULE library = LoadLibraryA("TKSplDrv.dll");
  REQUIRE(library != nullptr);
  HRSRC found = FindResourceA(library, MAKEINTRESOURCEA(VS_VERSION_INFO), RT_VERSION);
  REQUIRE(found != nullptr);
  constexpr std::size_t kKeySize = 40;  // a header and the key, before the numbers
  VS_FIXEDFILEINFO info = {};
  REQUIRE(SizeofResource(library, found) >= kKeySize + sizeof info);
  const auto* bytes = static_cast<const char*>(LockResource(LoadResource(library, found)));
  std::memcpy(&info, bytes + kKeySize, sizeof info);
  CHECK(info.dwSignature == VS_FFI_SIGNATURE);
  CHECK(info.dwFileVersionMS == (VERSION_MAJOR << 16 | VERSION_MINOR));
  CHECK(info.dwFileVersionLS == VERSION_PATCH << 16);
  FreeLibrary(library);
}
