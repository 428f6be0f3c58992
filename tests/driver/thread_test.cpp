// The reading thread from the host's side: started once, ended in any of the host's ways.
#include <doctest/doctest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <new>
#include <thread>

#include "TKSplDrv/records.h"
#include "driver/tkspl_drv.h"
#include "platform/platform.h"
#include "tests/support/fake_clock.h"
#include "tests/support/fake_port.h"
#include "tests/support/reading.h"

namespace {

struct Host {
  Host() {
    support::clock::Reset();
    stream.onMessage = [this](const std::string& line) {
      if (line == "2016.09.04:13.05.09 / Opros End") ended.set_value();
    };
    // A thread that is ended on Windows is ended where it is: here, where it holds nothing.
    port.onRead = [this] {
      reading = true;
      while (held) std::this_thread::yield();
      std::this_thread::sleep_for(std::chrono::milliseconds(slowRead));
    };
    driver = LInit(static_cast<HostStream*>(&stream), static_cast<HostPort*>(&port));
  }

  support::RecordingStream stream;
  support::FakePort port;
  std::promise<void> ended;
  std::atomic<bool> reading = false;
  std::atomic<bool> held = false;  // the reading waits in its port
  int slowRead = 0;                // ms
  TavDrvV1* driver = nullptr;
};

// A reading that goes on for a billion attempts.
void StartEndless(Host& host) {
  int attempts = 1'000'000'000;
  host.driver->SetupParametr(1, 4, &attempts);
  REQUIRE(host.driver->Start(1) == 1);
  while (!host.reading) std::this_thread::yield();
}

void StopAndWait(Host& host) {
  auto ended = host.ended.get_future();
  while (ended.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) {
    host.driver->Stop();
  }
}

std::atomic<bool> noLargeBlocks = false;

}  // namespace

// The readers' memory, which a test refuses; the thread's own record is small.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  constexpr std::size_t kLarge = 1000;
  if (noLargeBlocks && size > kLarge) return nullptr;
  try {
    return ::operator new(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

TEST_CASE("a mode that no protocol serves announces its start and end and reads nothing") {
  Host host;
  CHECK(host.driver->Close() == 1);
  CHECK(host.driver->Kill() == 1);  // nothing to end
  REQUIRE(host.driver->Start(3) == 1);
  host.ended.get_future().wait();
  CHECK(host.stream.messages == std::vector<std::string>{"2016.09.04:13.05.09 / Start Opros",
                                                         "2016.09.04:13.05.09 / Opros End"});
  CHECK(host.driver->GetPr() == 0);
  CHECK(host.driver->Stop() == 1);
  CHECK(host.driver->Close() == 0);
  CHECK(host.driver->Kill() == 1);  // harmless after the end
  CHECK(LFree(host.driver) == 1);
  CHECK(LFree(nullptr) == 1);
}

TEST_CASE("a running reading is ended by Kill and by the destructor") {
  for (const bool kill : {true, false}) {
    Host host;
    host.slowRead = 100;
    StartEndless(host);
    if (kill) CHECK(host.driver->Kill() == 1);
    CHECK(host.driver->Destroy(0) == host.driver);
    const int reads = host.port.reads;  // no thread touches the port any more
    std::this_thread::sleep_for(std::chrono::milliseconds(2 * host.slowRead));
    CHECK(host.port.reads == reads);
    ::operator delete(host.driver);
  }
}

TEST_CASE("a second start touches nothing") {
  Host host;
  host.held = true;
  StartEndless(host);
  auto& driver = *static_cast<TKSplDrv*>(host.driver);
  const auto refused = [&] {
    const auto setUp = host.port.setUp;
    CHECK(driver.Start(2) == 0);
    CHECK(static_cast<TavDrvV1&>(driver).Start(PollThread) == 0);
    CHECK(driver.mode == 1);
    CHECK(host.port.setUp == setUp);
  };
  refused();
  host.held = false;
  StopAndWait(host);  // which ends even a billion attempts
  CHECK(host.stream.Said("Error / ReadStop"));
  CHECK(host.driver->GetPr() == -1);
  refused();
  host.driver->Destroy(1);
}

TEST_CASE("without memory for its reader a reading fails") {
  for (const tav::Mode mode : {tav::Mode::kOlder, tav::Mode::kK7}) {
    support::Reading reading;
    noLargeBlocks = true;
    reading.Run(static_cast<int>(mode));
    noLargeBlocks = false;
    CHECK(reading.stream.messages == std::vector<std::string>{"2016.09.04:13.05.09 / Start Opros",
                                                              "Error / ReadStop",
                                                              "2016.09.04:13.05.09 / Opros End"});
  }
}

TEST_CASE("a driver without a port or a stream refuses to start") {
  support::FakePort port;
  TavDrvV1* driver = LInit(nullptr, nullptr);
  CHECK(driver->Start(1) == 0);
  CHECK(driver->MessageTav(nullptr, "a", "b", 0) == 2);
  CHECK(driver->WriteTavRec("a") == 0);
  CHECK(driver->WritePort(0, "a", 1) == 0);
  driver->Destroy(1);
}
